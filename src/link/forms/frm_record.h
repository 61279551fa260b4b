// The recorder window.
#pragma once

#include "link/controls.h"

#include <array>

namespace veldor {

// The transport buttons of the recorder, each enabled as the recording's mode allows, as a
// media control enables its own. Rewind and Play are not built: they stay disabled.
struct MediaControl : Control {
    static constexpr const char* kTip = " Rewind, Play, Pause, Stop, Record ";
    CommandButton Rewind{{false, true, kTip}, "Rewind"};
    CommandButton Play{{false, true, kTip}, "Play"};
    CommandButton Pause{{false, true, kTip}, "Pause"};
    CommandButton Stop{{false, true, kTip}, "Stop"};
    CommandButton Record{{false, true, kTip}, "Record"};
};

struct FrmRecord {
    QString caption = "VELDOR - Recorder";
    std::array<OptionButton, 3> optFreq{{
        {{true, true, " Lowest quality, smallest file size "}, "11025", true},
        {{true, true, " Medium quality, medium file size "}, "22050", false},
        {{true, true, " Highest quality, largest file size "}, "44100", false},
    }};
    std::array<OptionButton, 2> optBits{{
        {{true, true, " 8 bit values (smaller file, lower quality)"}, "8 bit", true},
        {{true, true, " 16 bit values (larger file, higher quality) "}, "16 bit", false},
    }};
    Label Label3{{}, "Input"};
    ComboBox Combo2{{true, true, " Select sound card (if got more than one) "}, {}, -1};
    CheckBox chkSquelch{{true, true, " Record only when got a signal "},
                        "Record when squelch opens"};
    MediaControl MMControl2{{true, true, MediaControl::kTip}};
    CommandButton recOpen{{true, true, " Prepare for a new recording "}, "Prepare"};
    CommandButton recSave{{true, true, " Save the recording to disk "}, "Save"};
    CommandButton cmdPlayer{{true, true, " Start the Windows Sound Recorder "}, "Player"};
    CommandButton cmdVolume{{true, true, " Show the Windows Volume control "}, "Volume"};
    CommandButton cmdClose{{true, true, " Close this windows "}, "Close"};
    // What the take is doing and how long it is, for the eye and the screen reader.
    Label lblStatus{{true, true, " State of the recording "}, "Closed"};
};

}  // namespace veldor
