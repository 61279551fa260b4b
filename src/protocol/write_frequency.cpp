#include "protocol/write_frequency.h"

#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/read_frequency.h"
#include "protocol/tones.h"
#include "protocol/vr5000_steps.h"

namespace veldor {

namespace {

constexpr int kNone = -1;

// Mode command codes of the binary rigs, by mode name.
struct BinaryModeCode {
    const char* mode;
    int ft817;  // FT-817, FT-817ND
    int ft857;  // FT-857(D), FT-897(D)
    int ft847;
};
constexpr BinaryModeCode kBinaryModes[] = {
    {"LSB", 0x00, 0x00, 0x00},  {"PKTL", 0x00, 0x00, 0x00}, {"USB", 0x01, 0x01, 0x01},
    {"RTYU", 0x01, 0x01, 0x01}, {"CW", 0x02, 0x02, 0x02},   {"CWR", 0x03, 0x03, 0x03},
    {"AM", 0x04, 0x04, 0x04},   {"AMS", 0x04, 0x04, 0x04},  {"WAM", 0x04, 0x04, 0x04},
    {"FM", 0x08, 0x08, 0x08},   {"WFM", 0x08, 0x08, 0x08},  {"CWN", 0x02, 0x02, 0x82},
    {"CWRN", 0x03, 0x03, 0x83}, {"AMN", 0x04, 0x04, 0x84},  {"FMN", 0x08, 0x88, 0x88},
    {"DIG", 0x0A, 0x0A, 0x00},  {"RTYL", 0x0A, 0x0A, 0x00}, {"PKT", 0x0C, 0x0C, 0x08},
    {"PKTF", 0x0C, 0x0C, 0x08},
};

// The FT-450's mode texts. "USRL" goes without its semicolon here (the mode button sends it
// with one): the rig has always been sent it so.
struct TextModeCode {
    const char* mode;
    const char* text;
};
constexpr TextModeCode kFt450Modes[] = {
    {"LSB", "MD01;"},  {"PKTL", "MD01;"}, {"USB", "MD02;"},  {"CW", "MD03;"},   {"CWN", "MD03;"},
    {"FM", "MD04;"},   {"AM", "MD05;"},   {"AMN", "MD05;"},  {"AMS", "MD05;"},  {"WAM", "MD05;"},
    {"DIG", "MD06;"},  {"RTYL", "MD06;"}, {"CWR", "MD07;"},  {"CWRN", "MD07;"}, {"USRL", "MD08"},
    {"RTYU", "MD09;"}, {"FMN", "MD0B;"},  {"USRU", "MD0C;"},
};

// P4 of opcode 0C.
struct BlockModeCode {
    const char* mode;
    int frg100, ft1000mp, ft920;
};
constexpr BlockModeCode kBlockModes[] = {
    {"LSB", 0x00, 0x00, 0x00},  {"USB", 0x01, 0x01, 0x01},  {"CW", 0x02, 0x02, 0x02},
    {"CWR", 0x02, 0x03, 0x03},  {"CWN", 0x03, 0x02, 0x02},  {"CWRN", 0x03, 0x03, 0x03},
    {"AM", 0x04, 0x04, 0x04},   {"WAM", 0x04, 0x04, 0x04},  {"AMN", 0x05, 0x04, 0x04},
    {"AMS", 0x04, 0x05, 0x04},  {"FM", 0x06, 0x06, 0x06},   {"FMN", 0x06, 0x06, 0x07},
    {"WFM", 0x06, 0x07, 0x06},  {"DIG", 0x00, 0x08, 0x09},  {"RTYL", 0x00, 0x08, 0x09},
    {"RTYU", 0x01, 0x09, 0x0A}, {"PKTL", 0x00, 0x0A, 0x00}, {"PKT", 0x06, 0x0B, 0x0B},
    {"PKTF", 0x06, 0x0B, 0x0B},
};

// The VR-5000's mode byte, the stored step code and size of its mode group, and the letter
// of the frequency-and-mode text.
struct Vr5000Mode {
    const char* mode;
    uint8_t p1;
    int State::*stepCode;
    int State::*stepSize;
    const char* letter;
};
constexpr Vr5000Mode kVr5000Modes[] = {
    {"LSB", 0x00, &State::StepLSB, &State::MouseLSB, "l"},
    {"RTYL", 0x00, &State::StepLSB, &State::MouseLSB, "l"},
    {"PKTL", 0x00, &State::StepLSB, &State::MouseLSB, "l"},
    {"DIG", 0x00, &State::StepLSB, &State::MouseLSB, "l"},
    {"USB", 0x01, &State::StepUSB, &State::MouseUSB, "u"},
    {"RTYU", 0x01, &State::StepUSB, &State::MouseUSB, "u"},
    {"CW", 0x02, &State::StepCW, &State::MouseCW, "c"},
    {"CWR", 0x02, &State::StepCW, &State::MouseCW, "c"},
    {"CWRN", 0x02, &State::StepCW, &State::MouseCW, "c"},
    {"CWN", 0x02, &State::StepCW, &State::MouseCW, "c"},
    {"AM", 0x04, &State::StepAM, &State::MouseAM, "a"},
    {"AMS", 0x04, &State::StepAM, &State::MouseAM, "a"},
    {"WAM", 0x44, &State::StepWAM, &State::MouseWAM, "a"},
    {"AMN", 0x84, &State::StepAMN, &State::MouseAMN, "a"},
    {"WFM", 0x48, &State::StepWFM, &State::MouseWFM, "w"},
    {"FM", 0x88, &State::StepFMN, &State::MouseFMN, "f"},
    {"FMN", 0x88, &State::StepFMN, &State::MouseFMN, "f"},
    {"PKT", 0x88, &State::StepFMN, &State::MouseFMN, "f"},
    {"PKTF", 0x88, &State::StepFMN, &State::MouseFMN, "f"},
};

template <typename Row, size_t N>
const Row* FindMode(const Row (&table)[N], const QString& mode) {
    for (const Row& row : table)
        if (mode == QLatin1String(row.mode)) return &row;
    return nullptr;
}

// The nearest mode by rig; nullptr means the same name.
struct NearestMode {
    const char* mode;
    // FT817 family, FT857/897 families, FT847, FT450, FT920, FT1000MP, FRG100, VR5000.
    const char* byRig[8];
};
constexpr NearestMode kNearest[] = {
    {"WAM", {"AM", "AM", "AM", "AM", "AM", "AM", "AM", nullptr}},
    {"WFM", {"FM", "FM", "FM", "FM", "FM", nullptr, "FM", nullptr}},
    {"AMN", {"AM", "AM", nullptr, "AM", "AM", "AM", nullptr, nullptr}},
    {"FMN", {"FM", nullptr, nullptr, nullptr, nullptr, "FM", "FM", nullptr}},
    {"FM", {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, "FMN"}},
    {"CWR", {nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, "CW", "CW"}},
    {"DIG", {nullptr, nullptr, "LSB", "RTYL", "RTYL", "LSB", "LSB", "LSB"}},
    {"PKT", {nullptr, nullptr, "FM", "FM", "PKTF", "PKTF", "FM", "FMN"}},
    {"CWN", {"CW", "CW", nullptr, "CW", "CW", "CW", nullptr, "CW"}},
    {"CWRN", {"CWR", "CWR", nullptr, "CWR", "CWR", "CWR", "CW", "CW"}},
    {"AMS", {"AM", "AM", "AM", "AM", "AM", nullptr, "AM", "AM"}},
    {"PKTF", {"PKT", "PKT", "FM", "FM", nullptr, nullptr, "FM", "FMN"}},
    {"PKTL", {"LSB", "LSB", "LSB", "RTYL", "LSB", nullptr, "LSB", "LSB"}},
    {"RTYL", {"LSB", "LSB", "LSB", nullptr, nullptr, nullptr, "LSB", "LSB"}},
    {"USRL", {"LSB", "LSB", "LSB", nullptr, nullptr, nullptr, "LSB", "LSB"}},
    {"RTYU", {"USB", "USB", "USB", nullptr, nullptr, nullptr, "USB", "USB"}},
    {"USRU", {"USB", "USB", "USB", nullptr, nullptr, nullptr, "USB", "USB"}},
};

int NearestColumn(const QString& rig) {
    if (IsFt817(rig)) return 0;
    if (IsFt857(rig) || IsFt897(rig)) return 1;
    if (rig == RigFT847) return 2;
    if (rig == RigFT450) return 3;
    if (rig == RigFT920) return 4;
    if (rig == RigFT1000MP) return 5;
    if (rig == RigFRG100) return 6;
    if (rig == RigVR5000) return 7;
    return kNone;
}

bool IsBlockRig(const QString& rig) {
    return rig == RigFRG100 || rig == RigFT1000MP || rig == RigFT920;
}

int BlockCode(const BlockModeCode& row, const QString& rig) {
    if (rig == RigFRG100) return row.frg100;
    if (rig == RigFT1000MP) return row.ft1000mp;
    return row.ft920;
}

int BinaryCode(const BinaryModeCode& row, const QString& rig) {
    if (IsFt817(rig)) return row.ft817;
    if (rig == RigFT847) return row.ft847;
    return row.ft857;
}

// Step 5 of the write: the mode command of the rig.
void SendMode(Core& c, const QString& mode) {
    State& s = c.s;
    const QString& rig = s.RigType;
    auto& p = s.CommandBytes;
    if (IsAckFamily(rig) || rig == RigFT847) {
        if (const BinaryModeCode* row = FindMode(kBinaryModes, mode)) {
            p[0] = static_cast<uint8_t>(BinaryCode(*row, rig));
            SendCommand(c, 0x07);
        }
        if (IsAckFamily(rig)) ReadResponse(c, 1);
    } else if (rig == RigFT450) {
        if (const TextModeCode* row = FindMode(kFt450Modes, mode)) SendText(c, row->text);
    } else if (IsBlockRig(rig)) {
        if (const BlockModeCode* row = FindMode(kBlockModes, mode)) {
            p[3] = static_cast<uint8_t>(BlockCode(*row, rig));
            SendCommand(c, 0x0C);
        }
    } else if (rig == RigVR5000) {
        if (const Vr5000Mode* row = FindMode(kVr5000Modes, mode)) {
            p[0] = row->p1;
            p[1] = static_cast<uint8_t>(s.*(row->stepCode));
            s.VR5000Step = s.*(row->stepSize);
            s.VR5000ModeLetter = row->letter;
        }
        if (!mode.isEmpty()) {
            if (s.VfoAActive) {
                SendCommand(c, 0x07);
                s.VR5000ModeMain = s.VR5000ModeLetter;
            } else {
                SendCommand(c, 0x37);
                s.VR5000ModeSub = s.VR5000ModeLetter;
            }
        }
        s.CurrentMode = mode.trimmed();
    }
}

void WriteFrequency(Core& c, int32_t& frequency, QString* mode) {
    State& s = c.s;
    const QString& rig = s.RigType;
    PutParameters(c);
    if (mode) {
        *mode = ModeForRig(c, *mode);
        if (*mode != s.LastModeSent) {
            s.LastModeSent = *mode;
            SendMode(c, *mode);
        }
        c.f.txtMode.text = mode->trimmed();
        if (rig == RigVR5000) ShowVR5000Steps(c);
    }

    // A tone goes on before the frequency changes, unless the decoder was on already; it
    // always goes off after the change. A frequency alone (a scan or sweep step) sends none.
    bool lateTone = false;
    bool toneOffAfter = false;
    if (mode && rig != RigFRG100 && rig != RigVR5000 && rig != RigFT1000MP) {
        const QString toneState = s.ToneCode + s.ToneEncode + s.ToneDecode;
        if (toneState != s.LastToneState) {
            lateTone = s.LastToneState.endsWith('1');
            s.LastToneState = toneState;
            if (s.ToneEncode != "1" && s.ToneDecode != "1") {
                toneOffAfter = true;
            } else if (!lateTone) {
                ToneValues(c, s.ToneCode, s.ToneEncode, s.ToneDecode);
                SendToneSettings(c);
            }
        }
    }

    PrepareFrequency(c, frequency);
    if (s.FrequencyOutOfRange) return;
    SendFrequencyCommand(c, frequency);
    if (toneOffAfter) ToneOff(c);
    if (lateTone && (s.ToneEncode == "1" || s.ToneDecode == "1")) {
        ToneValues(c, s.ToneCode, s.ToneEncode, s.ToneDecode);
        SendToneSettings(c);
    }
}

// What a mode button sends: a code (or text for the FT-450) and the mode it shows.
struct ButtonAction {
    int code;  // kNone: nothing is sent
    const char* text;
    const char* mode;
};
constexpr ButtonAction N{kNone, nullptr, nullptr};
using ButtonRow = std::array<ButtonAction, 12>;

// The FT-8 family: P1 of opcode 07. The FT-847 has the first six (its member 6 is its narrow
// button, handled apart), the FT-817 the first eight, the FT-857 and FT-897 all nine.
constexpr ButtonRow kFt8Buttons = {{{0x00, nullptr, "LSB"},
                                    {0x01, nullptr, "USB"},
                                    {0x02, nullptr, "CW"},
                                    {0x08, nullptr, "FM"},
                                    {0x04, nullptr, "AM"},
                                    {0x03, nullptr, "CWR"},
                                    {0x0A, nullptr, "DIG"},
                                    {0x0C, nullptr, "PKT"},
                                    {0x88, nullptr, "FMN"},
                                    N,
                                    N,
                                    N}};
constexpr ButtonRow kFt450Buttons = {{{0, "MD01;", "LSB"},
                                      {0, "MD02;", "USB"},
                                      {0, "MD03;", "CW"},
                                      {0, "MD04;", "FM"},
                                      {0, "MD05;", "AM"},
                                      {0, "MD06;", "RTYL"},
                                      {0, "MD07;", "CWR"},
                                      {0, "MD08;", "USRL"},
                                      {0, "MD09;", "RTYU"},
                                      {0, "MD0B;", "FMN"},
                                      {0, "MD0C;", "USRU"},
                                      N}};
// P4 of opcode 0C. Member 6 of the FT-920 is its wide/narrow button, handled apart.
constexpr ButtonRow kFrg100Buttons = {{{0x00, nullptr, "LSB"},
                                       {0x01, nullptr, "USB"},
                                       {0x02, nullptr, "CW"},
                                       {0x06, nullptr, "FM"},
                                       {0x04, nullptr, "AM"},
                                       {0x03, nullptr, "CWN"},
                                       {0x05, nullptr, "AMN"},
                                       N,
                                       N,
                                       N,
                                       N,
                                       N}};
constexpr ButtonRow kFt1000mpButtons = {{{0x00, nullptr, "LSB"},
                                         {0x01, nullptr, "USB"},
                                         {0x02, nullptr, "CW"},
                                         {0x06, nullptr, "FM"},
                                         {0x04, nullptr, "AM"},
                                         {0x03, nullptr, "CWR"},
                                         N,
                                         {0x0A, nullptr, "PKTL"},
                                         {0x0B, nullptr, "PKTF"},
                                         {0x09, nullptr, "RTYU"},
                                         {0x08, nullptr, "RTYL"},
                                         {0x05, nullptr, "AMS"}}};
constexpr ButtonRow kFt920Buttons = {{{0x00, nullptr, "LSB"},
                                      {0x01, nullptr, "USB"},
                                      {0x02, nullptr, "CW"},
                                      {0x03, nullptr, "CWR"},
                                      {0x06, nullptr, "FM"},
                                      {0x07, nullptr, "FMN"},
                                      N,
                                      {0x04, nullptr, "AM"},
                                      {0x0B, nullptr, "PKTF"},
                                      {0x0A, nullptr, "RTYU"},
                                      {0x09, nullptr, "RTYL"},
                                      N}};
// The VR-5000's buttons name a mode; its bytes come from the mode table.
constexpr const char* kVr5000Buttons[12] = {"LSB",   "WAM", "AM",  "WFM", nullptr, nullptr,
                                            nullptr, "USB", "AMN", "CW",  "FMN",   nullptr};

// The rig's buttons, and how many of them it has.
std::pair<const ButtonRow*, int> ButtonsOf(const QString& rig) {
    if (rig == RigFT847) return {&kFt8Buttons, 6};
    if (IsFt817(rig)) return {&kFt8Buttons, 8};
    if (IsFt857(rig) || IsFt897(rig)) return {&kFt8Buttons, 9};
    if (rig == RigFT450) return {&kFt450Buttons, 12};
    if (rig == RigFRG100) return {&kFrg100Buttons, 12};
    if (rig == RigFT1000MP) return {&kFt1000mpButtons, 12};
    if (rig == RigFT920) return {&kFt920Buttons, 12};
    return {nullptr, 0};
}

}  // namespace

QStringList ButtonModes(const QString& rig) {
    QStringList modes;
    if (rig == RigVR5000) {
        for (const char* mode : kVr5000Buttons)
            if (mode) modes << mode;
        return modes;
    }
    const auto [row, count] = ButtonsOf(rig);
    for (int i = 0; row && i < count; ++i)
        if ((*row)[i].mode) modes << (*row)[i].mode;
    return modes;
}

namespace {

// The FT-847's narrow button: the narrow form of the mode shown.
void Ft847Narrow(Core& c) {
    static constexpr struct {
        const char* wide;
        const char* narrow;
        uint8_t code;
    } kNarrow[] = {
        {"CW", "CWN", 0x82}, {"CWR", "CWRN", 0x83}, {"AM", "AMN", 0x84}, {"FM", "FMN", 0x88}};
    QString& shown = c.f.txtMode.text;
    for (const auto& n : kNarrow) {
        if (shown != QLatin1String(n.wide) && shown != QLatin1String(n.narrow)) continue;
        c.s.CommandBytes[0] = n.code;
        SendCommand(c, 0x07);
        shown = n.narrow;
        return;
    }
}

void ApplyVr5000Button(Core& c, int index) {
    State& s = c.s;
    const char* name = index >= 0 && index < 12 ? kVr5000Buttons[index] : nullptr;
    if (!name) return;
    const Vr5000Mode* row = FindMode(kVr5000Modes, name);
    s.CommandBytes[0] = row->p1;
    s.CommandBytes[1] = static_cast<uint8_t>(s.*(row->stepCode));
    c.f.txtMode.text = name;
    s.VR5000ModeLetter = row->letter;
    ShowVR5000Steps(c);
    if (s.VfoAActive) {
        SendCommand(c, 0x07);
        s.VR5000ModeMain = c.f.txtMode.text;
    } else {
        SendCommand(c, 0x37);
        s.VR5000ModeSub = c.f.txtMode.text;
    }
    s.CurrentMode = c.f.txtMode.text;
    s.LastModeSent = c.f.txtMode.text;
    SaveVR5000LastFreqMode(c, c.f.txtVfoA.text);
}

}  // namespace

void SendFrequencyCommand(Core& c, int32_t frequency, bool rememberVr5000Channel) {
    State& s = c.s;
    const QString& rig = s.RigType;
    if (IsAckFamily(rig) || rig == RigFT847) {
        SendCommand(c, 0x01);
        if (IsAckFamily(rig)) ReadResponse(c, 1);
    } else if (rig == RigFT450) {
        SendText(c, "F" + s.VfoLetter + s.FrequencyDigits + ";");
    } else if (rig == RigFRG100) {
        SendCommand(c, 0x0A);
    } else if (rig == RigFT1000MP || rig == RigFT920) {
        SendCommand(c, s.VfoAActive ? 0x0A : 0x8A);
    } else if (rig == RigVR5000) {
        if (s.VfoAActive) {
            SendCommand(c, 0x01);
            s.VR5000FrequencyMain = frequency;
        } else {
            SendCommand(c, 0x31);
            s.VR5000FrequencySub = frequency;
        }
        c.f.txtVfoA.text = FormatFrequency(c, frequency);
        s.DisplayFrequency = c.f.txtVfoA.text;
        if (rememberVr5000Channel) SaveVR5000LastFreqMode(c, c.f.txtVfoA.text);
    }
}

bool ModeHasCommand(const QString& rig, const QString& mode) {
    if (IsAckFamily(rig) || rig == RigFT847) return FindMode(kBinaryModes, mode) != nullptr;
    if (rig == RigFT450) return FindMode(kFt450Modes, mode) != nullptr;
    if (IsBlockRig(rig)) return FindMode(kBlockModes, mode) != nullptr;
    if (rig == RigVR5000) return FindMode(kVr5000Modes, mode) != nullptr;
    return false;
}

QString ModeForRig(const Core& c, const QString& mode) {
    const int column = NearestColumn(c.s.RigType);
    if (column == kNone) return mode;
    for (const NearestMode& row : kNearest) {
        if (mode != QLatin1String(row.mode)) continue;
        return row.byRig[column] ? QString(row.byRig[column]) : mode;
    }
    return mode;
}

void SetFrequencyAndMode(Core& c, int32_t& frequency, QString& mode) {
    WriteFrequency(c, frequency, &mode);
}

void SetFrequency(Core& c, int32_t& frequency) {
    WriteFrequency(c, frequency, nullptr);
}

void Command2_Click(Core& c, int index) {
    if (c.f.chkOnOff.value == 0) return;
    c.s.ModeButtonPending = true;
    c.s.ModeButtonIndex = index;
}

void ApplyModeButton(Core& c) {
    State& s = c.s;
    s.ModeButtonPending = false;
    if (s.Transmitting) return;  // the click is lost
    PutParameters(c);
    const QString& rig = s.RigType;
    const int index = s.ModeButtonIndex;
    if (rig == RigVR5000) return ApplyVr5000Button(c, index);

    const auto [row, count] = ButtonsOf(rig);
    const bool inRow = row && index >= 0 && index < count;
    if (rig == RigFT847 && index == 6) {
        Ft847Narrow(c);
    } else if (rig == RigFT920 && index == 6) {
        // The label's colour is tested against the "on" value -1, which no colour has.
        s.CommandBytes[3] = static_cast<int32_t>(c.f.lblNarrow.backColour) == -1 ? 0x01 : 0x02;
        SendCommand(c, 0x8C);
    } else if (inRow && (*row)[index].mode) {
        const ButtonAction& a = (*row)[index];
        if (rig == RigFT450) {
            SendText(c, a.text);
        } else if (IsBlockRig(rig)) {
            s.CommandBytes[3] = static_cast<uint8_t>(a.code);
            SendCommand(c, 0x0C);
        } else {
            s.CommandBytes[0] = static_cast<uint8_t>(a.code);
            SendCommand(c, 0x07);
        }
        c.f.txtMode.text = a.mode;
    }
    if (IsAckFamily(rig)) ReadResponse(c, 1);
    s.LastModeSent = c.f.txtMode.text;
}

void SaveVR5000LastFreqMode(Core& c, const QString& frequencyText) {
    State& s = c.s;
    s.VR5000LastFreqMode =
        frequencyText.left(frequencyText.size() - 3) + s.VR5000ModeLetter + frequencyText.right(2);
    SaveSetting(c, s.AppName, "Settings", "VR5000LastFreqMode", s.VR5000LastFreqMode);
}

}  // namespace veldor
