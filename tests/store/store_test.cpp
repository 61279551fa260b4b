// The settings file: addressing, case, exact values, garbage, atomic writes, and the file's
// bad cases: a full disk, things that are not a file, size.
#include "platform/ini_store.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <csignal>
#include <functional>

#include <sys/resource.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

namespace veldor {
namespace {

class Store : public ::testing::Test {
  protected:
    QString file(const QString& app) { return dir.path() + "/" + app + ".ini"; }
    QTemporaryDir dir;
};

TEST_F(Store, AValueSurvivesANewStoreAndKeysIgnoreCase) {
    {
        IniStore store(dir.path());
        store.save("VELDOR", "Settings", "uHFfreq", "43300000");
        store.save("VELDOR", "Settings", "UHFfreq", "43400000");
    }
    IniStore fresh(dir.path());
    EXPECT_EQ(fresh.get("VELDOR", "settings", "UHFFREQ", "x"), "43400000");
    QFile f(file("VELDOR"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray text = f.readAll();
    EXPECT_EQ(text.count("HFfreq="), 1);  // one key, kept in its first spelling
    EXPECT_TRUE(text.contains("uHFfreq=43400000"));
}

// Sections and applications are apart; a section's keys come back in the file's order.
TEST_F(Store, SectionsAndApplicationsAreSeparateAndKeepTheirOrder) {
    IniStore store(dir.path());
    store.save("VELDOR", "Settings", "Mode", "USB");
    store.save("VELDOR", "CurrentValues", "Mode", "FM");
    store.save("VELDOR_SHACK", "Settings", "Mode", "CW");
    store.save("VELDOR", "Bands", "Band2Name", "40m");
    store.save("VELDOR", "Bands", "Band1Name", "80m");
    EXPECT_EQ(store.get("VELDOR", "Settings", "Mode", ""), "USB");
    EXPECT_EQ(store.get("VELDOR", "CurrentValues", "Mode", ""), "FM");
    EXPECT_EQ(store.get("VELDOR_SHACK", "Settings", "Mode", ""), "CW");
    EXPECT_EQ(store.get("VELDOR", "Bands", "Mode", "default"), "default");
    EXPECT_TRUE(QFile::exists(file("VELDOR_SHACK")));
    const QList<QPair<QString, QString>> bands = {{"Band2Name", "40m"}, {"Band1Name", "80m"}};
    EXPECT_EQ(store.getAll("VELDOR", "BANDS"), bands);
}

class Values : public Store, public ::testing::WithParamInterface<const char*> {};

TEST_P(Values, RoundTripExactly) {
    {
        IniStore store(dir.path());
        store.save("VELDOR", "Banks", "Name1", QString::fromUtf8(GetParam()));
    }
    IniStore fresh(dir.path());
    EXPECT_EQ(fresh.get("VELDOR", "Banks", "Name1", "<none>"), QString::fromUtf8(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Texts, Values,
                         ::testing::Values("", " Show/hide ", "a=b;c", "[Settings]",
                                           "two\nlines\r\n", "back\\slash\\n", "  ", "tab\there",
                                           "Ünïcödé 145,575"));

TEST_F(Store, AFileOfAnyBytesLoadsWhatLinesItHasAndNoMore) {
    QByteArray bytes;
    for (int i = 0; i < 300000; ++i) bytes.append(static_cast<char>((i * 13 + 7) & 0xFF));
    bytes += "\n[Settings]\nRigType=FT847\n";
    bytes.append("\xff\xfe", 2);
    bytes.append('\0');
    bytes += "garbage=\n=nokey\n";
    bytes += QByteArray(2'000'000, 'x');  // a line of two megabytes with no end
    QFile f(file("VELDOR"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
    f.close();
    IniStore store(dir.path());
    EXPECT_EQ(store.get("VELDOR", "Settings", "RigType", "Not set"), "FT847");
    EXPECT_EQ(store.get("VELDOR", "Settings", "CommSpeed", "4800,N,8,2"), "4800,N,8,2");
    store.save("VELDOR", "Settings", "AutoStart", "No");
    IniStore fresh(dir.path());
    EXPECT_EQ(fresh.get("VELDOR", "Settings", "AutoStart", ""), "No");
}

TEST_F(Store, WritesAreWholeAndLeaveNoTemporaryFiles) {
    IniStore store(dir.path() + "/new/folder");
    for (int i = 0; i < 50; ++i) {
        store.save("VELDOR", "CurrentValues", "Time",
                   QString("12:00:%1").arg(i, 2, 10, QChar('0')));
        IniStore reader(dir.path() + "/new/folder");
        ASSERT_EQ(reader.get("VELDOR", "CurrentValues", "Time", ""),
                  QString("12:00:%1").arg(i, 2, 10, QChar('0')));
    }
    EXPECT_EQ(QDir(dir.path() + "/new/folder").entryList(QDir::Files), QStringList{"VELDOR.ini"});
}

TEST_F(Store, KeysSavedTogetherGoInOneWriteAndNoneWhenNothingChanged) {
    IniStore store(dir.path());
    const QList<QPair<QString, QString>> bank = {
        {"Bank1M1Freq", "145.50000"}, {"Bank1M1Mode", "FM"}, {"Bank1M1Scan", "Y"}};
    store.saveAll("VELDOR", "Banks", bank);
    EXPECT_EQ(store.writes(), 1);
    store.saveAll("VELDOR", "banks", bank);
    EXPECT_EQ(store.writes(), 1);
    store.saveAll("VELDOR", "Banks", {{"Bank1M1Freq", "145.50000"}, {"Bank1M1Scan", "N"}});
    EXPECT_EQ(store.writes(), 2);
    store.save("VELDOR", "banks", "bank1m1scan", "N");  // unchanged: not written again
    EXPECT_EQ(store.writes(), 2);
    IniStore fresh(dir.path());
    EXPECT_EQ(fresh.get("VELDOR", "Banks", "Bank1M1Mode", ""), "FM");
    EXPECT_EQ(fresh.get("VELDOR", "Banks", "Bank1M1Scan", ""), "N");
}

TEST_F(Store, AnUnwritableFolderLosesTheWriteButNotTheProgramAndIsToldOnce) {
    QFile blocker(dir.path() + "/blocked");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    IniStore store(dir.path() + "/blocked");  // a file where the folder should be
    QStringList told;
    store.onTrouble = [&](const QString& text) { told << text; };
    store.save("VELDOR", "Settings", "RigType", "FT817");
    store.save("VELDOR", "Settings", "RigType", "FT847");
    EXPECT_EQ(store.get("VELDOR", "Settings", "RigType", ""), "FT847");  // kept for the run
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].startsWith("Settings could not be saved to " + dir.path() + "/blocked"));
}

// A write that fails for want of room (here the process's file size limit, as a full disk
// would) leaves the old file whole.
TEST_F(Store, AFailedWriteKeepsTheOldFileAndIsToldOnce) {
    IniStore store(dir.path());
    QStringList told;
    store.onTrouble = [&](const QString& text) { told << text; };
    store.save("VELDOR", "Settings", "RigType", "FT817");
    QFile f(file("VELDOR"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray before = f.readAll();
    f.close();
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit saved{};
    ::getrlimit(RLIMIT_FSIZE, &saved);
    rlimit small = saved;
    small.rlim_cur = 4096;
    ::setrlimit(RLIMIT_FSIZE, &small);
    store.save("VELDOR", "Banks", "Bank1Name", QString(8000, 'x'));
    store.save("VELDOR", "Banks", "Bank2Name", QString(8000, 'y'));
    ::setrlimit(RLIMIT_FSIZE, &saved);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), before);
    f.close();
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].contains("the file keeps its earlier values"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"VELDOR.ini"});
    store.save("VELDOR", "Settings", "RigType", "FT450");  // room again: all of it is written
    EXPECT_EQ(IniStore(dir.path()).get("VELDOR", "Banks", "Bank2Name", "").size(), 8000);
}

struct Misplaced {
    const char* name;
    std::function<void(const QString& path)> make;
};

class NotAFile : public Store, public ::testing::WithParamInterface<Misplaced> {};

// Something other than a regular file in the settings file's place: the program starts on its
// defaults at once, says why, and leaves the thing as it found it.
TEST_P(NotAFile, IsNotReadNorWrittenOverAndIsTold) {
    const QString path = file("VELDOR");
    GetParam().make(path);
    const QFileInfo before(path);
    IniStore store(dir.path());
    QStringList told;
    store.onTrouble = [&](const QString& text) { told << text; };
    EXPECT_EQ(store.get("VELDOR", "Settings", "RigType", "Not set"), "Not set");
    store.save("VELDOR", "Settings", "RigType", "FT817");
    store.save("VELDOR", "Settings", "Commport", "2");
    const QFileInfo after(path);
    EXPECT_EQ(after.isSymLink(), before.isSymLink());
    EXPECT_EQ(after.isFile(), before.isFile());
    ASSERT_EQ(told.size(), 2);
    EXPECT_TRUE(told[0].startsWith("The settings file " + path + " cannot be read"));
}

INSTANTIATE_TEST_SUITE_P(Things, NotAFile,
                         ::testing::Values(Misplaced{"NamedPipe",
                                                     [](const QString& p) {
                                                         ::mkfifo(p.toLocal8Bit().constData(),
                                                                  0600);
                                                     }},
                                           Misplaced{"Directory",
                                                     [](const QString& p) { QDir().mkpath(p); }},
                                           Misplaced{"Huge",
                                                     [](const QString& p) {
                                                         QFile f(p);
                                                         f.open(QIODevice::WriteOnly);
                                                         f.resize(IniStore::kSizeLimit + 1);
                                                     }}),
                         [](const auto& info) { return std::string(info.param.name); });

// A file an editor saved in another form keeps its values and is written back whole; a
// temporary file a killed write left behind goes at the next start.
TEST_F(Store, KeepsWhatAFileInAnyEncodingHoldsAndRemovesALeftTemporaryFile) {
    const QString text =
        QString::fromUtf8("[Settings]\r\nRigType=FT817\r\nBank1Name=Répéteurs\r\n");
    const auto utf16 = [&](QStringConverter::Encoding e, bool mark) {
        QStringEncoder encoder(
            e, mark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default);
        return QByteArray(encoder.encode(text));
    };
    const std::pair<const char*, QByteArray> forms[] = {
        {"UTF-16LE with mark", utf16(QStringConverter::Utf16LE, true)},
        {"UTF-16BE", utf16(QStringConverter::Utf16BE, false)},
        {"Latin-1", text.toLatin1()},
        {"UTF-8 with mark", "\xEF\xBB\xBF" + text.toUtf8()}};
    for (const auto& [name, bytes] : forms) {
        SCOPED_TRACE(name);
        QTemporaryDir here;
        const QString path = here.path() + "/VELDOR.ini", leftover = path + ".aB3xYz";
        for (const QString& f : {path, leftover}) {
            QFile out(f);
            ASSERT_TRUE(out.open(QIODevice::WriteOnly));
            out.write(f == path ? bytes : "half");
            out.flush();
            out.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-3600),
                            QFileDevice::FileModificationTime);
        }
        {
            IniStore store(here.path());
            EXPECT_EQ(store.get("VELDOR", "Settings", "RigType", ""), "FT817");
            store.save("VELDOR", "Settings", "Commport", "2");
        }
        EXPECT_FALSE(QFile::exists(leftover));
        IniStore fresh(here.path());
        EXPECT_EQ(fresh.get("VELDOR", "Settings", "Bank1Name", ""), QString::fromUtf8("Répéteurs"));
        EXPECT_EQ(fresh.get("VELDOR", "Settings", "Commport", ""), "2");
    }
}

// With a writer the store is changed at once and the file follows: a quick run of saves ends
// with the last values on the disk, in no more writes than saves.
TEST_F(Store, AWriterPutsTheLastValuesOnTheDisk) {
    {
        IniStore store(dir.path());
        store.startWriter();
        for (int i = 0; i < 50; ++i) {
            store.saveAll("VELDOR", "CurrentValues",
                          {{"Frequency", QString::number(14000 + i)}, {"Mode", "USB"}});
            EXPECT_EQ(store.get("VELDOR", "CurrentValues", "Frequency", ""),
                      QString::number(14000 + i));
        }
        const int writes = store.writes();
        EXPECT_GE(writes, 1);
        EXPECT_LE(writes, 50);
        EXPECT_EQ(IniStore(dir.path()).get("VELDOR", "CurrentValues", "Frequency", ""), "14049");
        store.save("VELDOR", "Settings", "RigType", "FT817");  // read back after the store ends
    }
    EXPECT_EQ(IniStore(dir.path()).get("VELDOR", "Settings", "RigType", ""), "FT817");
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList{"VELDOR.ini"});
}

}  // namespace
}  // namespace veldor
