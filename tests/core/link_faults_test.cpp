// When the line fails: a device that vanishes and comes back, a text reply that never ends, a
// run of lost text replies, binary replies out of step, an output that never drains.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "protocol/read_frequency.h"
#include "sharing/rigctl_session.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <map>

namespace veldor::test {
namespace {

// A rig on 14.250.00 USB that answers each command as its manual says: the FT-817's frequency
// read and one byte to anything else, the FT-450's text commands by their prefix.
struct Line : ScriptedRig {
    explicit Line(const QString& rig) : ScriptedRig(rig) {
        c.s.CommPort = "/dev/ttyUSB0";
        c.s.PollingDelay = 0;
        scriptedPort->answer = [this](const QByteArray& command) -> QByteArray {
            if (c.s.RigType != RigFT450)
                return command.size() == 5 && command[4] == 0x03 ? Bytes({1, 0x42, 0x50, 0, 1})
                                                                 : QByteArray(1, '\0');
            static const std::map<QByteArray, QByteArray> kText = {
                {"ID;", "ID0241;"},  {"IF;", "IF00114250000+000000200000;"},
                {"SM0;", "SM0005;"}, {"BY;", "BY00;"},
                {"TX;", "TX0;"},     {"AC;", "AC000;"},
                {"RA0;", "RA00;"},   {"PA0;", "PA00;"},
                {"GT0;", "GT04;"},   {"VS;", "VS0;"}};
            const auto it = kText.find(command);
            return it == kText.end() ? QByteArray() : it->second;
        };
    }
    void tick() { tmrPollInterval_Timer(c); }
    void unplug() {
        scriptedPort->close();
        scriptedPort->failReason = "No such file or directory";
    }
    int count(const QString& text) const { return c.frmErrorList.txtErrors.text.count(text); }
};

// The device goes in the middle of a read and comes back under its name some ticks later.
class Vanishing : public ::testing::TestWithParam<const char*> {};

TEST_P(Vanishing, TheProgramSaysSoOnceKeepsItsStateAndTakesTheRigAgain) {
    Line line(GetParam());
    line.tick();
    ASSERT_EQ(line.c.f.txtVfoA.text, "14.250.00");
    line.pump.at(line.clock.now + 2, [&] { line.unplug(); });
    for (int i = 0; i < 8; ++i) line.tick();
    EXPECT_TRUE(line.dialogs.messages.empty());
    EXPECT_EQ(line.count("has gone away"), 1);
    EXPECT_EQ(line.c.f.chkOnOff.value, 1);
    EXPECT_EQ(line.c.f.txtVfoA.text, "14.250.00");
    EXPECT_EQ(line.stored("CurrentValues", "Status"), "InActive");
    RigctlSession client;
    EXPECT_EQ(RigctlReceive(line.c, client, "\\get_powerstat\n"), "0\n");

    line.scriptedPort->failReason.clear();
    const int opens = line.scriptedPort->opens;
    line.tick();
    EXPECT_EQ(line.scriptedPort->opens, opens + 1);
    EXPECT_EQ(line.count("is back: taking"), 1);
    line.scriptedPort->written.clear();
    line.c.f.txtVfoA.text.clear();
    for (int i = 0; i < 3; ++i) line.tick();
    EXPECT_EQ(line.c.f.txtVfoA.text, "14.250.00");
    EXPECT_EQ(line.stored("CurrentValues", "Status"), "Active");
    EXPECT_EQ(line.scriptedPort->opens, opens + 1);
    EXPECT_TRUE(line.dialogs.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(BinaryAndText, Vanishing, ::testing::Values("FT817", "FT450"));

// A fragment that never gets its ";" ends the read as a lost reply, and the next reply is read
// whole. The port closes after five seconds, so that a read without an end still ends.
TEST(TextLink, AnEndlessReplyEndsAsALostReplyAndTheLinkReadsOnInStep) {
    for (const char* fragment : {"IF0011425", "x?;", "IF00114250000+000000?;"}) {
        SCOPED_TRACE(fragment);
        ScriptedRig h(RigFT450);
        h.scriptedPort->arrive(h.clock.now + 10, fragment);
        const uint32_t start = h.clock.now;
        h.pump.at(start + 5000, [&] { h.scriptedPort->close(); });
        EXPECT_FALSE(ReceiveData(h.c));
        EXPECT_LT(h.clock.now - start, 1000u);
        EXPECT_EQ(h.c.f.lblTimeoutCount.caption, "1");
        EXPECT_TRUE(h.dialogs.messages.empty());
        h.scriptedPort->arrive(h.clock.now + 10, "IF00114250000+000000200000;");
        EXPECT_TRUE(ReceiveData(h.c));
        EXPECT_EQ(h.c.s.TextReply, "IF00114250000+000000200000;");
    }
}

TEST(TextLink, ARunOfLostRepliesReopensThePortAndTakesTheRigAgain) {
    Line line(RigFT450);
    line.scriptedPort->answer = nullptr;  // the rig has gone silent
    const int opens = line.scriptedPort->opens;
    // A reading of a silent rig loses more than kTextTimeoutsBeforeRecovery replies.
    line.tick();
    EXPECT_GE(line.c.f.lblTimeoutCount.caption.toInt(), kTextTimeoutsBeforeRecovery);
    EXPECT_EQ(line.scriptedPort->opens, opens + 1);
    EXPECT_TRUE(line.scriptedPort->allWritten().endsWith("ID;"));
}

// Six stray bytes before the read, a reply that decodes to 703.600.01 MHz mode 255, or one of
// no mode: the input is emptied, which is told once, and the next reading is right.
TEST(BinaryLink, OutOfStepTheInputIsEmptiedAndTheNextReadingIsRight) {
    const std::pair<QByteArray, QByteArray> cases[] = {
        {Bytes({0x70, 0x36, 0, 1, 0xFF, 0x33}), Bytes({1, 0x42, 0x50, 0, 1})},
        {{}, Bytes({0x70, 0x36, 0, 1, 0xFF})},
        {{}, Bytes({1, 0x42, 0x50, 0, 5})}};
    for (const auto& [before, reply] : cases) {
        SCOPED_TRACE(reply.toHex().toStdString());
        Line line(RigFT817);
        line.c.f.txtVfoA.text = "7.036.00";
        line.scriptedPort->arrive(line.clock.now, before);
        const auto answer = line.scriptedPort->answer;
        line.scriptedPort->answer = [r = reply](const QByteArray&) { return r; };
        ReadFrequencyAndMode(line.c);
        EXPECT_TRUE(line.c.f.txtVfoA.text == "7.036.00" || line.c.f.txtVfoA.text == "14.250.00");
        EXPECT_EQ(line.scriptedPort->inBufferCount(), 0);
        line.scriptedPort->answer = answer;
        for (int i = 0; i < 2; ++i) ReadFrequencyAndMode(line.c);
        EXPECT_EQ(line.c.f.txtVfoA.text, "14.250.00");
        EXPECT_EQ(line.c.f.txtMode.text, "USB");
        EXPECT_EQ(line.count("out of step"), 1);
    }
}

TEST(BinaryLink, ASendGivesUpOnAnOutputThatNeverDrains) {
    ScriptedRig h(RigFT817);
    h.scriptedPort->undrainedTests = 1000000;
    SendCommand(h.c, 0x03);
    EXPECT_GT(h.scriptedPort->undrainedTests, 1000000 - 1000);
    EXPECT_FALSE(h.c.s.SendBusy);
}

}  // namespace
}  // namespace veldor::test
