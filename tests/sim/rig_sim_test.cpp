// The simulated rigs against frames written by hand from the CAT manuals, not by the
// program's encoder.
#include "rig_sim.h"

#include <gtest/gtest.h>

namespace veldor::sim {
namespace {

QByteArray Hex(const char* hex) {
    return QByteArray::fromHex(hex);
}

// Sends a command and reads everything that comes back within a second.
QByteArray Ask(RigSim& rig, const QByteArray& bytes, int64_t& now) {
    rig.write(bytes, now);
    now += 1000;
    return rig.read(now);
}

struct ReadCase {
    const char* rig;
    const char* command;
    const char* reply;  // for a rig on 14.25000 MHz USB
};

class FrequencyRead : public ::testing::TestWithParam<ReadCase> {};

TEST_P(FrequencyRead, AnswersInTheRigsLayout) {
    auto rig = RigSim::create(GetParam().rig);
    ASSERT_TRUE(rig);
    int64_t now = 0;
    if (QString(GetParam().rig) == "FT847") Ask(*rig, Hex("0000000000"), now);  // CAT on
    EXPECT_EQ(Ask(*rig, Hex(GetParam().command), now).toHex(' '), Hex(GetParam().reply).toHex(' '));
}

INSTANTIATE_TEST_SUITE_P(
    Rigs, FrequencyRead,
    ::testing::Values(ReadCase{"FT817", "0000000003", "0142500001"},
                      ReadCase{"FT857D", "0000000003", "0142500001"},
                      ReadCase{"FT847", "0000000003", "0142500001"},
                      // FRG-100: 10 Hz units, least significant byte first, from byte 2.
                      ReadCase{"FRG100", "0000000210", "000068be150000010000000000000000000000"},
                      // FT-1000MP: the frequency times 1.6, big-endian, in bytes 1 to 4.
                      ReadCase{"FT1000MP", "0000000210", "00015be6800000010000000000000000"}),
    [](const auto& info) { return std::string(info.param.rig); });

TEST(Ft920, GivesBothVfosInHertzWithTheModeByte) {
    auto rig = RigSim::create("FT920");
    rig->state().vfoBHz = 7050000;
    rig->state().mode = "USB";
    int64_t now = 0;
    const QByteArray r = Ask(*rig, Hex("0000000210"), now);
    ASSERT_EQ(r.size(), 28);
    EXPECT_EQ(r.mid(1, 4).toHex(), "00d97010");   // 14 250 000 Hz
    EXPECT_EQ(static_cast<uint8_t>(r[7]), 0x40);  // USB: mode 0 with the alternate flag
    EXPECT_EQ(r.mid(15, 4).toHex(), "006b9310");  // 7 050 000 Hz
}

TEST(Ft817Family, AcknowledgesWritesAndChangesState) {
    auto rig = RigSim::create("FT897");
    int64_t now = 0;
    EXPECT_EQ(Ask(*rig, Hex("0070740001"), now).toHex(), "00");  // 7.07400 MHz
    EXPECT_EQ(rig->state().frequencyHz, 7074000);
    EXPECT_EQ(Ask(*rig, Hex("0000000007"), now).toHex(), "00");  // LSB
    EXPECT_EQ(rig->state().mode, "LSB");
    Ask(*rig, Hex("0000000008"), now);  // PTT on
    EXPECT_EQ(Ask(*rig, Hex("00000000f7"), now).size(), 1);
    EXPECT_LT(static_cast<uint8_t>(Ask(*rig, Hex("00000000f7"), now)[0]), 0x80);
    Ask(*rig, Hex("0000000088"), now);
    EXPECT_EQ(Ask(*rig, Hex("00000000f7"), now).toHex(), "ff");
}

TEST(Ft817Family, EepromWritesKeepTheNeighbourByte) {
    auto rig = RigSim::create("FT857");
    rig->state().eeprom[0x6A] = 0x11;
    rig->state().eeprom[0x6B] = 0x22;
    int64_t now = 0;
    EXPECT_EQ(Ask(*rig, Hex("006a0000bb"), now).toHex(), "1122");
    Ask(*rig, Hex("006a9900bc"), now);
    EXPECT_EQ(Ask(*rig, Hex("006a0000bb"), now).toHex(), "9922");
}

TEST(Ft817Family, TheSMeterFollowsTheBandOfSignals) {
    auto rig = RigSim::create("FT817");
    int64_t now = 0;
    rig->state().frequencyHz = 14074000;
    const auto onSignal = static_cast<uint8_t>(Ask(*rig, Hex("00000000e7"), now)[0]);
    EXPECT_GT(onSignal & 0x0F, 0);
    EXPECT_EQ(onSignal & 0x80, 0);  // squelch open
    rig->state().frequencyHz = 14100000;
    const auto quiet = static_cast<uint8_t>(Ask(*rig, Hex("00000000e7"), now)[0]);
    EXPECT_EQ(quiet & 0x0F, 0);
    EXPECT_EQ(quiet & 0x80, 0x80);  // squelch closed
}

TEST(Ft847, IgnoresEverythingOutsideCatMode) {
    auto rig = RigSim::create("FT847");
    int64_t now = 0;
    EXPECT_TRUE(Ask(*rig, Hex("0000000003"), now).isEmpty());
    Ask(*rig, Hex("0000000000"), now);
    EXPECT_TRUE(rig->state().catOn);
    EXPECT_EQ(Ask(*rig, Hex("0000000003"), now).size(), 5);
    Ask(*rig, Hex("0000000080"), now);
    EXPECT_FALSE(rig->state().catOn);
    EXPECT_TRUE(Ask(*rig, Hex("0070740001"), now).isEmpty());  // no acknowledgement, no change
    EXPECT_EQ(rig->state().frequencyHz, 14250000);
}

TEST(Frg100, SwitchesItsPowerByOpcode20) {
    auto rig = RigSim::create("FRG100");
    int64_t now = 0;
    Ask(*rig, Hex("0000000020"), now);
    EXPECT_FALSE(rig->state().poweredOn);
    Ask(*rig, Hex("0000000120"), now);
    EXPECT_TRUE(rig->state().poweredOn);
}

TEST(StatusBlockRigs, TakeTheFrequencyLeastSignificantPairFirst) {
    for (const char* name : {"FT920", "FT1000MP", "FRG100"}) {
        auto rig = RigSim::create(name);
        int64_t now = 0;
        Ask(*rig, Hex("005042010a"), now);
        EXPECT_EQ(rig->state().frequencyHz, 14250000) << name;
    }
}

TEST(Vr5000, TakesABinaryFrequencyOnlyInCatMode) {
    auto rig = RigSim::create("VR5000");
    int64_t now = 0;
    Ask(*rig, Hex("00de213c01"), now);
    EXPECT_EQ(rig->state().frequencyHz, 14250000);  // not yet under control
    Ask(*rig, Hex("0000000000"), now);
    Ask(*rig, Hex("00de213c01"), now);
    EXPECT_EQ(rig->state().frequencyHz, 145575000);
}

struct TextCase {
    const char* sent;
    const char* reply;
};

class Ft450Text : public ::testing::TestWithParam<TextCase> {};

TEST_P(Ft450Text, Answers) {
    auto rig = RigSim::create("FT450");
    int64_t now = 0;
    EXPECT_EQ(Ask(*rig, GetParam().sent, now), GetParam().reply);
}

INSTANTIATE_TEST_SUITE_P(Commands, Ft450Text,
                         ::testing::Values(TextCase{"ID;", "ID0241;"},
                                           TextCase{"FA;", "FA14250000;"},
                                           TextCase{"MD0;", "MD02;"}, TextCase{"XX;", "?;"},
                                           TextCase{"AI0;", ""},
                                           TextCase{"IF;", "IF00114250000+000000200000;"},
                                           TextCase{"ID;FA;", "ID0241;FA14250000;"}));

TEST(Ft450, TakesACommandSplitAcrossWrites) {
    auto rig = RigSim::create("FT450");
    int64_t now = 0;
    rig->write("FA070", now);
    rig->write("74000;F", now);
    rig->write("A;", now);
    now += 1000;
    EXPECT_EQ(rig->read(now), "FA07074000;");
    EXPECT_EQ(rig->state().frequencyHz, 7074000);
}

TEST(Ft450, SelectsVfoAWithVs0) {
    auto rig = RigSim::create("FT450");
    rig->state().vfoB = true;
    int64_t now = 0;
    Ask(*rig, "VS0;", now);
    EXPECT_FALSE(rig->state().vfoB);
    EXPECT_EQ(Ask(*rig, "VS;", now), "VS0;");
}

TEST(Pacing, AReplyIsReadableOnlyAtItsWireTime) {
    auto rig = RigSim::create("FT817");
    rig->setLine(4800, 2);  // 11 bits a byte: 2.29 ms
    rig->write(Hex("0000000003"), 0);
    // Five bytes in (11.5 ms), the rig's latency, then five bytes out.
    EXPECT_EQ(rig->available(12), 0);
    EXPECT_EQ(rig->available(18), 1);
    EXPECT_EQ(rig->available(24), 4);
    EXPECT_EQ(rig->available(27), 5);
    rig->read(27);
    rig->setLine(38400, 2);  // 0.29 ms a byte
    rig->write(Hex("0000000003"), 100);
    EXPECT_EQ(rig->available(104), 0);
    EXPECT_EQ(rig->available(106), 5);
}

TEST(Faults, EachKindDoesWhatItSays) {
    auto rig = RigSim::create("FT817");
    int64_t now = 0;
    const QByteArray read = Hex("0000000003");
    rig->faults().dropReplies = 1;
    EXPECT_TRUE(Ask(*rig, read, now).isEmpty());
    EXPECT_EQ(Ask(*rig, read, now).size(), 5);
    rig->faults().cutShortReplies = 1;
    EXPECT_EQ(Ask(*rig, read, now).size(), 2);
    rig->faults().corruptDigitReplies = 1;
    EXPECT_EQ(Ask(*rig, read, now).toHex(), "01425a0001");
    rig->faults().strayBeforeNext = Hex("ffee");
    EXPECT_EQ(Ask(*rig, read, now).toHex(), "ffee0142500001");
    rig->faults().extraLatencyMs = 400;
    rig->write(read, now);
    EXPECT_EQ(rig->available(now + 300), 0);
    EXPECT_EQ(rig->available(now + 500), 5);
    rig->read(now + 500);
    now += 1000;
    rig->faults().extraLatencyMs = 0;
    rig->faults().silent = true;
    EXPECT_TRUE(Ask(*rig, read, now).isEmpty());
    rig->faults().silent = false;
    rig->faults().gone = true;
    rig->write(read, now);
    EXPECT_EQ(rig->available(now + 1000), 0);
}

TEST(Trace, RecordsEveryChunkInOrder) {
    auto rig = RigSim::create("FT817");
    int64_t now = 0;
    Ask(*rig, Hex("0000000003"), now);
    ASSERT_EQ(rig->trace().size(), 2u);
    EXPECT_EQ(rig->trace()[0].dir, Dir::HostToRig);
    EXPECT_EQ(rig->trace()[0].bytes.toHex(), "0000000003");
    EXPECT_EQ(rig->trace()[1].dir, Dir::RigToHost);
    EXPECT_EQ(rig->trace()[1].bytes.toHex(), "0142500001");
}

TEST(Catalogue, EveryRigNameMakesARig) {
    for (const QString& name : RigSim::rigNames())
        EXPECT_TRUE(RigSim::create(name)) << name.toStdString();
    EXPECT_FALSE(RigSim::create("Not set"));
    EXPECT_FALSE(RigSim::create("FT991"));
}

}  // namespace
}  // namespace veldor::sim
