#include "protocol/vr5000_steps.h"

namespace veldor {

namespace {

// Marks the option of the stored code and takes its size; a code not in the group leaves the
// options and the step as they were.
template <size_t N>
void MarkStep(Core& c, std::array<OptionButton, N>& options, const std::array<StepOption, N>& table,
              int State::*code, int State::*size) {
    for (size_t i = 0; i < N; ++i) {
        if (table[i].code != c.s.*code) continue;
        for (size_t j = 0; j < N; ++j) options[j].value = j == i;
        c.s.VR5000Step = table[i].size;
        c.s.*size = table[i].size;
        return;
    }
}

}  // namespace

void ShowVR5000Steps(Core& c) {
    State& s = c.s;
    Form1& f = c.f;
    const QString mode = f.txtMode.text;
    if (mode == s.LastStepMode) return;
    s.LastStepMode = mode;
    s.StepOptionsLocked = true;
    const bool lsb = mode == "LSB" || mode == "USB" || mode == "CW";
    const bool am = mode == "AM" || mode == "AMN" || mode == "WAM";
    const bool fmn = mode == "FMN" || mode == "FM";
    const bool wfm = mode == "WFM";
    f.frmVR5000LSB.visible = lsb;
    f.frmVR5000AM.visible = am;
    f.frmVR5000FMN.visible = fmn;
    f.frmVR5000WFM.visible = wfm;
    if (mode == "LSB") MarkStep(c, f.optLSBUSB, kStepsLsbUsb, &State::StepLSB, &State::MouseLSB);
    if (mode == "USB") MarkStep(c, f.optLSBUSB, kStepsLsbUsb, &State::StepUSB, &State::MouseUSB);
    if (mode == "CW") MarkStep(c, f.optLSBUSB, kStepsLsbUsb, &State::StepCW, &State::MouseCW);
    if (mode == "AM") MarkStep(c, f.optAM, kStepsAm, &State::StepAM, &State::MouseAM);
    if (mode == "AMN") MarkStep(c, f.optAM, kStepsAm, &State::StepAMN, &State::MouseAMN);
    if (mode == "WAM") MarkStep(c, f.optAM, kStepsAm, &State::StepWAM, &State::MouseWAM);
    if (fmn) MarkStep(c, f.optFMN, kStepsFmn, &State::StepFMN, &State::MouseFMN);
    if (wfm) MarkStep(c, f.optWFM, kStepsWfm, &State::StepWFM, &State::MouseWFM);
    s.StepOptionsLocked = false;
}

}  // namespace veldor
