// The state of the squelch-gated audio recorder.
#pragma once

#include <cstdint>

namespace veldor {

struct RecorderState {
    int32_t RecordRate = 11025;  // samples a second: 11025, 22050 or 44100
    int16_t RecordBits = 8;      // 8 or 16
    int32_t RecordBytesPerSecond = 11025;
    int16_t RecordBlockAlign = 1;
    bool PendingRecordStart = false;  // cmdRecord asks the tick to open the window
    bool RecorderOpen = false;        // the window is open
    bool RecorderUsable = false;      // the window found an input device when it loaded
    bool PendingRecordPause = false;  // recording was started: the squelch watch is on
};

}  // namespace veldor
