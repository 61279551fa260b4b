#include "tuning/bands.h"

#include "protocol/model_controls.h"
#include "protocol/read_frequency.h"

namespace veldor {

namespace {

// The seven fields of a row and the suffixes of their keys.
struct BandField {
    const char* suffix;
    std::array<QString, 13> State::*values;
};
constexpr BandField kFields[7] = {
    {"Name", &State::BandName},
    {"Freq", &State::BandFreq},
    {"Mode", &State::BandMode},
    {"CTCSS", &State::BandCTCSS},
    {"EncDec", &State::BandEncDec},
    {"Shift", &State::BandShift},
    {"RepeaterOffset", &State::BandRepeaterOffset},
};

// The rows before the operator edits them, field by field as above.
constexpr const char* kBandDefaults[13][7] = {
    {"1.8", "1.825", "LSB", "0", "00", "0", "600"},
    {"3.5", "3.600", "LSB", "0", "00", "0", "600"},
    {"7", "7.050", "LSB", "0", "00", "0", "600"},
    {"10", "10.110", "USB", "0", "00", "0", "600"},
    {"14", "14.200", "USB", "0", "00", "0", "600"},
    {"18", "18.120", "USB", "0", "00", "0", "600"},
    {"21", "21.200", "USB", "0", "00", "0", "600"},
    {"24", "24.940", "USB", "0", "00", "0", "600"},
    {"28", "28.500", "USB", "0", "00", "0", "100"},
    {"50", "51.410", "FM", "0", "00", "0", "1000"},
    {"70", "70.200", "USB", "0", "00", "0", "600"},
    {"145", "145.575", "FM", "0", "00", "0", "600"},
    {"433", "433.425", "FM", "0", "00", "0", "600"},
};

QString BandKey(int row, const char* suffix) {
    return "Band" + QString::number(row + 1).trimmed() + suffix;
}

}  // namespace

void LoadBands(Core& c) {
    State& s = c.s;
    for (int row = 0; row < 13; ++row) {
        for (int f = 0; f < 7; ++f) {
            (s.*(kFields[f].values))[row] = GetSetting(
                c, s.AppName, "Bands", BandKey(row, kFields[f].suffix), kBandDefaults[row][f]);
        }
        s.BandFreq[row].replace(".", s.DecimalSeparator);
    }
}

void SaveBands(Core& c) {
    State& s = c.s;
    for (int row = 0; row < 13; ++row)
        for (const BandField& field : kFields)
            SaveSetting(c, s.AppName, "Bands", BandKey(row, field.suffix),
                        (s.*(field.values))[row]);
}

void ShowBandCaptions(Core& c) {
    for (int i = 0; i < 13; ++i) c.f.cmdBand[i].caption = c.s.BandName[i];
}

void cmdBand_Click(Core& c, int index) {
    State& s = c.s;
    if (c.f.chkOnOff.value == 0 || Busy(s) || index < 0 || index > 12) return;
    s.TargetFrequency = ParseFrequency(c, s.BandFreq[index]);
    s.TargetMode = s.BandMode[index];
    s.TargetShift = s.BandShift[index];
    s.TargetOffset = s.BandRepeaterOffset[index];
    s.ToneCode = s.BandCTCSS[index];
    s.ToneEncode = s.BandEncDec[index].left(1);
    s.ToneDecode = s.BandEncDec[index].right(1);
    // The next write sends shift, offset and tone whatever was sent before.
    s.LastShiftSent.clear();
    s.LastOffsetSent.clear();
    s.LastToneState.clear();
    s.FrequencyChangePending = true;
}

}  // namespace veldor
