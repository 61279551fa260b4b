// The state of the FT-847 cross-band repeater, the FT-450 DSP panel and the FT-920 meters panel.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct PanelsState {
    // FT-847 cross-band repeater: the two frequencies loaded at Start, and the loop's flags.
    bool PendingXBand = false;
    int32_t XBandVHF = 14500000, XBandUHF = 43300000;
    bool XBandStop = false;
    bool XBandSignal = false;  // the last status read heard a signal

    // FT-450 DSP panel.
    bool DspVisible = false;
    bool PendingDspPanel = false;
    bool DspDockLeft = true;
    bool DspSliderHeld = false;  // the mouse is down on a slider: the poll leaves them alone
    // The panel's values as the requests send them.
    QString DspNoiseReductionLevel = "01", DspNotchFrequency = "001", DspFilterWidth = "02";
    int DspContourLevelIndex = 3, DspContourFrequencyIndex = 3;

    // FT-920 meters panel.
    bool MetersVisible = false;
    bool PendingMetersPanel = false;
    bool MetersDockLeft = true;
};

}  // namespace veldor
