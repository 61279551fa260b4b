// The program's state in the terms of Hamlib's network rig protocol: mode names and
// passbands, the signal strength, the error codes, and the rig's description that a client
// asks for when it connects.
#pragma once

#include "link/core.h"

#include <QString>

namespace veldor {

// Hamlib's error codes, as a reply "RPRT -n" carries them.
enum RigctlCode {
    RigctlOk = 0,
    RigctlInvalid = -1,       // a bad command or argument, a frequency outside the rig
    RigctlTimedOut = -5,      // the tick never came to carry out a write
    RigctlLinkDown = -6,      // the link to the rig is not running
    RigctlRefused = -9,       // the program refuses it now (transmitting, scanning, ...)
    RigctlNotAvailable = -11  // the rig, or this server, has no such function
};

// A mode as a client sees it.
struct HamlibMode {
    QString name;  // "USB", "PKTUSB", ...
    int passband;  // Hz
};

// The mode shown, in Hamlib's words; false for a mode the protocol has no name for.
bool HamlibModeOf(const QString& mode, HamlibMode* out);

// The program's mode for a client's mode and passband (0 or less: the mode's usual one),
// as the current rig can be sent it: the nearest mode of the rig, or else the plain mode
// that the client's mode is a kind of. Empty for a mode name Hamlib does not have or that
// the rig cannot be sent.
QString ModeForHamlib(const Core& c, const QString& name, int passband);

// Decibels relative to S9 for the S-meter bar (0 to 31), by the scale printed over the bar:
// two steps an S unit of 6 dB up to S9 at 18, then 20 dB for every four steps.
int StrengthOfMeter(int value);

// Rigs whose VFO toggle takes them to the other VFO and back, with the program knowing which
// one is in use: the FT-817, FT-857 and FT-897 families and the FT-450.
bool RigTogglesVfo(const QString& rig);

// Hamlib's VFO names ("VFOA", "Main", "currVFO", ...) as "A" or "B"; empty for none.
QString VfoLetterOf(const Core& c, const QString& name);

// The answer to "\dump_state": protocol version 1, the rig's ranges from the catalogue,
// its modes and passbands, what it can do, and "done".
QString DumpState(const Core& c);

}  // namespace veldor
