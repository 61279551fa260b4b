// The controls of each rig model: feature buttons kept in the rig's memory, filters, tuner,
// split and VFO buttons, and the FT-450's functions. Each click only raises its request; the
// poll tick runs the operation, which clears the request and sends.
#pragma once

#include "link/core.h"

namespace veldor {

// A long job that a tuning request must not break into: transmitting, scanning, sweeping.
bool Busy(const State& s);

// Writes two bytes of the rig's memory (FT-817, FT-857, FT-897); the caller reads the
// acknowledgement.
void WriteEeprom(Core& c, uint16_t address, uint8_t first, uint8_t second);

// FT-857 and FT-897 features, changed by read, modify and write of their memory byte.
void ToggleProcessor(Core& c);
void ToggleNoiseBlanker(Core& c);
void ToggleDNF(Core& c);
void ToggleDNR(Core& c);
void ToggleDBF(Core& c);
void ToggleLock(Core& c);
void ToggleFast(Core& c);
void SetFt817Agc(Core& c);

void SetFilter455(Core& c);
void SetFilter82(Core& c);
void ToggleFt920Tuner(Core& c);
void StartFt920Tune(Core& c);
void SetSplit(Core& c);
void ToggleVfo(Core& c);
void VfoBOff(Core& c);
void VfoEqual(Core& c);
// Puts the rig on the VFO named by VfoRequest; false when a read timed out.
bool SelectVfo(Core& c);

// FT-450 functions and the DSP panel's requests.
void Ft450Tune(Core& c);
void Ft450VfoMemory(Core& c);
void Ft450Attenuator(Core& c);
void Ft450Ipo(Core& c);
void Ft450Agc(Core& c);
// The member of lbl450AGC whose command sets the AGC value the FT-450 reports ("GT0" + value):
// 0 Auto (4), 1 Slow (2), 2 Fast (1), 3 Off (0); -1 for any other value.
int Ft450AgcMember(const QString& value);
void Ft450Tuner(Core& c);
void Ft450SqlMode(Core& c);
void Ft450NoiseBlanker(Core& c);
void Ft450NoiseReduction(Core& c);
void Ft450Notch(Core& c);
void Ft450NoiseReductionLevel(Core& c);
void Ft450NotchFrequency(Core& c);
void Ft450AfGain(Core& c);
void Ft450RfGain(Core& c);
void Ft450Filter(Core& c);
void Ft450Contour(Core& c);
void Ft450ContourFrequency(Core& c);

// Click handlers.
void cmdFT857Processor_Click(Core& c);
void cmdFT857NoiseBlanker_Click(Core& c);
void cmdFT857DNF_Click(Core& c);
void cmdFT857DNR_Click(Core& c);
void cmdFT857DBF_Click(Core& c);
void cmdFT857Lock_Click(Core& c);
void cmdFT857Fast_Click(Core& c);
// The FT-897's buttons raise the same requests as the FT-857's.
inline constexpr auto& cmdFT897Processor_Click = cmdFT857Processor_Click;
inline constexpr auto& cmdFT897NoiseBlanker_Click = cmdFT857NoiseBlanker_Click;
inline constexpr auto& cmdFT897DNF_Click = cmdFT857DNF_Click;
inline constexpr auto& cmdFT897DNR_Click = cmdFT857DNR_Click;
inline constexpr auto& cmdFT897DBF_Click = cmdFT857DBF_Click;
inline constexpr auto& cmdFT897Lock_Click = cmdFT857Lock_Click;
inline constexpr auto& cmdFT897Fast_Click = cmdFT857Fast_Click;
void optFT817AGC_Click(Core& c, int index);
// Whether each reading also reads the FT-817's AGC and sets the option.
void mnuFT817AGCmonitor_Click(Core& c);
void cmdFT1000MP_Filter_455_Click(Core& c, int index);
void cmdFT1000MP_Filter_82_Click(Core& c, int index);
void cmdFT920Tuner_Click(Core& c);
void cmdFT920StartTune_Click(Core& c);
void chkSplit_Click(Core& c);
void cmdVFOtoggle_Click(Core& c);
void cmdVFOBOff_Click(Core& c);
void cmdVFOSEqual_Click(Core& c);
void cmd450Tune_Click(Core& c);
void lbl450Tuner_Click(Core& c);
void lbl450Att_Click(Core& c);
void lbl450Ipo_Click(Core& c);
void lbl450AGC_Click(Core& c, int index);

}  // namespace veldor
