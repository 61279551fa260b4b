#include "protocol/read_frequency.h"

#include <algorithm>
#include <climits>

#include "basic/basic.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/transverter.h"

namespace veldor {

namespace {

// Bytes 1 to 4 of a VFO record, big-endian.
double RecordValue(const Core& c, int first) {
    return 16777216.0 * ReplyByte(c, first) + 65536.0 * ReplyByte(c, first + 1) +
           256.0 * ReplyByte(c, first + 2) + ReplyByte(c, first + 3);
}

// The mode byte of the FT-817/857/897 and FT-847.
QString BcdRigMode(uint8_t code) {
    switch (code) {
        case 0x00:
            return "LSB";
        case 0x01:
            return "USB";
        case 0x02:
            return "CW";
        case 0x03:
            return "CWR";
        case 0x04:
            return "AM";
        case 0x06:
        case 0x08:
            return "FM";
        case 0x0A:
        case 0x8A:
            return "DIG";
        case 0x0C:
            return "PKT";
        case 0x82:
            return "CWN";
        case 0x83:
            return "CWRN";
        case 0x84:
            return "AMN";
        case 0x88:
            return "FMN";
        default:
            return QString::number(code);
    }
}

// The FT-450's mode digit, character 21 of the "IF" reply.
QString Ft450Mode(QChar digit) {
    switch (digit.toLatin1()) {
        case '1':
            return "LSB";
        case '2':
            return "USB";
        case '3':
            return "CW";
        case '4':
            return "FM";
        case '5':
            return "AM";
        case '6':
            return "RTYL";
        case '7':
            return "CWR";
        case '8':
            return "USRL";
        case '9':
            return "RTYU";
        case 'B':
            return "FMN";
        case 'C':
            return "USRU";
        default:
            return "???";
    }
}

// FT-1000MP: bits 0 to 2 of byte 7, with the alternate flag of byte 0. "RTTL" is spelled so
// on purpose and is not one of the program's mode names.
QString Ft1000MpMode(int bits, bool alternate) {
    static const char* const kPlain[] = {"LSB", "USB", "CW", "AM", "FM", "RTTL", "PKTL", "???"};
    static const char* const kAlternate[] = {"LSB", "USB",  "CWR",  "AMS",
                                             "FM",  "RTYU", "PKTF", "???"};
    return (alternate ? kAlternate : kPlain)[bits & 7];
}

// FT-920: bits 0 to 2 of the mode byte, with the alternate flag (0x40) and the narrow flag
// (0x80).
QString Ft920Mode(uint8_t b) {
    const bool alternate = b & 0x40, narrow = b & 0x80;
    switch (b & 7) {
        case 0:
            return alternate ? "USB" : "LSB";
        case 1:
            return alternate ? "CW" : "CWR";
        case 2:
            return narrow ? "AMN" : "AM";
        case 3:
            return narrow ? "FMN" : "FM";
        case 4:
            return "RTYL";
        case 5:
            return "RTYU";
        case 6:
            return "PKTF";
        default:
            return "???";
    }
}

// The rigs that send no digits get their frequency text formatted.
void ShowFrequency(Core& c, int32_t frequency, bool formatText = false) {
    if (formatText) c.s.FrequencyText = basic::Format(frequency, "00000000");
    c.s.CurrentFrequency = frequency;
    c.s.DisplayFrequency = FormatFrequency(c, frequency);
    c.s.TuningFrequency = frequency;
    c.f.txtVfoA.text = c.s.DisplayFrequency;
}

void ShowMode(Core& c, const QString& mode) {
    c.s.CurrentMode = mode;
    c.f.txtMode.text = mode.trimmed();
}

bool ReadBlock(Core& c, uint8_t p4, int count) {
    PutParameters(c);
    c.s.CommandBytes[3] = p4;
    SendCommand(c, 0x10);
    ReadResponse(c, count);
    return !c.s.ReplyTimedOut && c.s.ReplyBytes.size() == count;
}

void ReadBcdRig(Core& c) {
    State& s = c.s;
    PutParameters(c);
    SendCommand(c, 0x03);
    ReadResponse(c, 5);
    if (s.ReplyTimedOut || s.ReplyBytes.size() != 5) return;
    s.FrequencyText.clear();
    for (int i = 0; i < 4; ++i)
        s.FrequencyText += QString("%1").arg(ReplyByte(c, i), 2, 16, QChar('0')).toUpper();
    const bool digitsOnly = std::all_of(s.FrequencyText.begin(), s.FrequencyText.end(),
                                        [](QChar ch) { return ch >= '0' && ch <= '9'; });
    if (!digitsOnly) {
        c.p.dialogs->messageBox("Bad frequency from rig - " + s.FrequencyText +
                                    "\r\nData flow between PC and rig will be re-synchronised.",
                                "VELDOR", MsgButtons::OK, MsgIcon::None);
        c.p.MSComm1->clearInput();
        SaveSetting(c, s.AppName, "Settings", "AutoStart", "No");
        if (++s.BadFrequencyCount >= 3) {
            c.p.dialogs->messageBox(
                "We have received 3 consecutive bad frequencies. There is probably\r\na problem "
                "with communication to the rig - the program will end.",
                "VELDOR", MsgButtons::OK, MsgIcon::Critical);
            c.p.system->abortProcess();
        }
        return;
    }
    s.BadFrequencyCount = 0;
    const int32_t frequency = s.FrequencyText.toInt();
    const QString mode = BcdRigMode(ReplyByte(c, 4));
    // Departure: good digits on a frequency the rig cannot tune, or a mode byte of no mode, are
    // a reply read out of step (bytes of two replies); shown, they would stay wrong for good.
    if (!InRigRanges(s.RigType, frequency) || !IsKnownMode(mode)) {
        Realign(c, "the rig reported " + s.FrequencyText + " and mode " + mode);
        return;
    }
    ShowFrequency(c, frequency);
    ShowMode(c, mode);
}

void ReadFt450(Core& c) {
    State& s = c.s;
    SendText(c, "IF;");
    if (!ReceiveData(c)) return;
    const QString& r = s.TextReply;
    if (r.left(2) != "IF") {
        s.TextResyncNeeded = true;
        return;
    }
    // Characters counted from 1, as the rig's manual counts them.
    auto at = [&r](int position, int length = 1) { return r.mid(position - 1, length); };
    s.FrequencyText = at(6, 8);
    ShowFrequency(c, basic::CLng(basic::Val(s.FrequencyText) / 10));
    ShowMode(c, Ft450Mode(at(21).isEmpty() ? QChar() : at(21)[0]));

    const QString memory = at(22);
    Label& mode450 = c.frm450DSP.lbl450Mode;
    if (memory == "0")
        mode450.caption = "VFO";
    else if (memory == "1")
        mode450.caption = "M-" + at(3, 3);
    else if (memory == "2")
        mode450.caption = "M-Tune";
    else if (memory == "3")
        mode450.caption = "QMB";

    const QString toneMode = at(23);
    s.RigToneEncode = toneMode == "2" ? "1" : "0";
    s.RigToneDecode = toneMode == "1" ? "1" : "0";
    s.RigTone = at(24, 2);
    const QString shift = at(26);
    s.RigShift = shift == "1" ? "+" : shift == "2" ? "-" : "0";
    // A tone state about to be written is not overwritten by the old reading.
    if (!s.SplitMemoryPending && !s.FrequencyChangePending) {
        s.ToneCode = s.RigTone;
        s.ToneEncode = s.RigToneEncode;
        s.ToneDecode = s.RigToneDecode;
        s.TargetShift = s.RigShift;
    }
    c.f.cmdShiftSimplex.backColour = s.RigShift == "0" ? PaleGreen : ButtonFace;
    c.f.cmdShiftMinus.backColour = s.RigShift == "-" ? PaleGreen : ButtonFace;
    c.f.cmdShiftPlus.backColour = s.RigShift == "+" ? PaleGreen : ButtonFace;
}

void ReadFrg100(Core& c) {
    if (!ReadBlock(c, 2, 19)) return;
    // Tens of hertz already; the top byte of the rig's value is not used.
    ShowFrequency(c, ReplyByte(c, 2) + 256 * ReplyByte(c, 3) + 65536 * ReplyByte(c, 4), true);
    static const char* const kModes[] = {"LSB", "USB", "CW", "AM", "FM"};
    const int mode = ReplyByte(c, 7) & 0x0F;
    ShowMode(c, mode < 5 ? kModes[mode] : "???");
}

void ShowFilterButtons(std::array<CommandButton, 5>& buttons, int selected) {
    for (CommandButton& b : buttons) b.backColour = White;
    if (selected >= 0 && selected < 5) buttons[selected].backColour = PaleGreen;
}

void ReadFt1000Mp(Core& c) {
    if (!ReadBlock(c, 2, 16) || ReplyByte(c, 1) > 0x2E) return;
    ShowFrequency(c, basic::CLng(RecordValue(c, 1) / 16), true);
    ShowMode(c, Ft1000MpMode(ReplyByte(c, 7), ReplyByte(c, 0) > 0x7F));
    const uint8_t filters = ReplyByte(c, 8);
    // Bits 4 to 6: 0x40 is member 0 down to 0x00 member 4; bits 0 to 2 likewise from 4.
    const int wide = (filters & 0x70) >> 4;
    ShowFilterButtons(c.f.cmdFT1000MP_Filter_82, wide <= 4 ? 4 - wide : -1);
    const int narrow = filters & 0x07;
    ShowFilterButtons(c.f.cmdFT1000MP_Filter_455, narrow <= 4 ? 4 - narrow : -1);
}

void ReadFt920(Core& c) {
    State& s = c.s;
    if (!ReadBlock(c, 2, 28)) return;
    ShowFrequency(c, basic::CLng(RecordValue(c, 1) / 10), true);
    const uint8_t mode = ReplyByte(c, 7);
    ShowMode(c, Ft920Mode(mode));
    const bool narrow = mode & 0x80;
    c.f.Command2[6].backColour = narrow ? PaleGreen : ButtonFace;
    c.f.lblNarrow.visible = narrow;
    if (!s.MetersVisible) return;
    // VFO B for the meters panel. It writes the current values too, without touching the
    // main display, so that they hold VFO B until the next reading.
    PutParameters(c);
    c.s.CommandBytes[3] = 3;
    SendCommand(c, 0x10);
    ReadResponse(c, 28);
    if (s.ReplyTimedOut || s.ReplyBytes.size() != 28) return;
    s.CurrentFrequency = basic::CLng(RecordValue(c, 15) / 10);
    s.FrequencyText = basic::Format(s.CurrentFrequency, "00000000");
    s.CurrentMode = Ft920Mode(ReplyByte(c, 21));
    c.frmMeters.lblVFOB.caption = FormatFrequency(c, s.CurrentFrequency);
    c.frmMeters.lblModeB.caption = s.CurrentMode;
    // VFO B's part in transmit and receive, from the lights of the status read.
    QString& txRx = c.frmMeters.lblTxRx.caption;
    txRx.clear();
    if (c.f.shpTxVfoB == Red) txRx = "TX";
    if (c.f.shpRxVfoB == Green) txRx += " RX";
}

}  // namespace

void ReadFrequencyAndMode(Core& c) {
    const QString& rig = c.s.RigType;
    const RigInfo* info = FindRig(rig);
    if (!info) return;
    if (info->family == LinkFamily::Bcd)
        ReadBcdRig(c);
    else if (rig == RigFT450)
        ReadFt450(c);
    else if (rig == RigFRG100)
        ReadFrg100(c);
    else if (rig == RigFT1000MP)
        ReadFt1000Mp(c);
    else if (rig == RigFT920)
        ReadFt920(c);
    // The VR-5000 cannot be read: frequency and mode stay as last sent.
}

namespace {

// Nine digits with the leading zeros of the first four as blanks.
QString NineDigits(int32_t frequency) {
    QString digits = basic::Format(frequency, "000000000");
    for (int i = 0; i < 4 && i < digits.size() && digits[i] == '0'; ++i) digits[i] = ' ';
    return digits;
}

}  // namespace

QString FormatFrequency(Core& c, int32_t frequency) {
    c.s.LastDisplayedFrequency = frequency;
    ShowTransverter(c, frequency);
    const QString d = NineDigits(frequency);
    const QString& mark = c.s.DecimalSeparator;
    return (d.left(d.size() - 5) + mark + d.mid(d.size() - 5, 3) + mark + d.right(2)).trimmed();
}

QString FormatFrequencyShort(Core& c, int32_t frequency) {
    const QString d = NineDigits(frequency);
    return (d.left(d.size() - 5) + c.s.DecimalSeparator + d.right(5)).trimmed();
}

int32_t ParseFrequency(Core& c, const QString& input, bool quiet) {
    const QString text = input.trimmed();
    auto box = [&](const QString& message) {
        c.p.dialogs->messageBox(message, "VELDOR", MsgButtons::OK, MsgIcon::None);
        return -1;
    };
    if (!basic::IsNumeric(text)) return quiet ? -1 : box("Not a numeric number");
    auto digitsOnly = [](const QString& t) {
        return std::all_of(t.begin(), t.end(), [](QChar ch) { return ch.isDigit(); });
    };
    const qsizetype mark = text.indexOf(c.s.DecimalSeparator);
    double value = 0;
    if (mark < 0) {
        value = basic::Val(text) * 100;  // kHz
    } else {
        const QString whole = text.left(mark);
        const QString fraction = text.mid(mark + 1);
        if (fraction.isEmpty() || !digitsOnly(fraction) || !digitsOnly(whole))
            return box("Error converting from string " + text);
        if (!whole.isEmpty()) value = basic::Val(whole) * 100000;
        static constexpr int kScale[] = {0, 10000, 1000, 100, 10};
        const qsizetype n = fraction.size();
        // Digits beyond the fifth are dropped, not rounded.
        value += n < 5 ? basic::Val(fraction) * kScale[n] : basic::Val(fraction.left(5));
    }
    if (value > INT32_MAX || value < INT32_MIN) return box("Error converting from string " + text);
    return basic::CLng(value);
}

QString DefaultRepeaterOffset(const Core& c, int32_t frequency) {
    const State& s = c.s;
    if (frequency >= 42000000) return s.ShiftText500;  // 70 cm: 5 MHz
    if (frequency >= 13700000) return s.ShiftText060;  // 2 m: 600 kHz
    if (frequency >= 7600000) return s.ShiftText000;   // no repeaters
    if (frequency >= 3300000) return s.ShiftText100;   // 6 m and 4 m: 1 MHz
    return s.ShiftText010;                             // 10 m: 100 kHz
}

}  // namespace veldor
