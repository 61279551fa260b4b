#include "tuning/vr5000_steps.h"

#include "protocol/vr5000_steps.h"

#include <span>

namespace veldor {

namespace {

// Where a group's click keeps its step, by the mode in txtMode (nullptr: any mode), and the
// mode button the tick resends. "AM" and "WAM" save their size under MouseAMN, so that
// MouseAM and MouseWAM are read at start and never written: kept as the store has always
// had it.
struct StepKeys {
    const char* mode;
    int State::*code;
    int State::*size;
    const char* codeKey;
    const char* sizeKey;
    int modeButton;
};
constexpr StepKeys kLsbUsbKeys[] = {
    {"LSB", &State::StepLSB, &State::MouseLSB, "StepLSB", "MouseLSB", 0},
    {"USB", &State::StepUSB, &State::MouseUSB, "StepUSB", "MouseUSB", 7},
    {"CW", &State::StepCW, &State::MouseCW, "StepCW", "MouseCW", 9}};
constexpr StepKeys kAmKeys[] = {
    {"AM", &State::StepAM, &State::MouseAM, "StepAM", "MouseAMN", 2},
    {"AMN", &State::StepAMN, &State::MouseAMN, "StepAMN", "MouseAMN", 8},
    {"WAM", &State::StepWAM, &State::MouseWAM, "StepWAM", "MouseAMN", 1}};
constexpr StepKeys kFmnKeys[] = {
    {nullptr, &State::StepFMN, &State::MouseFMN, "StepFMN", "MouseFMN", 10}};
constexpr StepKeys kWfmKeys[] = {
    {nullptr, &State::StepWFM, &State::MouseWFM, "StepWFM", "MouseWFM", 3}};

template <size_t N>
void StepClick(Core& c, int index, const std::array<StepOption, N>& options,
               std::span<const StepKeys> keys) {
    State& s = c.s;
    if (s.StepOptionsLocked) return;
    if (index < 0 || index >= static_cast<int>(N)) return;
    const QString mode = c.f.txtMode.text.toUpper().trimmed();
    const StepOption& option = options[static_cast<size_t>(index)];
    for (const StepKeys& k : keys) {
        if (k.mode && mode != QLatin1String(k.mode)) continue;
        s.*(k.code) = option.code;
        s.VR5000Step = option.size;
        s.*(k.size) = option.size;
        SaveSetting(c, s.AppName, "Settings", k.codeKey, QString::number(option.code));
        SaveSetting(c, s.AppName, "Settings", k.sizeKey, QString::number(option.size));
        s.ModeButtonIndex = k.modeButton;
        break;
    }
    // Another mode changes nothing, and the mode is still sent again.
    s.ModeButtonPending = true;
}

}  // namespace

void optLSBUSB_Click(Core& c, int index) {
    StepClick(c, index, kStepsLsbUsb, kLsbUsbKeys);
}

void optAM_Click(Core& c, int index) {
    StepClick(c, index, kStepsAm, kAmKeys);
}

void optFMN_Click(Core& c, int index) {
    StepClick(c, index, kStepsFmn, kFmnKeys);
}

void optWFM_Click(Core& c, int index) {
    StepClick(c, index, kStepsWfm, kWfmKeys);
}

}  // namespace veldor
