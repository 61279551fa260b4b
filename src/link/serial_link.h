// The only road to the rig: the five-byte frame, the FT-450's text commands, the two reply
// collectors, the busy flags that keep a send and a read apart, and the timeout counter.
#pragma once

#include "link/core.h"

namespace veldor {

// Let pending events run, then sleep with events running. Every wait of the link is this
// pause, or PauseUntil: the same pause, ended early once ready() holds (see EventPump).
void PauseWithEvents(Core& c, int milliseconds);
void PauseUntil(Core& c, int milliseconds, int watch, const std::function<bool()>& ready);

bool CheckFrequencyRange(Core& c, int32_t frequency);

void PutParameters(Core& c);
void SendCommand(Core& c, uint8_t opcode);
void SendText(Core& c, const QString& command);
void ReadResponse(Core& c, int count);
bool ReceiveData(Core& c);
// Quietly: a port that cannot be had is not told of (the tick tries a lost port again).
void OpenPorts(Core& c, const QString& port, const QString& speed, bool quietly = false);
void PrepareFrequency(Core& c, int32_t& frequency);
// Eight decimal digits of value into FrequencyDigits and, packed two to a byte, P1 to P4.
void PutBcdDigits(Core& c, int32_t value);

// Byte i of the last binary reply, as the unsigned value the rigs' manuals give.
inline uint8_t ReplyByte(const Core& c, int i) {
    return static_cast<uint8_t>(c.s.ReplyBytes.at(i));
}

// One more receive timeout: the count rises and shows red for the rest of the tick.
void CountTimeout(Core& c);

// Brings binary replies back in step: empties the input, and tells of it once a connection.
void Realign(Core& c, const QString& why);

}  // namespace veldor
