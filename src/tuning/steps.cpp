#include "tuning/steps.h"

#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/read_frequency.h"
#include "protocol/write_frequency.h"

#include <array>
#include <climits>
#include <cstdlib>

namespace veldor {

namespace {

struct StepRow {
    const char* label;
    int32_t step;  // 10 Hz
};
// Row 7 is labelled 6.25 kHz but steps 6.24 kHz. Deliberately kept: frequencies tuned with it
// have always been multiples of 624.
constexpr std::array<StepRow, 19> kStepRows{{{"20", 2},
                                             {"100", 10},
                                             {"200", 20},
                                             {"500", 50},
                                             {"1k", 100},
                                             {"2.5k", 250},
                                             {"5k", 500},
                                             {"6.25k", 624},
                                             {"8.33k", 833},
                                             {"9k", 900},
                                             {"10k", 1000},
                                             {"12.5k", 1250},
                                             {"15k", 1500},
                                             {"20k", 2000},
                                             {"25k", 2500},
                                             {"30k", 3000},
                                             {"50k", 5000},
                                             {"100k", 10000},
                                             {"500k", 50000}}};

constexpr int32_t kLowestKnobFrequency = 10000;  // 100 kHz
constexpr int32_t kMegahertz = 100000;
constexpr int kKnobMiddle = 16384;

// The new frequency goes to the GoTo box, and the next tick goes there.
void StepTo(Core& c, int64_t frequency) {
    State& s = c.s;
    s.TuningFrequency = static_cast<int32_t>(std::clamp<int64_t>(frequency, INT32_MIN, INT32_MAX));
    c.f.txtGoToFreq.text = WithoutSecondSeparator(FormatFrequency(c, s.TuningFrequency));
    s.StatusUpdateHeld = true;
    s.GoToPending = true;
}

void TakeStepRow(Core& c) {
    const int row = c.f.grdTuning.row;
    if (row >= 0 && row < static_cast<int>(kStepRows.size())) c.s.TuningStep = kStepRows[row].step;
}

// A megahertz up or down from the rig's frequency, sent at once; false when the result is
// outside the rig's ranges, which ends the operation.
bool MhzStep(Core& c, int32_t change) {
    State& s = c.s;
    int32_t frequency = s.CurrentFrequency + change;
    PrepareFrequency(c, frequency);
    if (s.FrequencyOutOfRange) return false;
    SendFrequencyCommand(c, frequency, false);
    // Deliberately kept: the VR-5000's channel records the tune target, not the new frequency.
    if (s.RigType == RigVR5000) {
        int32_t& channel = s.VfoAActive ? s.VR5000FrequencyMain : s.VR5000FrequencySub;
        channel = s.TargetFrequency;
    }
    c.f.txtVfoA.text = FormatFrequency(c, s.CurrentFrequency);
    // The spectrum's frequency box follows here, less its second separator, with the sweep.
    s.TuningFrequency = s.CurrentFrequency;
    return true;
}

}  // namespace

QString WithoutSecondSeparator(const QString& displayText) {
    return displayText.left(displayText.size() - 3) + displayText.right(2);
}

void FillTuningSteps(Core& c) {
    QStringList rows;
    for (const StepRow& r : kStepRows) rows << r.label;
    c.f.grdTuning.rows = rows;
    c.s.KnobValue = c.f.VScroll1.value;
}

void TuneDown(Core& c) {
    const int64_t step = c.s.TuningStep;
    const int64_t frequency = (c.s.TuningFrequency - step) / step * step;
    StepTo(c, std::max<int64_t>(frequency, kLowestKnobFrequency));
}

void TuneUp(Core& c) {
    const int64_t step = c.s.TuningStep;
    StepTo(c, (c.s.TuningFrequency + step) / step * step);
}

void grdTuning_Click(Core& c) {
    TakeStepRow(c);
}

void grdTuning_RowColChange(Core& c) {
    TakeStepRow(c);
}

void grdTuning_KeyDown(Core& c, int keyCode) {
    if (keyCode == 37) TuneDown(c);
    if (keyCode == 39) TuneUp(c);
}

void grdTuning_KeyUp(Core& c) {
    c.s.StatusUpdateHeld = false;
}

void VScroll1_Change(Core& c) {
    State& s = c.s;
    Slider& knob = c.f.VScroll1;
    s.KnobTuning = true;
    if (knob.value < s.KnobValue)
        TuneUp(c);
    else
        TuneDown(c);
    // At either end the knob goes back to the middle, so that it always turns both ways.
    if (knob.value <= knob.min || knob.value >= knob.max) knob.value = kKnobMiddle;
    s.KnobValue = knob.value;
}

void KnobWheel(Core& c, int notches) {
    Slider& knob = c.f.VScroll1;
    const int towardsTop = notches > 0 ? 1 : -1;
    for (int i = 0; i < std::abs(notches); ++i) {
        knob.value = std::clamp(knob.value - towardsTop, knob.min, knob.max);
        VScroll1_Change(c);
    }
}

void cmdMhzPlus_Click(Core& c) {
    c.s.MhzPlusPending = true;
}

void cmdMhzMinus_Click(Core& c) {
    c.s.MhzMinusPending = true;
}

void ApplyMhzStep(Core& c) {
    State& s = c.s;
    // Both at once is plus, then minus; a plus out of range leaves the minus waiting.
    if (s.MhzPlusPending) {
        s.MhzPlusPending = false;
        if (!MhzStep(c, kMegahertz)) return;
    }
    if (s.MhzMinusPending) {
        s.MhzMinusPending = false;
        MhzStep(c, -kMegahertz);
    }
}

}  // namespace veldor
