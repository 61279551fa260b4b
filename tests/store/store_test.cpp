// The settings file: addressing, case, exact values, garbage, atomic writes.
#include "platform/ini_store.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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

TEST_F(Store, SectionsAndApplicationsAreSeparate) {
    IniStore store(dir.path());
    store.save("VELDOR", "Settings", "Mode", "USB");
    store.save("VELDOR", "CurrentValues", "Mode", "FM");
    store.save("VELDOR_SHACK", "Settings", "Mode", "CW");
    EXPECT_EQ(store.get("VELDOR", "Settings", "Mode", ""), "USB");
    EXPECT_EQ(store.get("VELDOR", "CurrentValues", "Mode", ""), "FM");
    EXPECT_EQ(store.get("VELDOR_SHACK", "Settings", "Mode", ""), "CW");
    EXPECT_EQ(store.get("VELDOR", "Bands", "Mode", "default"), "default");
    EXPECT_TRUE(QFile::exists(file("VELDOR_SHACK")));
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

TEST_F(Store, GetAllKeepsFileOrder) {
    IniStore store(dir.path());
    store.save("VELDOR", "Bands", "Band2Name", "40m");
    store.save("VELDOR", "Bands", "Band1Name", "80m");
    const auto all = store.getAll("VELDOR", "BANDS");
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(all[0], qMakePair(QString("Band2Name"), QString("40m")));
    EXPECT_EQ(all[1].first, "Band1Name");
}

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

TEST_F(Store, AnUnchangedValueIsNotWrittenAgain) {
    IniStore store(dir.path());
    store.save("VELDOR", "CurrentValues", "Mode", "USB");
    store.save("VELDOR", "CurrentValues", "mode", "USB");
    EXPECT_EQ(store.writes(), 1);
    store.save("VELDOR", "CurrentValues", "Mode", "LSB");
    EXPECT_EQ(store.writes(), 2);
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
    IniStore fresh(dir.path());
    EXPECT_EQ(fresh.get("VELDOR", "Banks", "Bank1M1Mode", ""), "FM");
    EXPECT_EQ(fresh.get("VELDOR", "Banks", "Bank1M1Scan", ""), "N");
}

TEST_F(Store, AnUnwritableFolderLosesTheWriteButNotTheProgram) {
    QFile blocker(dir.path() + "/blocked");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    IniStore store(dir.path() + "/blocked");  // a file where the folder should be
    store.save("VELDOR", "Settings", "RigType", "FT817");
    EXPECT_EQ(store.get("VELDOR", "Settings", "RigType", ""), "FT817");  // kept for the run
}

TEST(StoreFolder, FollowsXdgConfigHome) {
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    EXPECT_EQ(IniStore::defaultFolder(), home.path() + "/VELDOR");
}

}  // namespace
}  // namespace veldor
