// What the simulated rigs promise beyond what the program's own tests drive through them: the
// wire's pacing, the faults, the memory image, the FT-847's CAT gate and the FT-450's "?;".
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

TEST(Ft817Family, EepromWritesStoreBothBytes) {
    auto rig = RigSim::create("FT857");
    rig->state().eeprom[0x6A] = 0x11;
    rig->state().eeprom[0x6B] = 0x22;
    int64_t now = 0;
    const std::pair<const char*, const char*> exchanges[] = {{"006a0000bb", "1122"},
                                                             {"006a9922bc", "00"},
                                                             {"006a0000bb", "9922"},
                                                             {"006a9955bc", "00"},
                                                             {"006a0000bb", "9955"}};
    for (const auto& [frame, reply] : exchanges)
        EXPECT_EQ(Ask(*rig, Hex(frame), now).toHex(), reply) << frame;
    EXPECT_EQ(rig->state().eeprom[0x6C], 0);
}

// The FT-847 answers nothing and takes nothing until CAT is switched on, and lets go at 80.
TEST(Ft847, TakesNothingOutsideCatMode) {
    auto rig = RigSim::create("FT847");
    int64_t now = 0;
    const QByteArray toneAndFrequency = Hex("3f 00 00 00 0b  4a 00 00 00 0a  00 70 74 00 01");
    EXPECT_TRUE(Ask(*rig, Hex("0000000003"), now).isEmpty());
    EXPECT_TRUE(Ask(*rig, toneAndFrequency, now).isEmpty());
    EXPECT_EQ(rig->state().toneMode, "off");
    EXPECT_EQ(rig->state().frequencyHz, 14250000);
    Ask(*rig, Hex("0000000000"), now);
    EXPECT_TRUE(Ask(*rig, toneAndFrequency, now).isEmpty());
    EXPECT_EQ(rig->state().toneNumber, 63);
    EXPECT_EQ(rig->state().frequencyHz, 7074000);
    EXPECT_EQ(Ask(*rig, Hex("84 00 00 00 07  00 00 00 00 03"), now).toHex(), "0070740084");
    Ask(*rig, Hex("0000000080"), now);
    EXPECT_FALSE(rig->state().catOn);
}

// What the FT-450 does not know, it answers "?;"; a command may come in pieces.
TEST(Ft450, RefusesWhatItDoesNotKnowAndJoinsPieces) {
    for (const char* text :
         {"XX;", "MD0A;", "GT07;", "OS03;", "VS2;", "CT04;", "EX0582;", "MD08;;"}) {
        auto rig = RigSim::create("FT450");
        int64_t now = 0;
        EXPECT_EQ(Ask(*rig, text, now), "?;") << text;
    }
    auto rig = RigSim::create("FT450");
    int64_t now = 0;
    EXPECT_TRUE(Ask(*rig, "MD08", now).isEmpty());
    EXPECT_TRUE(Ask(*rig, ";", now).isEmpty());
    EXPECT_EQ(rig->state().mode, "USRL");
    rig->write("FA070", now);
    rig->write("74000;F", now);
    rig->write("A;", now);
    now += 1000;
    EXPECT_EQ(rig->read(now), "FA07074000;");
}

TEST(Pacing, AReplyIsReadableOnlyAtItsWireTime) {
    auto rig = RigSim::create("FT817");
    rig->setLine(4800, 2);  // 11 bits a byte: 2.29 ms
    rig->write(Hex("0000000003"), 0);
    // Five bytes in (11.5 ms), the rig's latency, then five bytes out.
    const std::pair<int64_t, int> at4800[] = {{12, 0}, {18, 1}, {24, 4}, {27, 5}};
    for (const auto& [ms, bytes] : at4800) EXPECT_EQ(rig->available(ms), bytes) << ms;
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

TEST(Catalogue, EveryRigNameMakesARig) {
    for (const QString& name : RigSim::rigNames())
        EXPECT_TRUE(RigSim::create(name)) << name.toStdString();
    EXPECT_FALSE(RigSim::create("Not set"));
}

}  // namespace
}  // namespace veldor::sim
