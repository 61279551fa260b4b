#include "link/poll_cycle.h"

#include "link/start_stop.h"
#include "protocol/read_frequency.h"

namespace veldor {

void PerformStatusUpdate(Core& c) {
    State& s = c.s;
    // The megahertz step and the tone lights join here with the tuning controls and tones.
    if (!s.ForceUpdate && s.PollingDelay == 99) return;
    s.ForceUpdate = false;
    // The next reading is due PollingDelay after the end of the last one.
    if (s.PollingDelay != 0 && static_cast<int32_t>(s.NextPollTime - c.p.clock->milliseconds()) > 0)
        return;
    ReadFrequencyAndMode(c);
    // The status and signal reads, and the model extras, join here with their Parts.
    s.NextPollTime = c.p.clock->milliseconds() + static_cast<uint32_t>(s.PollingDelay);
}

void SetPollingDelay(Core& c, int32_t delay) {
    c.s.PollingDelay = delay;
    SaveSetting(c, c.s.AppName, "Settings", "PollingDelay", QString::number(delay));
    ShowPollingTicks(c);
}

void mnuPollingUpdateNow_Click(Core& c) {
    c.s.ForceUpdate = true;
    c.s.NextPollTime = c.p.clock->milliseconds();
}

void mnuTalk_Click(Core& c, int talkFreq) {
    c.s.TalkFreq = std::clamp(talkFreq, 1, 5);
    c.p.tmrPollInterval->setInterval((6 - c.s.TalkFreq) * 26);
    SaveSetting(c, c.s.AppName, "Settings", "TalkFreq", QString::number(c.s.TalkFreq));
    ShowTalkSpeedTicks(c);
}

}  // namespace veldor
