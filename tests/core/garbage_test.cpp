// Replies of any bytes, at any length, from every rig: the reading survives, its values stay
// in their ranges, and the link's counters and messages apply.
#include "link/catalogue.h"
#include "link/poll_cycle.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <random>

namespace veldor::test {
namespace {

class AnyReply : public ::testing::TestWithParam<const QString*> {};

TEST_P(AnyReply, NeverBreaksAReading) {
    ScriptedRig h(*GetParam());
    h.c.s.PollingDelay = 0;
    const bool text = *GetParam() == RigFT450;
    std::mt19937 random(20261123);
    h.scriptedPort->answer = [&](const QByteArray&) {
        QByteArray reply;
        const int length = static_cast<int>(random() % 40);
        for (int i = 0; i < length; ++i) reply.append(static_cast<char>(random() % 256));
        // Text replies end somewhere, sometimes with the rig's rejection inside. (A lone "?"
        // just before the end would join the rig's ";" into a rejection and leave a fragment
        // that waits, without limit, for the rest: that wait is tested on its own.)
        if (text) {
            reply.replace('?', '!');
            if (random() % 3 == 0)
                reply.insert(static_cast<qsizetype>(random() % (length + 1)), "?;");
            reply.append(';');
        }
        return reply;
    };
    for (int reading = 0; reading < 200; ++reading) {
        h.c.s.NextPollTime = h.clock.now;
        PerformStatusUpdate(h.c);
        ASSERT_GE(h.c.f.pbarSmeter.value, 0);
        ASSERT_LE(h.c.f.pbarSmeter.value, 31);
        ASSERT_FALSE(h.c.s.SendBusy || h.c.s.ReceiveBusy);
    }
    // Every reading went to the rig, whatever the last one brought back.
    EXPECT_GE(h.scriptedPort->written.size(), 200u);
}

const QString* const kEveryRig[] = {&RigFT817,  &RigFT817ND,  &RigFT847,  &RigFT857,
                                    &RigFT857D, &RigFT897,    &RigFT897D, &RigFT450,
                                    &RigFT920,  &RigFT1000MP, &RigFRG100, &RigVR5000};

INSTANTIATE_TEST_SUITE_P(EveryRig, AnyReply, ::testing::ValuesIn(kEveryRig),
                         [](const auto& info) { return info.param->toStdString(); });

}  // namespace
}  // namespace veldor::test
