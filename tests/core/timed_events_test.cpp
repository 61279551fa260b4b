// TimedEvents.txt: its reading, the frequency record in force at each time of day, the tasks
// of each minute, and the Timed button.
#include "accessories/timed_events.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

const char* kMissing =
    "The TimedEvents.txt file is missing or empty.\r\nAll timed activities are disabled";

// A harness run from a folder of its own, where the test writes TimedEvents.txt.
struct TimedFolder : Harness {
    TimedFolder() : previous(QDir::currentPath()) {
        folder = dir.path() + "/run";
        QDir().mkpath(folder);
        QDir::setCurrent(folder);
        c.f.chkOnOff.value = 1;
    }
    ~TimedFolder() { QDir::setCurrent(previous); }
    void file(const QByteArray& bytes) {
        QFile f(folder + "/TimedEvents.txt");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    void load(const QByteArray& bytes) {
        file(bytes);
        LoadTimedEvents(c);
    }
    // The local time of day the next reading of the clock gives.
    void at(int hour, int minute, int day = 1) {
        clock.utc = QDateTime(QDate(2026, 6, day), QTime(hour, minute), Qt::LocalTime).toUTC();
        clock.now = 0;
    }
    QStringList messages() const {
        QStringList texts;
        for (const ShownMessage& m : dialogs.messages) texts.append(m.text);
        return texts;
    }
    QString previous, folder;
};

TEST(TimedEventsFile, MissingDisablesTheButtonAndAnEmptyOneSaysNothing) {
    TimedFolder missing;
    LoadTimedEvents(missing.c);
    EXPECT_EQ(missing.messages(), QStringList{kMissing});
    EXPECT_FALSE(missing.c.f.cmdTimed.enabled);

    TimedFolder empty;
    empty.load("");
    EXPECT_TRUE(empty.messages().isEmpty());
    EXPECT_TRUE(empty.c.f.cmdTimed.enabled);
    EXPECT_EQ(empty.c.s.TimedEntryLast, -1);
    EXPECT_EQ(empty.c.s.TimedTaskLast, -1);
}

TEST(TimedEventsFile, FillsTheTablesAndTheListInFileOrder) {
    TimedFolder h;
    h.load(
        " 0600 Morning net , 7050 , cw \r\n"
        "\n"
        "\"Backup, nightly 2330\",shell,\"tar czf /tmp/b.tgz '/home/op/log book'\"\r\n"
        "1800 Evening,\"3.650\",LSB");
    EXPECT_TRUE(h.messages().isEmpty());
    const State& s = h.c.s;
    EXPECT_EQ(s.TimedEntryText,
              QStringList({"0600 Morning net 7050 cw", "1800 Evening 3.650 LSB"}));
    EXPECT_EQ(s.TimedEntryFrequency, QStringList({"7050", "3.650"}));
    EXPECT_EQ(s.TimedEntryMode, QStringList({"cw", "LSB"}));
    EXPECT_EQ(s.TimedEntryLast, 1);
    EXPECT_EQ(s.TimedTaskTime, QStringList{"2330"});
    EXPECT_EQ(s.TimedTaskCommand, QStringList{"tar czf /tmp/b.tgz '/home/op/log book'"});
    EXPECT_EQ(s.TimedTaskLast, 0);
    EXPECT_EQ(h.c.f.cboTimedEvents.list, s.TimedEntryText);
}

TEST(TimedEventsFile, TheFirstFrequencyKeepsTheOtherLocalesMark) {
    TimedFolder h;
    h.c.s.DecimalSeparator = ",";
    h.c.s.OtherDecimalSeparator = ".";
    h.load("0600,7.050,CW\n0700,7.060,CW\n0800,\"7,070\",CW\n");
    EXPECT_EQ(h.c.s.TimedEntryFrequency, QStringList({"7.050", "7,060", "7,070"}));
}

TEST(TimedEventsFile, ABadRecordIsNamedByItsNumberAndDisablesEverything) {
    struct Case {
        QByteArray text;
        const char* number;
    };
    const Case cases[] = {
        {"0600,7050,CW\n0700,7060,CW\n0800,7070,SSB\n", " 3"},  // not a mode
        {"0600,7050\n", " 1"},                                  // short
        {"0600,7050,CW,extra\n", " 1"},                         // long
        {"0600,7050,CW\n\n\n\x01\x02\xff\xfe,junk\n", " 2"},    // noise; blank lines are none
    };
    for (const Case& t : cases) {
        TimedFolder h;
        h.load(t.text);
        EXPECT_EQ(h.messages(),
                  QStringList{QString("Problem encountered reading the TimedEvents.txt file at "
                                      "record %1\r\nAll timed activities disabled")
                                  .arg(t.number)})
            << t.text.toStdString();
        EXPECT_FALSE(h.c.f.cmdTimed.enabled);
        EXPECT_TRUE(h.c.f.cboTimedEvents.list.isEmpty());
        EXPECT_EQ(h.c.s.TimedEntryLast, -1);
    }
}

// Two records of 1800 stand last: before the first of the day the first of them is in force
// (the latest time), after 1800 the last one in the file.
const QByteArray kDay =
    "0600 Morning,7050,LSB\n"
    "0900 Net,14.250,USB\n"
    "0900 Net two,14.300,USB\n"
    "1800 Evening,3650,LSB\n"
    "1800 Late,3.700,CW\n";

TEST(RunTimedEvents, TunesToTheRecordInForceAtEachTimeOfDay) {
    struct Case {
        int hour, minute;
        const char* entry;
        int32_t frequency;
        const char* mode;
    };
    const Case cases[] = {
        {5, 59, "1800 Evening 3650 LSB", 365000, "LSB"},  // yesterday's latest
        {6, 0, "0600 Morning 7050 LSB", 705000, "LSB"},   // now equal to a time
        {8, 59, "0600 Morning 7050 LSB", 705000, "LSB"},
        {9, 0, "0900 Net two 14.300 USB", 1430000, "USB"},  // the later of equal times
        {17, 59, "0900 Net two 14.300 USB", 1430000, "USB"},
        {23, 59, "1800 Late 3.700 CW", 370000, "CW"},
    };
    for (const Case& t : cases) {
        TimedFolder h;
        h.load(kDay);
        h.c.s.TimedActive = true;
        h.at(t.hour, t.minute);
        RunTimedEvents(h.c);
        const ComboBox& box = h.c.f.cboTimedEvents;
        ASSERT_GE(box.listIndex, 0) << t.entry;
        EXPECT_EQ(box.list[box.listIndex], t.entry);
        EXPECT_EQ(h.c.s.TargetFrequency, t.frequency) << t.entry;
        EXPECT_EQ(h.c.s.TargetMode, t.mode);
        EXPECT_TRUE(h.c.s.FrequencyChangePending);
        EXPECT_TRUE(h.c.s.TimedActive);
    }
}

TEST(RunTimedEvents, ATaskStartsOnceInItsMinuteAndAgainTheNextDay) {
    TimedFolder h;
    h.load(
        "0600 Net,7050,LSB\n"
        "Log rotate 0700,SHELL,logrotate -f \"my conf\"\n"
        "0700 Net,SHELL,never\n");  // a task's time ends its first field
    h.c.s.TimedActive = true;
    h.at(6, 59);
    RunTimedEvents(h.c);
    EXPECT_TRUE(h.launcher.started.empty());
    for (int tick = 0; tick < 3; ++tick) {
        h.at(7, 0);
        RunTimedEvents(h.c);
    }
    h.at(7, 1);
    RunTimedEvents(h.c);
    h.at(7, 0, 2);
    RunTimedEvents(h.c);
    EXPECT_EQ(h.launcher.started, std::vector<QString>(2, "logrotate -f \"my conf\""));
}

TEST(RunTimedEvents, WithoutAFrequencyRecordTheRunEndsPink) {
    for (const QByteArray& text :
         {QByteArray("Backup 0100,SHELL,backup\n"), QByteArray("0000 Midnight,7050,CW\n")}) {
        TimedFolder h;
        h.load(text);
        h.pollTimer.on = true;
        cmdTimed_Click(h.c);
        h.at(1, 0);
        RunTimedEvents(h.c);
        EXPECT_EQ(h.messages(), QStringList{"No timed definitions found"});
        EXPECT_FALSE(h.c.s.TimedActive);
        EXPECT_EQ(h.c.f.cmdTimed.backColour, 0xFFC0FFu);
        EXPECT_EQ(h.pollTimer.period, 1000);  // until the button is pressed again
        EXPECT_FALSE(h.c.s.FrequencyChangePending);
    }
}

TEST(CmdTimed, SwitchesTheTickToASecondAndBack) {
    TimedFolder h;
    h.c.s.TalkFreq = 2;
    h.pollTimer.period = 104;
    cmdTimed_Click(h.c);
    EXPECT_TRUE(h.c.s.TimedActive);
    EXPECT_EQ(h.c.f.cmdTimed.backColour, Green);
    EXPECT_EQ(h.pollTimer.period, 1000);
    EXPECT_TRUE(h.pollTimer.on);
    cmdTimed_Click(h.c);
    EXPECT_FALSE(h.c.s.TimedActive);
    EXPECT_EQ(h.c.f.cmdTimed.backColour, ButtonFace);
    EXPECT_EQ(h.pollTimer.period, 104);
}

TEST(CboTimedEvents, APickedRecordTunesWithTheDefaultsOfATimedChange) {
    TimedFolder h;
    h.load(kDay + "1900 Broken,seven,FM\n");
    h.c.s.TargetShift = "+";
    h.c.s.ToneCode = "12";
    h.c.f.cboTimedEvents.listIndex = 1;
    cboTimedEvents_Click(h.c);
    EXPECT_EQ(h.c.s.TargetFrequency, 1425000);
    EXPECT_EQ(h.c.s.TargetShift, "");
    EXPECT_EQ(h.c.s.TargetOffset, "600");
    EXPECT_EQ(h.c.s.ToneCode, "");
    EXPECT_EQ(h.c.s.ToneEncode, "0");

    h.c.f.cboTimedEvents.listIndex = 5;
    cboTimedEvents_Click(h.c);
    EXPECT_EQ(h.messages(), QStringList{"Not a numeric number"});
    EXPECT_EQ(h.c.s.TargetFrequency, -1);
}

TEST(TimedEventsOnTheAir, TheTickTunesTheRigToTheRecordInForce) {
    const QString previous = QDir::currentPath();
    OnAir h(RigFT817);
    QDir::setCurrent(h.dir.path());
    QFile file(h.dir.path() + "/TimedEvents.txt");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(kDay);
    file.close();
    LoadTimedEvents(h.c);
    QDir::setCurrent(previous);
    h.clock.utc = QDateTime(QDate(2026, 6, 1), QTime(6, 30), Qt::LocalTime)
                      .toUTC()
                      .addMSecs(-static_cast<qint64>(h.clock.now));
    cmdTimed_Click(h.c);
    h.tick();
    EXPECT_EQ(h.rig().state().frequencyHz, 7050000);
    EXPECT_EQ(h.rig().state().mode, "LSB");
    EXPECT_EQ(h.c.f.txtVfoA.text, "7.050.00");
}

}  // namespace
}  // namespace veldor::test
