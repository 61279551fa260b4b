// TimedEvents.txt holds any bytes: it is read at start, and the events it gives are run at
// their times of day.
#include "accessories/timed_events.h"
#include "support/fakes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace veldor;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static QTemporaryDir dir;
    static const bool inDir = QDir::setCurrent(dir.path());
    static test::Harness h;
    static test::MemoryStore memory;
    if (!inDir) std::abort();
    {
        QFile file(kTimedEventsFile);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) std::abort();
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
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
    LoadTimedEvents(c);
    // Every minute of the day, so that each event's time comes round.
    c.f.chkOnOff.value = 1;
    for (int minute = 0; minute < 24 * 60; minute += 7) {
        h.clock.now = 1000 + static_cast<uint32_t>(minute) * 60000;
        RunTimedEvents(c);
    }
    h.dialogs.messages.clear();
    return 0;
}
