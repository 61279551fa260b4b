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

TEST(Ft817Family, EepromWritesStoreBothBytes) {
    auto rig = RigSim::create("FT857");
    rig->state().eeprom[0x6A] = 0x11;
    rig->state().eeprom[0x6B] = 0x22;
    int64_t now = 0;
    EXPECT_EQ(Ask(*rig, Hex("006a0000bb"), now).toHex(), "1122");
    EXPECT_EQ(Ask(*rig, Hex("006a9922bc"), now).toHex(), "00");
    EXPECT_EQ(Ask(*rig, Hex("006a0000bb"), now).toHex(), "9922");
    Ask(*rig, Hex("006a9955bc"), now);
    EXPECT_EQ(Ask(*rig, Hex("006a0000bb"), now).toHex(), "9955");
    EXPECT_EQ(rig->state().eeprom[0x6C], 0);
}

// The byte whose bit 0 is the VFO in use puts the rig on that VFO when written, like 81.
struct VfoByteCase {
    const char* rig;
    const char* toB;    // write that selects VFO B
    const char* read;   // read of the two bytes from the live address
    const char* readB;  // its reply on VFO B
    const char* toA;
    const char* readA;
};

class Ft817VfoByte : public ::testing::TestWithParam<VfoByteCase> {};

TEST_P(Ft817VfoByte, SelectsTheVfo) {
    const VfoByteCase& c = GetParam();
    auto rig = RigSim::create(c.rig);
    int64_t now = 0;
    EXPECT_EQ(Ask(*rig, Hex(c.toB), now).toHex(), "00");
    EXPECT_TRUE(rig->state().vfoB);
    EXPECT_EQ(Ask(*rig, Hex("0000000003"), now).toHex(), "0070500001");  // 7.05000 MHz
    EXPECT_EQ(Ask(*rig, Hex(c.read), now).toHex(), c.readB);
    Ask(*rig, Hex(c.toB), now);  // again: stays on B
    EXPECT_EQ(rig->state().frequencyHz, 7050000);
    Ask(*rig, Hex(c.toA), now);
    EXPECT_FALSE(rig->state().vfoB);
    EXPECT_EQ(Ask(*rig, Hex("0000000003"), now).toHex(), "0142500001");
    EXPECT_EQ(Ask(*rig, Hex(c.read), now).toHex(), c.readA);
}

INSTANTIATE_TEST_SUITE_P(
    Rigs, Ft817VfoByte,
    ::testing::Values(
        // FT-817: bit 0 of 0x55; the write at 0x54 carries 0x55 as its second byte.
        VfoByteCase{"FT817", "00 54 81 01 bc", "00 54 00 00 bb", "8101", "00 54 80 00 bc", "8000"},
        VfoByteCase{"FT817ND", "00 55 01 00 bc", "00 55 00 00 bb", "0100", "00 55 00 00 bc",
                    "0000"},
        // FT-857/897: bit 0 of 0x68, bit 7 set while on a VFO.
        VfoByteCase{"FT857D", "00 68 81 00 bc", "00 68 00 00 bb", "8100", "00 68 80 00 bc", "8000"},
        VfoByteCase{"FT897", "00 67 00 81 bc", "00 68 00 00 bb", "8100", "00 67 00 80 bc", "8000"}),
    [](const auto& info) { return std::string(info.param.rig); });

TEST(Ft817, TheByteAt54IsStoredButSelectsNothing) {
    auto rig = RigSim::create("FT817");
    int64_t now = 0;
    Ask(*rig, Hex("00 54 81 00 bc"), now);
    EXPECT_FALSE(rig->state().vfoB);
    EXPECT_EQ(Ask(*rig, Hex("00 54 00 00 bb"), now).toHex(), "8100");
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

// One setting of the rig's state as text, to compare with a table.
QString Field(const RigState& s, const QString& name) {
    if (name == "frequencyHz") return QString::number(s.frequencyHz);
    if (name == "vfoBHz") return QString::number(s.vfoBHz);
    if (name == "mode") return s.mode;
    if (name == "vfoB") return s.vfoB ? "1" : "0";
    if (name == "toneDeciHz") return QString::number(s.toneDeciHz);
    if (name == "toneDecodeDeciHz") return QString::number(s.toneDecodeDeciHz);
    if (name == "toneNumber") return QString::number(s.toneNumber);
    if (name == "toneDecodeNumber") return QString::number(s.toneDecodeNumber);
    if (name == "toneMode") return s.toneMode;
    if (name == "shift") return s.shift;
    if (name == "offsetHz") return QString::number(s.offsetHz);
    if (name == "subOn") return s.subOn ? "1" : "0";
    if (name == "subMode") return s.subMode;
    if (name == "stepCode") return QString::number(s.stepCode);
    if (name == "subStepCode") return QString::number(s.subStepCode);
    if (name == "tunerIn") return s.tunerIn ? "1" : "0";
    if (name == "tuneStarts") return QString::number(s.tuneStarts);
    if (name == "narrow") return s.narrow ? "1" : "0";
    if (name == "filter82Hz") return QString::number(s.filter82Hz);
    if (name == "filter455Hz") return QString::number(s.filter455Hz);
    if (name == "ptt") return s.ptt ? "1" : "0";
    if (name == "sqlIsRfGain") return s.sqlIsRfGain ? "1" : "0";
    if (name == "memoryMode") return s.memoryMode ? "1" : "0";
    if (name == "vfoEqualCount") return QString::number(s.vfoEqualCount);
    if (name == "tunerState") return QString::number(s.tunerState);
    if (name == "agc") return QString::number(s.agc);
    if (name == "notchHz") return QString::number(s.notchHz);
    if (name == "contour") return s.contour;
    ADD_FAILURE() << "no field " << name.toStdString();
    return {};
}

// Frames as the rig receives them, hex with free spacing, and the setting they leave.
struct WriteCase {
    const char* rig;
    const char* frames;
    const char* field;
    const char* value;
};

std::string WriteCaseName(const ::testing::TestParamInfo<WriteCase>& info) {
    return std::string(info.param.rig) + "_" + std::to_string(info.index);
}

class BinaryWrite : public ::testing::TestWithParam<WriteCase> {};

TEST_P(BinaryWrite, ChangesTheRig) {
    const WriteCase& c = GetParam();
    auto rig = RigSim::create(c.rig);
    ASSERT_TRUE(rig);
    int64_t now = 0;
    const QString name = c.rig;
    if (name == "FT847" || name == "VR5000") Ask(*rig, Hex("00 00 00 00 00"), now);  // CAT on
    Ask(*rig, Hex(c.frames), now);
    EXPECT_EQ(Field(rig->state(), c.field).toStdString(), c.value) << c.frames;
}

INSTANTIATE_TEST_SUITE_P(
    Ft817Family, BinaryWrite,
    ::testing::Values(
        // Tone in BCD tenths of a hertz; the FT-817 takes only P1 P2.
        WriteCase{"FT817", "08 85 00 00 0b", "toneDeciHz", "885"},
        WriteCase{"FT817ND", "08 85 11 88 0b", "toneDecodeDeciHz", "0"},
        WriteCase{"FT857", "11 88 11 88 0b", "toneDeciHz", "1188"},
        WriteCase{"FT897D", "25 41 10 00 0b", "toneDecodeDeciHz", "1000"},
        WriteCase{"FT857D", "08 85 00 00 0b  0a 85 00 00 0b", "toneDeciHz", "885"},
        WriteCase{"FT817", "4a 00 00 00 0a", "toneMode", "encode"},
        WriteCase{"FT857", "2a 00 00 00 0a", "toneMode", "squelch"},
        WriteCase{"FT897", "4a 00 00 00 0a  8a 00 00 00 0a", "toneMode", "off"},
        WriteCase{"FT817ND", "0a 00 00 00 0a", "toneMode", "dcs"},
        WriteCase{"FT857D", "2a 00 00 00 0a  77 00 00 00 0a", "toneMode", "squelch"},
        WriteCase{"FT817", "09 00 00 00 09", "shift", "-"},
        WriteCase{"FT897D", "49 00 00 00 09", "shift", "+"},
        WriteCase{"FT857", "49 00 00 00 09  89 00 00 00 09", "shift", "0"},
        WriteCase{"FT817", "00 06 00 00 f9", "offsetHz", "600000"},
        WriteCase{"FT897", "00 76 00 00 f9", "offsetHz", "7600000"},
        WriteCase{"FT857", "00 06 00 00 f9  0a 00 00 00 f9", "offsetHz", "600000"},
        WriteCase{"FT857", "82 00 00 00 07", "mode", "CWN"},
        WriteCase{"FT817", "88 00 00 00 07", "mode", "FMN"},
        WriteCase{"FT897", "0c 00 00 00 07", "mode", "PKT"},
        WriteCase{"FT817", "02 00 00 00 07  05 00 00 00 07", "mode", "CW"},
        WriteCase{"FT857", "00 00 00 00 81", "frequencyHz", "7050000"},
        WriteCase{"FT857", "00 00 00 00 81  00 00 00 00 81", "vfoB", "0"}),
    WriteCaseName);

INSTANTIATE_TEST_SUITE_P(
    Ft847, BinaryWrite,
    ::testing::Values(WriteCase{"FT847", "3f 00 00 00 0b", "toneNumber", "63"},
                      WriteCase{"FT847", "4a 00 00 00 0a", "toneMode", "encode"},
                      WriteCase{"FT847", "2a 00 00 00 0a", "toneMode", "squelch"},
                      WriteCase{"FT847", "2a 00 00 00 0a  8a 00 00 00 0a", "toneMode", "off"},
                      WriteCase{"FT847", "09 00 00 00 09", "shift", "-"},
                      WriteCase{"FT847", "49 00 00 00 09", "shift", "+"},
                      WriteCase{"FT847", "00 06 00 00 f9", "offsetHz", "600000"},
                      WriteCase{"FT847", "83 00 00 00 07", "mode", "CWRN"},
                      WriteCase{"FT847", "84 00 00 00 07", "mode", "AMN"},
                      WriteCase{"FT847", "00 70 74 00 01", "frequencyHz", "7074000"}),
    WriteCaseName);

INSTANTIATE_TEST_SUITE_P(
    StatusBlockRigs, BinaryWrite,
    ::testing::Values(
        // 0A sets VFO A and 8A VFO B, BCD least significant pair first.
        WriteCase{"FT920", "00 00 71 00 8a", "vfoBHz", "7100000"},
        WriteCase{"FT1000MP", "00 00 71 00 8a", "frequencyHz", "14250000"},
        WriteCase{"FRG100", "00 00 71 00 8a", "frequencyHz", "14250000"},
        WriteCase{"FT1000MP", "00 00 00 01 05", "frequencyHz", "7050000"},
        WriteCase{"FT920", "00 00 00 01 05  00 00 00 00 05", "vfoB", "0"},
        WriteCase{"FRG100", "00 00 00 01 05", "vfoB", "0"},
        WriteCase{"FT1000MP", "00 00 00 01 05  00 74 10 02 0a", "vfoBHz", "21074000"},
        WriteCase{"FT920", "00 00 00 01 05  00 00 71 00 8a", "frequencyHz", "7100000"},
        // Each rig's own mode numbers.
        WriteCase{"FRG100", "00 00 00 03 0c", "mode", "CWN"},
        WriteCase{"FRG100", "00 00 00 05 0c", "mode", "AMN"},
        WriteCase{"FRG100", "00 00 00 06 0c", "mode", "FM"},
        WriteCase{"FRG100", "00 00 00 07 0c", "mode", "USB"},
        WriteCase{"FT1000MP", "00 00 00 05 0c", "mode", "AMS"},
        WriteCase{"FT1000MP", "00 00 00 07 0c", "mode", "WFM"},
        WriteCase{"FT1000MP", "00 00 00 0a 0c", "mode", "PKTL"},
        WriteCase{"FT920", "00 00 00 07 0c", "mode", "FMN"},
        WriteCase{"FT920", "00 00 00 09 0c", "mode", "RTYL"},
        WriteCase{"FT920", "00 00 00 0a 0c", "mode", "RTYU"},
        WriteCase{"FT920", "00 00 00 05 0c", "mode", "USB"},
        // FT-920 repeater, tuner and filter.
        WriteCase{"FT920", "00 00 00 01 84", "shift", "-"},
        WriteCase{"FT920", "00 00 00 02 84", "shift", "+"},
        WriteCase{"FT920", "00 00 00 02 84  00 00 00 00 84", "shift", "0"},
        WriteCase{"FT920", "00 00 00 0c 90", "toneNumber", "12"},
        WriteCase{"FT920", "00 00 00 0c 90", "toneMode", "encode"},
        WriteCase{"FT920", "00 00 0c 0c 90", "toneDecodeNumber", "12"},
        WriteCase{"FT920", "00 00 0c 0c 90", "toneMode", "squelch"},
        WriteCase{"FT920", "00 00 0c 0c 90  00 00 00 00 90", "toneMode", "off"},
        WriteCase{"FT1000MP", "00 00 00 0c 90", "toneMode", "off"},
        WriteCase{"FT920", "00 00 00 01 81", "tunerIn", "1"},
        WriteCase{"FT920", "00 00 00 01 81  00 00 00 00 81", "tunerIn", "0"},
        WriteCase{"FT920", "00 00 00 01 81  00 00 00 00 82  00 00 00 00 82", "tuneStarts", "2"},
        WriteCase{"FT920", "00 00 00 00 82", "tuneStarts", "0"},
        WriteCase{"FT920", "00 00 00 02 8c", "narrow", "1"},
        WriteCase{"FT920", "00 00 00 02 8c  00 00 00 01 8c", "narrow", "0"},
        WriteCase{"FT920", "00 00 00 06 0c  00 00 00 02 8c", "mode", "FMN"},
        WriteCase{"FT920", "00 00 00 07 0c  00 00 00 01 8c", "mode", "FM"},
        // FT-1000MP bandwidths: P1 the IF, P4 the filter.
        WriteCase{"FT1000MP", "01 00 00 03 8c", "filter82Hz", "250"},
        WriteCase{"FT1000MP", "01 00 00 00 8c", "filter82Hz", "2400"},
        WriteCase{"FT1000MP", "02 00 00 04 8c", "filter455Hz", "6000"},
        WriteCase{"FT1000MP", "02 00 00 01 8c", "filter455Hz", "2000"},
        WriteCase{"FT1000MP", "02 00 00 02 8c", "filter82Hz", "0"}),
    WriteCaseName);

// A mode written with 0C and read back from the VFO record: byte 0 (the FT-1000MP's
// alternate flag) and byte 7.
struct ModeRecordCase {
    const char* rig;
    const char* write;
    const char* bytes0and7;
};

class StatusBlockMode : public ::testing::TestWithParam<ModeRecordCase> {};

TEST_P(StatusBlockMode, ReadsBackInTheRecord) {
    auto rig = RigSim::create(GetParam().rig);
    int64_t now = 0;
    Ask(*rig, Hex(GetParam().write), now);
    const QByteArray r = Ask(*rig, Hex("00 00 00 02 10"), now);
    ASSERT_GT(r.size(), 7);
    EXPECT_EQ((r.left(1) + r.mid(7, 1)).toHex(), GetParam().bytes0and7) << GetParam().write;
}

INSTANTIATE_TEST_SUITE_P(
    Rigs, StatusBlockMode,
    ::testing::Values(ModeRecordCase{"FRG100", "00 00 00 03 0c", "0002"},
                      ModeRecordCase{"FRG100", "00 00 00 05 0c", "0003"},
                      ModeRecordCase{"FRG100", "00 00 00 06 0c", "0004"},
                      ModeRecordCase{"FT1000MP", "00 00 00 03 0c", "8002"},
                      ModeRecordCase{"FT1000MP", "00 00 00 05 0c", "8003"},
                      ModeRecordCase{"FT1000MP", "00 00 00 07 0c", "0004"},
                      ModeRecordCase{"FT1000MP", "00 00 00 08 0c", "0005"},
                      ModeRecordCase{"FT1000MP", "00 00 00 09 0c", "8005"},
                      ModeRecordCase{"FT1000MP", "00 00 00 0b 0c", "8006"},
                      ModeRecordCase{"FT920", "00 00 00 00 0c", "0000"},
                      ModeRecordCase{"FT920", "00 00 00 02 0c", "0041"},
                      ModeRecordCase{"FT920", "00 00 00 03 0c", "0001"},
                      ModeRecordCase{"FT920", "00 00 00 07 0c", "0083"},
                      ModeRecordCase{"FT920", "00 00 00 09 0c", "0004"},
                      ModeRecordCase{"FT920", "00 00 00 0b 0c", "0006"},
                      ModeRecordCase{"FT920", "00 00 00 04 0c  00 00 00 02 8c", "0082"},
                      ModeRecordCase{"FT920", "00 00 00 01 0c  00 00 00 02 8c", "00c0"}),
    [](const auto& info) {
        return std::string(info.param.rig) + "_" + std::to_string(info.index);
    });

TEST(Ft920, ReportsVfoBInItsFlagsAndKeepsVfoAFirst) {
    auto rig = RigSim::create("FT920");
    int64_t now = 0;
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 01 fa"), now).left(2).toHex(), "0020");
    Ask(*rig, Hex("00 00 00 01 05"), now);
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 01 fa"), now).left(1).toHex(), "03");  // RX and TX on B
    Ask(*rig, Hex("00 00 00 01 01"), now);                                   // split: transmit on A
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 01 fa"), now).left(1).toHex(), "02");
    const QByteArray r = Ask(*rig, Hex("00 00 00 02 10"), now);
    ASSERT_EQ(r.size(), 28);
    EXPECT_EQ(r.mid(1, 4).toHex(), "00d97010");   // VFO A: 14 250 000 Hz
    EXPECT_EQ(r.mid(15, 4).toHex(), "006b9310");  // VFO B: 7 050 000 Hz
}

TEST(Ft920, ShowsTheTunerInItsFlags) {
    auto rig = RigSim::create("FT920");
    int64_t now = 0;
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 01 fa"), now).mid(2, 1).toHex(), "00");
    Ask(*rig, Hex("00 00 00 01 81"), now);
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 01 fa"), now).mid(2, 1).toHex(), "02");
}

TEST(Ft1000mp, GivesTheVfoInUseAndBothInOrder) {
    auto rig = RigSim::create("FT1000MP");
    int64_t now = 0;
    Ask(*rig, Hex("00 00 00 01 05"), now);
    // 7 050 000 Hz times 1.6 is 0x00AC1E80.
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 02 10"), now).mid(1, 4).toHex(), "00ac1e80");
    const QByteArray both = Ask(*rig, Hex("00 00 00 03 10"), now);
    ASSERT_EQ(both.size(), 32);
    EXPECT_EQ(both.mid(1, 4).toHex(), "015be680");   // VFO A: 14 250 000 Hz
    EXPECT_EQ(both.mid(17, 4).toHex(), "00ac1e80");  // VFO B
}

TEST(Ft1000mp, ShowsItsBandwidthsInByte8) {
    auto rig = RigSim::create("FT1000MP");
    int64_t now = 0;
    Ask(*rig, Hex("01 00 00 03 8c  02 00 00 00 8c"), now);  // 250 Hz at 8.2 MHz, 2.4 kHz at 455
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 02 10"), now).mid(8, 1).toHex(), "41");
    Ask(*rig, Hex("01 00 00 04 8c  02 00 00 02 8c"), now);  // 6 kHz, 500 Hz
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 02 10"), now).mid(8, 1).toHex(), "03");
}

TEST(StatusBlockRigs, AnswerNoWrite) {
    for (const char* name : {"FT920", "FT1000MP", "FRG100"}) {
        auto rig = RigSim::create(name);
        int64_t now = 0;
        EXPECT_TRUE(Ask(*rig,
                        Hex("00 00 00 01 05  00 00 00 07 0c  00 00 71 00 8a  00 00 00 02 8c"
                            "00 00 00 0c 90  00 00 00 01 84  00 00 00 01 81"),
                        now)
                        .isEmpty())
            << name;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Vr5000, BinaryWrite,
    ::testing::Values(WriteCase{"VR5000", "88 05 00 00 07", "mode", "FMN"},
                      WriteCase{"VR5000", "88 05 00 00 07", "stepCode", "5"},
                      WriteCase{"VR5000", "44 03 00 00 07", "mode", "WAM"},
                      WriteCase{"VR5000", "48 0a 00 00 07", "mode", "WFM"},
                      WriteCase{"VR5000", "84 02 00 00 07", "mode", "AMN"},
                      WriteCase{"VR5000", "02 01 00 00 07  33 01 00 00 07", "mode", "CW"},
                      WriteCase{"VR5000", "84 02 00 00 07", "subOn", "0"},
                      WriteCase{"VR5000", "00 01 00 00 37", "subMode", "LSB"},
                      WriteCase{"VR5000", "00 01 00 00 37", "subStepCode", "1"},
                      WriteCase{"VR5000", "00 01 00 00 37", "subOn", "1"},
                      WriteCase{"VR5000", "00 01 00 00 37", "mode", "USB"},
                      // 145.500 MHz: 14 550 000 tens of hertz, 0x00DE03F0.
                      WriteCase{"VR5000", "00 de 03 f0 31", "vfoBHz", "145500000"},
                      WriteCase{"VR5000", "00 de 03 f0 31", "subOn", "1"},
                      WriteCase{"VR5000", "00 de 03 f0 31", "frequencyHz", "14250000"},
                      WriteCase{"VR5000", "00 de 03 f0 31  00 00 00 00 31", "subOn", "0"},
                      WriteCase{"VR5000", "00 de 03 f0 31  00 00 00 00 31", "vfoBHz", "145500000"}),
    WriteCaseName);

TEST(Vr5000, TakesModesOnlyInCatModeAndAnswersNoWrite) {
    auto rig = RigSim::create("VR5000");
    int64_t now = 0;
    Ask(*rig, Hex("88 05 00 00 07  00 de 03 f0 31"), now);
    EXPECT_EQ(rig->state().mode, "USB");
    EXPECT_FALSE(rig->state().subOn);
    Ask(*rig, Hex("00 00 00 00 00"), now);
    EXPECT_TRUE(Ask(*rig, Hex("88 05 00 00 07  00 de 03 f0 31  04 03 00 00 37"), now).isEmpty());
    EXPECT_EQ(rig->state().mode, "FMN");
    EXPECT_EQ(rig->state().subMode, "AM");
    EXPECT_EQ(Ask(*rig, Hex("00 00 00 00 e7"), now).size(), 1);
}

TEST(Ft817Family, AnswersEachWriteWithOneByte) {
    auto rig = RigSim::create("FT897");
    int64_t now = 0;
    for (const char* frame : {"08 85 08 85 0b", "4a 00 00 00 0a", "09 00 00 00 09",
                              "00 06 00 00 f9", "00 68 81 00 bc", "00 00 00 00 02"})
        EXPECT_EQ(Ask(*rig, Hex(frame), now).toHex(), "00") << frame;
}

TEST(Ft847, TakesRepeaterSettingsOnlyInCatModeAndAnswersNothing) {
    auto rig = RigSim::create("FT847");
    int64_t now = 0;
    EXPECT_TRUE(Ask(*rig, Hex("3f 00 00 00 0b  4a 00 00 00 0a  49 00 00 00 09"), now).isEmpty());
    EXPECT_EQ(rig->state().toneNumber, -1);
    EXPECT_EQ(rig->state().toneMode, "off");
    EXPECT_EQ(rig->state().shift, "0");
    Ask(*rig, Hex("00 00 00 00 00"), now);
    EXPECT_TRUE(Ask(*rig, Hex("3f 00 00 00 0b  4a 00 00 00 0a  49 00 00 00 09"), now).isEmpty());
    EXPECT_EQ(rig->state().toneNumber, 63);
    EXPECT_EQ(rig->state().shift, "+");
    EXPECT_EQ(Ask(*rig, Hex("84 00 00 00 07  00 00 00 00 03"), now).toHex(), "0142500084");
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

INSTANTIATE_TEST_SUITE_P(
    Commands, Ft450Text,
    ::testing::Values(
        TextCase{"ID;", "ID0241;"}, TextCase{"FA;", "FA14250000;"}, TextCase{"MD0;", "MD02;"},
        TextCase{"XX;", "?;"}, TextCase{"AI0;", ""}, TextCase{"IF;", "IF00114250000+000000200000;"},
        TextCase{"ID;FA;", "ID0241;FA14250000;"},
        // Each set command is read back by its query.
        TextCase{"RA01;RA0;", "RA01;"}, TextCase{"RA01;RA00;RA0;", "RA00;"},
        TextCase{"PA01;PA0;", "PA01;"}, TextCase{"GT02;GT0;", "GT02;"},
        TextCase{"GT04;GT0;", "GT04;"}, TextCase{"AC001;AC;", "AC001;"},
        TextCase{"AC002;AC;", "AC002;"}, TextCase{"AC001;AC000;AC;", "AC000;"},
        TextCase{"SH0;", "SH016;"}, TextCase{"SH031;SH0;", "SH031;"},
        TextCase{"SH000;SH0;", "SH000;"}, TextCase{"NB01;NB0;", "NB01;"},
        TextCase{"NR01;NR0;", "NR01;"}, TextCase{"RL007;RL0;", "RL007;"},
        TextCase{"AG0200;AG0;", "AG0200;"}, TextCase{"RG0255;RG0;", "RG0255;"},
        TextCase{"BP00001;BP00;", "BP00001;"}, TextCase{"BP01400;BP01;", "BP01400;"},
        TextCase{"CO00-1;CO00;", "CO00-1;"}, TextCase{"CO0120;CO01;", "CO0120;"},
        TextCase{"EX0581;EX058;", "EX0581;"}, TextCase{"EX0581;EX0580;EX058;", "EX0580;"},
        TextCase{"CN012CT01;CN0;CT0;", "CN012;CT01;"}, TextCase{"OS02;OS0;", "OS02;"},
        // IF: memory state, tone mode, tone number and shift after the mode digit.
        TextCase{"CN012CT01;OS02;IF;", "IF00114250000+000000201122;"},
        TextCase{"CN008CT02;OS01;IF;", "IF00114250000+000000202081;"},
        TextCase{"CT03;IF;", "IF00114250000+000000203000;"},
        TextCase{"VM;IF;", "IF00114250000+000000210000;"},
        // A set command without its ";" and the command glued to it.
        TextCase{"MD08FA07074000;FA;MD0;", "FA07074000;MD08;"}, TextCase{"MD0BFA;", "FA14250000;"},
        // VFO A=B: the other VFO takes the frequency of the one in use.
        TextCase{"VS1;VV;FA;", "FA07050000;"}, TextCase{"VV;FB;", "FB14250000;"},
        // Values the rig does not have.
        TextCase{"MD0A;", "?;"}, TextCase{"GT07;", "?;"}, TextCase{"OS03;", "?;"},
        TextCase{"VS2;", "?;"}, TextCase{"CT04;", "?;"}, TextCase{"AC003;", "?;"},
        TextCase{"EX0582;", "?;"}, TextCase{"CN0;", "CN000;"}));

class Ft450Write : public ::testing::TestWithParam<WriteCase> {};

TEST_P(Ft450Write, ChangesTheRig) {
    const WriteCase& c = GetParam();
    auto rig = RigSim::create("FT450");
    int64_t now = 0;
    EXPECT_TRUE(Ask(*rig, c.frames, now).isEmpty()) << c.frames;
    EXPECT_EQ(Field(rig->state(), c.field).toStdString(), c.value) << c.frames;
}

INSTANTIATE_TEST_SUITE_P(
    Commands, Ft450Write,
    ::testing::Values(
        WriteCase{"", "CN012CT01;", "toneNumber", "12"},
        WriteCase{"", "CN012CT01;", "toneMode", "squelch"},
        WriteCase{"", "CN005CT02;", "toneMode", "encode"},
        WriteCase{"", "CN005CT02;CT00;", "toneMode", "off"}, WriteCase{"", "OS01;", "shift", "+"},
        WriteCase{"", "OS02;", "shift", "-"}, WriteCase{"", "OS01;OS00;", "shift", "0"},
        WriteCase{"", "EX050006;", "offsetHz", "600000"},
        WriteCase{"", "EX050076;", "offsetHz", "7600000"},
        WriteCase{"", "EX0581;", "sqlIsRfGain", "1"}, WriteCase{"", "MD08", "mode", "USRL"},
        WriteCase{"", "MD08FA07074000;", "mode", "USRL"},
        WriteCase{"", "MD08FA07074000;", "frequencyHz", "7074000"},
        WriteCase{"", "MD0C;", "mode", "USRU"}, WriteCase{"", "VV;", "vfoEqualCount", "1"},
        WriteCase{"", "VV;", "vfoBHz", "14250000"}, WriteCase{"", "VM;", "memoryMode", "1"},
        WriteCase{"", "VM;VM;", "memoryMode", "0"}, WriteCase{"", "AC002;", "tuneStarts", "1"},
        WriteCase{"", "AC002;", "tunerState", "2"}, WriteCase{"", "GT01;", "agc", "1"},
        WriteCase{"", "BP01123;", "notchHz", "123"}, WriteCase{"", "CO00-2;", "contour", "CO00-2"},
        WriteCase{"", "TX1;", "ptt", "1"}, WriteCase{"", "TX1;TX0;", "ptt", "0"}),
    [](const auto& info) { return std::to_string(info.index); });

TEST(Ft450, TakesASetCommandByItsLengthAcrossWrites) {
    auto rig = RigSim::create("FT450");
    int64_t now = 0;
    EXPECT_TRUE(Ask(*rig, "CN012", now).isEmpty());
    EXPECT_EQ(rig->state().toneNumber, 12);
    EXPECT_TRUE(Ask(*rig, "CT01;", now).isEmpty());
    EXPECT_EQ(rig->state().toneMode, "squelch");
    EXPECT_TRUE(Ask(*rig, "MD08", now).isEmpty());
    EXPECT_EQ(rig->state().mode, "USRL");
    EXPECT_TRUE(Ask(*rig, ";", now).isEmpty());  // the late end of "MD08"
    EXPECT_EQ(Ask(*rig, ";", now), "?;");        // a second one is nothing
    Ask(*rig, "MD01", now);
    EXPECT_EQ(Ask(*rig, "IF;", now), "IF00114250000+000000101120;");
}

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
