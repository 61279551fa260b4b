// What a rig sends back is any bytes: the fuzz input is cut into the replies to the commands
// the program sends, and a connection is taken and polled on it with every reading on. The
// first byte chooses the rig among those given; the byte before each reply its length.
#pragma once

#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "support/fakes.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace veldor::fuzz {

struct RepliesHarness {
    test::Harness h{true};
    test::MemoryStore memory;
    RepliesHarness() { h.c.p.store = &memory; }
};

inline void RunRigReplies(const std::vector<QString>& rigs, const uint8_t* data, size_t size) {
    static RepliesHarness station;
    test::Harness& h = station.h;
    if (size == 0) return;
    size_t at = 1;
    h.scriptedPort->answer = [&](const QByteArray&) {
        if (at >= size) return QByteArray();
        const size_t length = std::min<size_t>(data[at] % 40, size - at - 1);
        const QByteArray reply(reinterpret_cast<const char*>(data + at + 1),
                               static_cast<qsizetype>(length));
        at += 1 + length;
        return reply;
    };
    Core& c = h.c;
    c.s.RigType = rigs[data[0] % rigs.size()];
    c.s.ReceiveBuffer.clear();
    c.s.TextResyncNeeded = false;
    c.s.BadFrequencyCount = 0;
    c.s.MetersVisible = data[0] & 0x80;
    c.f.chkOnOff.value = 1;
    h.scriptedPort->open("1", "4800,N,8,2", false, {}, nullptr);
    TakeControl(c);
    for (int reading = 0; reading < 3 && at < size; ++reading) {
        c.s.ForceUpdate = true;
        c.s.PollingDelay = 0;
        PerformStatusUpdate(c);
    }
    h.scriptedPort->clearInput();
    h.scriptedPort->written.clear();
    h.dialogs.messages.clear();
    c.frmErrorList.txtErrors.text.clear();
}

}  // namespace veldor::fuzz
