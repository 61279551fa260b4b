// Timed events: TimedEvents.txt names the frequency wanted from each time of day and the
// programs to start at given minutes; the Timed button makes the tick follow it.
#pragma once

#include "link/core.h"

namespace veldor {

// The file, in the folder the program was started from.
inline constexpr const char* kTimedEventsFile = "TimedEvents.txt";

// Reads the file into the tables and the list of cboTimedEvents, once at start.
void LoadTimedEvents(Core& c);
// The file's bytes into the tables and the list; a record at fault is told in a box and
// leaves timed activities disabled.
void ReadTimedEvents(Core& c, const QByteArray& bytes);
void cmdTimed_Click(Core& c);
void cboTimedEvents_Click(Core& c);
// Once a tick while the Timed button is on: starts the tasks of this minute and tunes to the
// frequency record in force.
void RunTimedEvents(Core& c);

}  // namespace veldor
