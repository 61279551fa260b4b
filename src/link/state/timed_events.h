// The timed events read from TimedEvents.txt.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace veldor {

struct TimedEventsState {
    // Frequency records, in file order: list text ("0600 Net 7050 CW"), frequency and mode
    // as written. The last index is -1 when there are none.
    QStringList TimedEntryText;
    QStringList TimedEntryFrequency;
    QStringList TimedEntryMode;
    int16_t TimedEntryLast = -1;
    // Tasks: their minute (HHMM), command line, and whether they ran in this minute.
    QStringList TimedTaskTime;
    QStringList TimedTaskCommand;
    std::vector<bool> TimedTaskStarted;
    int16_t TimedTaskLast = -1;
    // The Timed button is on.
    bool TimedActive = false;
};

}  // namespace veldor
