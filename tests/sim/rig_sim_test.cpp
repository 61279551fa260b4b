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

// The rig's state as "name=value" words, for the fields a table names.
QString Fields(const RigState& s, const QString& names) {
    QStringList out;
    for (const QString& word : names.split(' ', Qt::SkipEmptyParts)) {
        const QString name = word.section('=', 0, 0);
        const std::map<QString, QString> all = {
            {"frequencyHz", QString::number(s.frequencyHz)},
            {"vfoBHz", QString::number(s.vfoBHz)},
            {"mode", s.mode},
            {"vfoB", QString::number(s.vfoB)},
            {"toneDeciHz", QString::number(s.toneDeciHz)},
            {"toneDecodeDeciHz", QString::number(s.toneDecodeDeciHz)},
            {"toneNumber", QString::number(s.toneNumber)},
            {"toneDecodeNumber", QString::number(s.toneDecodeNumber)},
            {"toneMode", s.toneMode},
            {"shift", s.shift},
            {"offsetHz", QString::number(s.offsetHz)},
            {"subOn", QString::number(s.subOn)},
            {"subMode", s.subMode},
            {"stepCode", QString::number(s.stepCode)},
            {"subStepCode", QString::number(s.subStepCode)},
            {"tunerIn", QString::number(s.tunerIn)},
            {"tuneStarts", QString::number(s.tuneStarts)},
            {"ptt", QString::number(s.ptt)}};
        const auto it = all.find(name);
        out << name + "=" + (it == all.end() ? "<no such field>" : it->second);
    }
    return out.join(' ');
}

TEST(FrequencyRead, AnswersInTheRigsLayout) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"FT817", "0000000003", "0142500001"},
        {"FT857D", "0000000003", "0142500001"},
        {"FT847", "0000000003", "0142500001"},
        // FRG-100: 10 Hz units, least significant byte first, from byte 2.
        {"FRG100", "0000000210", "000068be150000010000000000000000000000"},
        // FT-1000MP: the frequency times 1.6, big-endian, in bytes 1 to 4.
        {"FT1000MP", "0000000210", "00015be6800000010000000000000000"},
    };
    for (const auto& [name, command, reply] : cases) {
        auto rig = RigSim::create(name);
        ASSERT_TRUE(rig) << name;
        int64_t now = 0;
        if (QString(name) == "FT847") Ask(*rig, Hex("0000000000"), now);  // CAT on
        EXPECT_EQ(Ask(*rig, Hex(command), now).toHex(' '), Hex(reply).toHex(' ')) << name;
    }
}

TEST(Ft920, GivesBothVfosInHertzAndItsFlags) {
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

TEST(Ft817Family, AcknowledgesEachWriteAndKeys) {
    int64_t now = 0;
    auto writes = RigSim::create("FT897");
    for (const char* frame :
         {"00 68 81 00 bc", "00 70 74 00 01", "00 00 00 00 07", "08 85 08 85 0b", "4a 00 00 00 0a",
          "09 00 00 00 09", "00 06 00 00 f9", "00 00 00 00 02"})
        EXPECT_EQ(Ask(*writes, Hex(frame), now).toHex(), "00") << frame;
    EXPECT_EQ(writes->state().frequencyHz, 7074000);
    EXPECT_EQ(writes->state().mode, "LSB");
    auto rig = RigSim::create("FT897");
    EXPECT_EQ(Ask(*rig, Hex("0000000008"), now).toHex(), "00");
    EXPECT_LT(static_cast<uint8_t>(Ask(*rig, Hex("00000000f7"), now)[0]), 0x80);  // on the air
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
TEST(Ft817Family, TheVfoByteSelectsTheVfo) {
    struct Case {
        const char* rig;
        const char* toB;    // write that selects VFO B
        const char* read;   // read of the two bytes from the live address
        const char* readB;  // its reply on VFO B
        const char* toA;
        const char* readA;
    };
    const Case cases[] = {
        // FT-817: bit 0 of 0x55, not of 0x54; the write at 0x54 carries 0x55 as its second byte.
        {"FT817", "00 54 80 01 bc", "00 54 00 00 bb", "8001", "00 54 81 00 bc", "8100"},
        {"FT817ND", "00 55 01 00 bc", "00 55 00 00 bb", "0100", "00 55 00 00 bc", "0000"},
        // FT-857/897: bit 0 of 0x68, bit 7 set while on a VFO.
        {"FT857D", "00 68 81 00 bc", "00 68 00 00 bb", "8100", "00 68 80 00 bc", "8000"},
        {"FT897", "00 67 00 81 bc", "00 68 00 00 bb", "8100", "00 67 00 80 bc", "8000"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rig);
        auto rig = RigSim::create(c.rig);
        int64_t now = 0;
        EXPECT_EQ(Ask(*rig, Hex(c.toB), now).toHex(), "00");
        EXPECT_EQ(Ask(*rig, Hex("0000000003"), now).toHex(), "0070500001");  // 7.05000 MHz
        EXPECT_EQ(Ask(*rig, Hex(c.read), now).toHex(), c.readB);
        Ask(*rig, Hex(c.toB), now);  // again: stays on B
        EXPECT_EQ(rig->state().frequencyHz, 7050000);
        Ask(*rig, Hex(c.toA), now);
        EXPECT_EQ(Ask(*rig, Hex("0000000003"), now).toHex(), "0142500001");
        EXPECT_EQ(Ask(*rig, Hex(c.read), now).toHex(), c.readA);
    }
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
    EXPECT_EQ(quiet & 0x8F, 0x80);  // no signal, squelch closed
}

// Frames as the rig receives them, hex with free spacing, and the settings they leave.
struct WriteCase {
    const char* rig;
    const char* frames;
    const char* fields;
};

TEST(BinaryWrite, ChangesTheRig) {
    const WriteCase cases[] = {
        // Tone in BCD tenths of a hertz; the FT-817 takes only P1 P2.
        {"FT817", "08 85 11 88 0b", "toneDeciHz=885 toneDecodeDeciHz=0"},
        {"FT897D", "25 41 10 00 0b", "toneDeciHz=2541 toneDecodeDeciHz=1000"},
        {"FT817", "4a 00 00 00 0a", "toneMode=encode"},
        {"FT817", "09 00 00 00 09", "shift=-"},
        {"FT817", "00 06 00 00 f9", "offsetHz=600000"},
        {"FT857", "82 00 00 00 07", "mode=CWN"},
        {"FT897", "0c 00 00 00 07", "mode=PKT"},
        {"FT857", "00 00 00 00 81", "frequencyHz=7050000 vfoB=1"},
        // The FT-847, in CAT mode.
        {"FT847", "3f 00 00 00 0b  4a 00 00 00 0a", "toneNumber=63 toneMode=encode"},
        {"FT847", "09 00 00 00 09  00 06 00 00 f9", "shift=- offsetHz=600000"},
        {"FT847", "00 70 74 00 01", "frequencyHz=7074000"},
        // 0A sets VFO A and 8A VFO B, BCD least significant pair first.
        {"FT920", "00 74 70 00 0a  00 00 71 00 8a", "frequencyHz=7074000 vfoBHz=7100000"},
        {"FT1000MP", "00 00 71 00 8a", "frequencyHz=14250000"},
        {"FRG100", "00 00 71 00 8a", "frequencyHz=14250000"},
        {"FT1000MP", "00 00 00 01 05", "frequencyHz=7050000"},
        {"FT1000MP", "00 00 00 01 05  00 74 10 02 0a", "vfoBHz=21074000"},
        // FT-920 repeater, tone, tuner and filter.
        {"FT920", "00 00 00 01 84", "shift=-"},
        {"FT920", "00 00 00 0c 90", "toneNumber=12 toneMode=encode"},
        {"FT920", "00 00 0c 0c 90", "toneDecodeNumber=12 toneMode=squelch"},
        {"FT920", "00 00 00 01 81  00 00 00 00 82  00 00 00 00 82", "tunerIn=1 tuneStarts=2"},
        {"FT920", "00 00 00 01 81  00 00 00 00 81  00 00 00 00 82", "tunerIn=0 tuneStarts=0"},
        // The VR-5000 in CAT mode: mode and step, the sub receiver, and its frequency.
        {"VR5000", "88 05 00 00 07", "mode=FMN stepCode=5"},
        {"VR5000", "00 01 00 00 37", "subMode=LSB subStepCode=1 subOn=1 mode=USB"},
        // 145.500 MHz: 14 550 000 tens of hertz, 0x00DE03F0.
        {"VR5000", "00 de 03 f0 31", "vfoBHz=145500000 subOn=1 frequencyHz=14250000"},
        {"VR5000", "00 de 03 f0 31  00 00 00 00 31", "subOn=0 vfoBHz=145500000"},
    };
    for (const WriteCase& c : cases) {
        auto rig = RigSim::create(c.rig);
        ASSERT_TRUE(rig) << c.rig;
        int64_t now = 0;
        const QString name = c.rig;
        if (name == "FT847" || name == "VR5000") Ask(*rig, Hex("00 00 00 00 00"), now);  // CAT on
        Ask(*rig, Hex(c.frames), now);
        EXPECT_EQ(Fields(rig->state(), c.fields).toStdString(), c.fields)
            << c.rig << ": " << c.frames;
    }
}

// A mode number written with 0C (and after the plus, the narrow filter with 8C), as the rig
// keeps it and as the VFO record carries it: byte 0 (the FT-1000MP's alternate flag) and byte
// 7. The FRG-100 has no mode 7: nothing changes.
TEST(StatusBlockRigs, TakeEachRigsModeNumbersAndReadThemBack) {
    const QString cases =
        "FRG100 03 CWN 0002, FRG100 06 FM 0004, FRG100 07 USB 0001, FT1000MP 03 CWR 8002, "
        "FT1000MP 05 AMS 8003, FT1000MP 08 RTYL 0005, FT1000MP 09 RTYU 8005, "
        "FT1000MP 0b PKTF 8006, FT920 02 CW 0041, FT920 05 USB 0040, FT920 07 FMN 0083, "
        "FT920 0a RTYU 0005, FT920 07+01 FM 0003, FT920 04+02 AMN 0082, FT920 01+02 USB 00c0";
    for (const QString& c : cases.split(", ")) {
        SCOPED_TRACE(c.toStdString());
        const QStringList f = c.split(' ');
        const QStringList codes = f[1].split('+');
        QByteArray frames = Hex(("000000" + codes[0] + "0c").toLatin1());
        if (codes.size() > 1) frames += Hex(("000000" + codes[1] + "8c").toLatin1());
        auto rig = RigSim::create(f[0]);
        int64_t now = 0;
        Ask(*rig, frames, now);
        EXPECT_EQ(rig->state().mode, f[2]);
        const QByteArray r = Ask(*rig, Hex("00 00 00 02 10"), now);
        ASSERT_GT(r.size(), 7);
        EXPECT_EQ((r.left(1) + r.mid(7, 1)).toHex(), f[3]);
    }
}

// The status block rigs answer no write; the FT-847 and the VR-5000 answer none and take
// nothing outside CAT mode.
TEST(SilentRigs, AnswerNoWriteAndTakeNothingOutsideCatMode) {
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
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"FT847", "3f 00 00 00 0b  4a 00 00 00 0a  49 00 00 00 09  00 70 74 00 01",
         "toneNumber=-1 toneMode=off shift=0 frequencyHz=14250000",
         "toneNumber=63 toneMode=encode shift=+ frequencyHz=7074000"},
        {"VR5000", "88 05 00 00 07  02 03 00 00 37  00 de 21 3c 01",
         "mode=USB subMode=AM frequencyHz=14250000", "mode=FMN subMode=CW frequencyHz=145575000"},
    };
    for (const auto& [name, frames, before, after] : cases) {
        auto rig = RigSim::create(name);
        int64_t now = 0;
        EXPECT_TRUE(Ask(*rig, Hex("0000000003"), now).isEmpty()) << name;
        EXPECT_TRUE(Ask(*rig, Hex(frames), now).isEmpty()) << name;
        EXPECT_EQ(Fields(rig->state(), before).toStdString(), before);
        Ask(*rig, Hex("0000000000"), now);
        EXPECT_TRUE(Ask(*rig, Hex(frames), now).isEmpty()) << name;
        EXPECT_EQ(Fields(rig->state(), after).toStdString(), after);
        EXPECT_EQ(Ask(*rig, Hex("00000000e7"), now).size(), 1) << name;
    }
    auto ft847 = RigSim::create("FT847");
    int64_t now = 0;
    Ask(*ft847, Hex("0000000000"), now);
    EXPECT_EQ(Ask(*ft847, Hex("84 00 00 00 07  00 00 00 00 03"), now).toHex(), "0142500084");
    Ask(*ft847, Hex("0000000080"), now);
    EXPECT_FALSE(ft847->state().catOn);
    auto frg = RigSim::create("FRG100");
    Ask(*frg, Hex("0000000020"), now);
    EXPECT_FALSE(frg->state().poweredOn);
    Ask(*frg, Hex("0000000120"), now);
    EXPECT_TRUE(frg->state().poweredOn);
}

// Queries; each set command read back by its query; IF with memory state, tone mode, tone
// number and shift after the mode digit; a set command without its ";" and one glued to it;
// VFO A=B, where the other VFO takes the frequency of the one in use; values it does not have.
TEST(Ft450, AnswersItsTexts) {
    // What the rig is sent and, after the bar, its answer; blanks part the cases.
    const QString exchanges =
        "ID;|ID0241; FA;|FA14250000; MD0;|MD02; XX;|?; AI0;| IF;|IF00114250000+000000200000; "
        "ID;FA;|ID0241;FA14250000; RA01;RA00;RA0;|RA00; PA01;PA0;|PA01; GT04;GT0;|GT04; "
        "AC001;AC000;AC;|AC000; SH0;|SH016; SH031;SH0;|SH031; NB01;NB0;|NB01; "
        "NR01;NR0;|NR01; RL007;RL0;|RL007; AG0200;AG0;|AG0200; RG0255;RG0;|RG0255; "
        "BP01400;BP01;|BP01400; CO00-1;CO00;|CO00-1; EX0581;EX0580;EX058;|EX0580; "
        "CN012CT01;CN0;CT0;|CN012;CT01; OS02;OS0;|OS02; VS1;VS0;VS;|VS0; "
        "CN012CT01;OS02;IF;|IF00114250000+000000201122; "
        "CN008CT02;OS01;IF;|IF00114250000+000000202081; VM;IF;|IF00114250000+000000210000; "
        "MD08FA07074000;FA;MD0;|FA07074000;MD08; MD0BFA;|FA14250000; VS1;VV;FA;|FA07050000; "
        "MD0A;|?; GT07;|?; OS03;|?; VS2;|?; CT04;|?; EX0582;|?;";
    for (const QString& exchange : exchanges.split(' ', Qt::SkipEmptyParts)) {
        auto rig = RigSim::create("FT450");
        int64_t now = 0;
        EXPECT_EQ(Ask(*rig, exchange.section('|', 0, 0).toLatin1(), now), exchange.section('|', 1))
            << exchange.toStdString();
    }
}

TEST(Ft450, SetCommandsChangeTheRig) {
    const std::pair<const char*, const char*> cases[] = {
        {"CN012CT01;", "toneNumber=12 toneMode=squelch"},
        {"CN005CT02;", "toneMode=encode"},
        {"OS01;", "shift=+"},
        {"OS02;", "shift=-"},
        {"EX050006;", "offsetHz=600000"},
        {"MD08FA07074000;", "mode=USRL frequencyHz=7074000"},
        {"MD0C;", "mode=USRU"},
        {"VV;", "vfoBHz=14250000"},
        {"TX1;", "ptt=1"}};
    for (const auto& [frames, fields] : cases) {
        auto rig = RigSim::create("FT450");
        int64_t now = 0;
        EXPECT_TRUE(Ask(*rig, frames, now).isEmpty()) << frames;
        EXPECT_EQ(Fields(rig->state(), fields).toStdString(), fields) << frames;
    }
}

TEST(Ft450, TakesACommandAcrossWrites) {
    auto rig = RigSim::create("FT450");
    int64_t now = 0;
    EXPECT_TRUE(Ask(*rig, "CN012", now).isEmpty());
    EXPECT_EQ(rig->state().toneNumber, 12);
    EXPECT_TRUE(Ask(*rig, "MD08", now).isEmpty());
    EXPECT_EQ(rig->state().mode, "USRL");
    EXPECT_TRUE(Ask(*rig, ";", now).isEmpty());  // the late end of "MD08"
    EXPECT_EQ(Ask(*rig, ";", now), "?;");        // a second one is nothing
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

TEST(Catalogue, EveryRigNameMakesARig) {
    for (const QString& name : RigSim::rigNames())
        EXPECT_TRUE(RigSim::create(name)) << name.toStdString();
    EXPECT_FALSE(RigSim::create("Not set"));
}

}  // namespace
}  // namespace veldor::sim
