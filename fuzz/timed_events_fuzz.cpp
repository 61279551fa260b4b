// TimedEvents.txt holds any bytes: they are read as the start reads the file, and the events
// they give are run at their times of day.
#include "accessories/timed_events.h"
#include "support/fakes.h"

#include <cstddef>
#include <cstdint>

using namespace veldor;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // A zone of its own: without one the C library looks at the system's zone file at every
    // reading of the local time, 206 of them an input.
    static const bool zone = qputenv("TZ", "UTC");
    (void)zone;
    static test::Harness h;
    static test::MemoryStore memory;
    Core& c = h.c;
    c.p.store = &memory;
    State& s = c.s;
    s.TimedTaskTime.clear();
    s.TimedTaskCommand.clear();
    s.TimedTaskStarted.clear();
    s.TimedEntryText.clear();
    s.TimedEntryFrequency.clear();
    s.TimedEntryMode.clear();
    c.f.cboTimedEvents.list.clear();
    s.TimedEntryLast = s.TimedTaskLast = -1;
    h.dialogs.messages.clear();
    h.launcher.started.clear();
    ReadTimedEvents(c,
                    QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    // Every minute of the day, so that each event's time comes round.
    c.f.chkOnOff.value = 1;
    for (int minute = 0; minute < 24 * 60; minute += 7) {
        h.clock.now = 1000 + static_cast<uint32_t>(minute) * 60000;
        RunTimedEvents(c);
    }
    h.dialogs.messages.clear();
    return 0;
}
