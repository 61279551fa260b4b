// TimedEvents.txt: its reading, the frequency record in force at each time of day, the tasks
// of each minute, and the Timed button.
#include "accessories/timed_events.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <QDir>
#include <QFile>

#include <tuple>

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A harness run from a folder of its own, where the test writes TimedEvents.txt.
struct TimedFolder : Harness {
    TimedFolder() : previous(QDir::currentPath()) {
        QDir::setCurrent(dir.path());
        c.f.chkOnOff.value = 1;
    }
    ~TimedFolder() { QDir::setCurrent(previous); }
    void load(const QByteArray& bytes) {
        QFile f(dir.path() + "/TimedEvents.txt");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        f.close();
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
    QString previous;
};

TEST(TimedEventsFile, MissingDisablesTheButtonAndAnEmptyOneSaysNothing) {
    TimedFolder missing;
    LoadTimedEvents(missing.c);
    EXPECT_EQ(missing.messages(),
              QStringList{"The TimedEvents.txt file is missing or empty.\r\nAll timed activities "
                          "are disabled"});
    EXPECT_FALSE(missing.c.f.cmdTimed.enabled);

    TimedFolder empty;
    empty.load("");
    EXPECT_TRUE(empty.messages().isEmpty());
    EXPECT_TRUE(empty.c.f.cmdTimed.enabled);
}

TEST(TimedEventsFile, FillsTheTablesAndTheListInFileOrder) {
    TimedFolder h;
    h.load(
        " 0600 Morning net , 7050 , cw \r\n"
        "\n"
        "\"Backup, nightly 2330\",shell,\"tar czf /tmp/b.tgz '/home/op/log book'\"\r\n"
        "1800 Evening,\"3.650\",LSB");
    const State& s = h.c.s;
    EXPECT_EQ(s.TimedEntryText,
              QStringList({"0600 Morning net 7050 cw", "1800 Evening 3.650 LSB"}));
    EXPECT_EQ(s.TimedEntryFrequency, QStringList({"7050", "3.650"}));
    EXPECT_EQ(s.TimedEntryMode, QStringList({"cw", "LSB"}));
    EXPECT_EQ(s.TimedTaskTime, QStringList{"2330"});
    EXPECT_EQ(s.TimedTaskCommand, QStringList{"tar czf /tmp/b.tgz '/home/op/log book'"});
}

TEST(TimedEventsFile, ABadRecordIsNamedByItsNumberAndDisablesEverything) {
    const std::pair<QByteArray, const char*> cases[] = {
        {"0600,7050,CW\n0700,7060,CW\n0800,7070,SSB\n", " 3"},  // not a mode
        {"0600,7050\n", " 1"},                                  // short
        {"0600,7050,CW\n\n\n\x01\x02\xff\xfe,junk\n", " 2"},    // noise; blank lines are none
    };
    for (const auto& [text, number] : cases) {
        SCOPED_TRACE(text.toStdString());
        TimedFolder h;
        h.load(text);
        EXPECT_EQ(h.messages(),
                  QStringList{QString("Problem encountered reading the TimedEvents.txt file at "
                                      "record %1\r\nAll timed activities disabled")
                                  .arg(number)});
        EXPECT_FALSE(h.c.f.cmdTimed.enabled);
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
    const struct {
        int hour, minute;
        const char* entry;
        int32_t frequency;
        const char* mode;
    } cases[] = {
        {5, 59, "1800 Evening 3650 LSB", 365000, "LSB"},  // yesterday's latest
        {6, 0, "0600 Morning 7050 LSB", 705000, "LSB"},   // now equal to a time
        {8, 59, "0600 Morning 7050 LSB", 705000, "LSB"},
        {9, 0, "0900 Net two 14.300 USB", 1430000, "USB"},  // the later of equal times
        {23, 59, "1800 Late 3.700 CW", 370000, "CW"},
    };
    for (const auto& t : cases) {
        SCOPED_TRACE(t.entry);
        TimedFolder h;
        h.load(kDay);
        h.c.s.TimedActive = true;
        h.at(t.hour, t.minute);
        RunTimedEvents(h.c);
        const ComboBox& box = h.c.f.cboTimedEvents;
        ASSERT_GE(box.listIndex, 0);
        EXPECT_EQ(box.list[box.listIndex], t.entry);
        EXPECT_EQ(h.c.s.TargetFrequency, t.frequency);
        EXPECT_EQ(h.c.s.TargetMode, t.mode);
        EXPECT_TRUE(h.c.s.FrequencyChangePending);
    }
}

TEST(RunTimedEvents, ATaskStartsOnceInItsMinuteAndAgainTheNextDay) {
    TimedFolder h;
    h.load(
        "0600 Net,7050,LSB\n"
        "Log rotate 0700,SHELL,logrotate -f \"my conf\"\n"
        "0700 Net,SHELL,never\n");  // a task's time ends its first field
    h.c.s.TimedActive = true;
    for (auto [hour, minute, day] :
         {std::tuple{6, 59, 1}, {7, 0, 1}, {7, 0, 1}, {7, 1, 1}, {7, 0, 2}}) {
        h.at(hour, minute, day);
        RunTimedEvents(h.c);
    }
    EXPECT_EQ(h.launcher.started, std::vector<QString>(2, "logrotate -f \"my conf\""));
}

}  // namespace
}  // namespace veldor::test
