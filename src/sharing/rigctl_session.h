// One client of rig sharing, speaking Hamlib's network rig protocol ("rigctld"): lines in,
// replies out. Reads are answered at once from the state that the poll keeps, without a
// byte to the rig; writes ask as a click asks, and are answered once the tick has carried
// them out.
#pragma once

#include "link/core.h"

#include <QByteArray>
#include <QList>

namespace veldor {

struct RigctlSession {
    QByteArray partial;         // received bytes that do not yet end a line, up to the limit
    QList<QByteArray> queue;    // whole lines behind a write that waits for the tick
    qsizetype queuedBytes = 0;  // the bytes of those lines
    int queuedWrites = 0;       // those of them that would cost the rig a command
    // The write in progress: the request the tick has still to serve, since when, and the
    // first lines of its reply.
    bool State::*waitingFor = nullptr;
    bool waitingForReading = false;  // answered only after the reading that follows it
    uint32_t waitingSince = 0;
    QByteArray waitingHead;  // empty for a plain reply
    bool closing = false;    // the client has said goodbye, or flooded the server
};

// The longest line served. Lines are served as they come; behind a write in progress they
// wait, and a client is let go when it has more writes waiting than this, or more bytes: reads
// cost the rig nothing, so only their memory is bounded.
inline constexpr int RigctlLineLimit = 4096;
inline constexpr int RigctlQueueLimit = 100;
inline constexpr qsizetype RigctlQueueByteLimit = 256 * 1024;
// Replies a client has not read: past this it is let go, since it will not read.
inline constexpr qint64 RigctlUnreadLimit = 1024 * 1024;
// A write the tick has not carried out by then is answered as timed out.
inline constexpr uint32_t RigctlWriteLimitMs = 5000;

// The client's bytes; returns what goes back at once.
QByteArray RigctlReceive(Core& c, RigctlSession& session, const QByteArray& bytes);
// When the tick has carried out its requests: the write it carried out is answered, and the
// lines behind it are served.
QByteArray RigctlRequestsServed(Core& c, RigctlSession& session);
// Whether the client's write waits for the tick to carry it out.
bool RigctlWriteWaiting(const Core& c, const RigctlSession& session);
// Between ticks: a write that can no longer be carried out (the link switched off, no tick
// for too long) is answered with its error, and the lines behind it are served.
QByteArray RigctlCheckWaiting(Core& c, RigctlSession& session);

}  // namespace veldor
