#include "protocol/tones.h"

#include <stdexcept>

#include "basic/basic.h"
#include "link/catalogue.h"
#include "link/serial_link.h"

namespace veldor {

namespace {

// The tone mode by the two switches: 0 off, 1 decoder only, 2 encoder (with or without the
// decoder). Each rig names these three its own way.
int ToneMode(const QString& encode, const QString& decode) {
    if (encode == "0" && decode == "0") return 0;
    if (decode == "1" && encode == "0") return 1;
    return 2;
}
constexpr uint8_t kBinaryToneModes[] = {0x8A, 0x2A, 0x4A};
constexpr uint8_t kFt450ToneModes[] = {0, 2, 1};

void CheckToneIndex(int index, size_t listSize) {
    if (index < 0 || static_cast<size_t>(index) >= listSize)
        throw std::out_of_range("Subscript out of range");
}

bool TargetShiftIs(const Core& c, const char* value) {
    return c.s.TargetShift == QLatin1String(value);
}

// Shift buttons: only while connected, receiving, and neither scan nor sweep runs.
void AskShift(Core& c, const char* shift) {
    const State& s = c.s;
    if (c.f.chkOnOff.value == 0 || s.Transmitting || s.SpectrumRunning || s.ScanRunning) return;
    c.s.TargetShift = shift;
    c.s.ShiftPending = true;
}

}  // namespace

void ToneValues(Core& c, const QString& code, const QString& encode, const QString& decode) {
    State& s = c.s;
    const QString& rig = s.RigType;
    const int index = basic::CInt(basic::Val(code));
    if (rig == RigFT847) {
        s.ToneByte = FT847ToneCodes().at(static_cast<size_t>(index));
        s.ToneModeByte = kBinaryToneModes[ToneMode(encode, decode)];
    } else if (IsAckFamily(rig)) {
        CheckToneIndex(index, Tones50().size());
        s.ToneByteHigh = ToneBCD().at(2 * static_cast<size_t>(index));
        s.ToneByteLow = ToneBCD().at(2 * static_cast<size_t>(index) + 1);
        s.ToneModeByte = kBinaryToneModes[ToneMode(encode, decode)];
    } else if (rig == RigFT450) {
        CheckToneIndex(index, Tones50().size());
        s.ToneByte = static_cast<uint8_t>(index);
        s.ToneModeByte = kFt450ToneModes[ToneMode(encode, decode)];
    } else if (rig == RigFT920) {
        CheckToneIndex(index, Tones39().size());
        s.ToneByte = static_cast<uint8_t>(index + 1);
    }
}

void SendToneSettings(Core& c) {
    State& s = c.s;
    const QString& rig = s.RigType;
    auto& p = s.CommandBytes;
    PutParameters(c);
    if (rig == RigFT1000MP) return;
    if (rig == RigFT847) {
        p[0] = s.ToneByte;
        SendCommand(c, 0x0B);
        p[0] = s.ToneModeByte;
        SendCommand(c, 0x0A);
    } else if (IsAckFamily(rig)) {
        p[0] = s.ToneByteHigh;
        p[1] = s.ToneByteLow;
        if (!IsFt817(rig)) {  // the FT-857 and FT-897 take the decoder's tone as well
            p[2] = s.ToneByteHigh;
            p[3] = s.ToneByteLow;
        }
        SendCommand(c, 0x0B);
        ReadResponse(c, 1);
        p[0] = s.ToneModeByte;
        SendCommand(c, 0x0A);
        ReadResponse(c, 1);
    } else if (rig == RigFT450) {
        // The rig has always been sent the tone number without a semicolon.
        SendText(c, "CN0" + basic::Format(s.ToneByte, "00"));
        SendText(c, s.ToneModeByte == 2 ? "CT01;" : "CT02;");
    } else if (rig == RigFT920) {
        if (s.ToneEncode == "1") p[3] = s.ToneByte;
        if (s.ToneDecode == "1") p[3] = p[2] = s.ToneByte;
        SendCommand(c, 0x90);
    }
    ShowToneIndicators(c);
    s.ExtraDelayNeeded = true;  // after a tone change the rig answers slowly: see ReadSignal
}

void ToneOff(Core& c) {
    State& s = c.s;
    const QString& rig = s.RigType;
    auto& p = s.CommandBytes;
    PutParameters(c);
    if (rig == RigFT1000MP) return;
    if (rig == RigFT847 || IsAckFamily(rig)) {
        p[0] = 0x8A;
        SendCommand(c, 0x0A);
        if (IsAckFamily(rig)) ReadResponse(c, 1);
    } else if (rig == RigFT450) {
        SendText(c, "CT00;");
    } else if (rig == RigFT920) {
        SendCommand(c, 0x90);  // P3 and P4 zero
    }
    ClearToneIndicators(c);
    s.ToneCode = "0";
    s.ToneEncode = "0";
    s.ToneDecode = "0";
    s.ExtraDelayNeeded = true;
}

void ShowToneIndicators(Core& c) {
    const State& s = c.s;
    Form1& f = c.f;
    f.lblEnc.backColour = s.ToneEncode == "1" ? Green : White;
    if (s.ToneDecode == "1") {
        f.lblDec.backColour = Green;
        f.lblEnc.backColour = Green;
    } else {
        f.lblDec.backColour = White;
    }
    if (s.ToneEncode == "1" || s.ToneDecode == "1") {
        const int index = basic::CInt(basic::Val(s.ToneCode));
        const QStringList& list = f.cboCTCSS.list;
        f.lblCTCSSFreq.caption = index >= 0 && index < list.size() ? list[index] : QString();
    } else {
        f.lblCTCSSFreq.caption = "Freq";
    }
}

void ClearToneIndicators(Core& c) {
    c.f.lblEnc.backColour = White;
    c.f.lblDec.backColour = White;
    c.f.lblCTCSSFreq.caption = "Freq";
}

void ApplyRepeaterShift(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    const QString& rig = s.RigType;
    auto& p = s.CommandBytes;
    s.ShiftPending = false;
    PutParameters(c);
    if ((rig == RigFT450 || rig == RigFT920) && f.txtMode.text.left(2) != "FM") return;
    if (rig == RigVR5000 || rig == RigFRG100) return;

    if (s.TargetShift != s.LastShiftSent) {
        s.LastShiftSent = s.TargetShift;
        if (TargetShiftIs(c, "0") || TargetShiftIs(c, "-") || TargetShiftIs(c, "+")) {
            f.cmdShiftSimplex.backColour = TargetShiftIs(c, "0") ? PaleGreen : ButtonFace;
            f.cmdShiftMinus.backColour = TargetShiftIs(c, "-") ? PaleGreen : ButtonFace;
            f.cmdShiftPlus.backColour = TargetShiftIs(c, "+") ? PaleGreen : ButtonFace;
        }
        const int which = TargetShiftIs(c, "0")   ? 0
                          : TargetShiftIs(c, "-") ? 1
                          : TargetShiftIs(c, "+") ? 2
                                                  : -1;
        if (rig == RigFT1000MP) return;
        if (rig == RigFT847 || IsAckFamily(rig)) {
            static constexpr uint8_t kShift[] = {0x89, 0x09, 0x49};
            if (which < 0) return;
            p[0] = kShift[which];
            SendCommand(c, 0x09);
            if (IsAckFamily(rig)) ReadResponse(c, 1);
        } else if (rig == RigFT450) {
            static constexpr const char* kShift[] = {"OS00;", "OS02;", "OS01;"};
            if (which >= 0) SendText(c, kShift[which]);
        } else if (rig == RigFT920) {
            if (which < 0) return;
            p[3] = static_cast<uint8_t>(which);
            SendCommand(c, 0x84);
        }
    }

    if (TargetShiftIs(c, "0")) return;
    if (s.TargetOffset == s.LastOffsetSent) return;
    if (rig == RigFT920) return;  // it has no offset command
    if (rig == RigFT450) {
        SendText(c, "EX050" + basic::Format(basic::Val(s.TargetOffset) / 100, "000") + ";");
    } else {
        s.OffsetValue = basic::CLng(basic::Int(basic::Val(s.TargetOffset)) * 100);
        PutBcdDigits(c, s.OffsetValue);
        SendCommand(c, 0xF9);
        if (IsAckFamily(rig)) ReadResponse(c, 1);
    }
    s.LastOffsetSent = s.TargetOffset;
}

void cmdShiftMinus_Click(Core& c) {
    AskShift(c, "-");
}
void cmdShiftPlus_Click(Core& c) {
    AskShift(c, "+");
}
void cmdShiftSimplex_Click(Core& c) {
    AskShift(c, "0");
}

}  // namespace veldor
