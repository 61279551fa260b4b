// The real program converts a TM-D700 memory file: Tools -> "Convert freq files..." with the
// link on opens the window at the next tick, a file is read and written back over itself, a
// CSV file is imported, and the link is taken again when the window closes.
#include "e2e_support.h"

#include <QAction>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

namespace {

using namespace veldor::test;

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

TEST(ConvertInTheProgram, ReadsAKenwoodFileWritesItBackAndImportsACsvFile) {
    Station st("FT817", Port::BuiltIn, "AutoStart=Yes\nPollingDelay=0\n");
    const QString path = st.path() + "/radio.700", csv = st.path() + "/grid.CSV";
    const QByteArray original =
        "[TM-D700]\r\nMEMORY\r\n"
        "001\t00145500000\t0\t2\t0\t1\t0\t0\t09\t0010\t09\t000600000\t0\t0\t\t\t\tRPT-A\r\n"
        "002\t00433500000\t0\t0\t0\t0\t0\t1\t09\t0230\t09\t000000000\t0\t1\t\t\t\t\r\n"
        "CALL\t00145000000\r\nEND\r\n";
    WriteFile(path, original);
    // "DEN" is reported by this window, so the file loads on the operator's Yes.
    WriteFile(csv,
              "Memory,RX Freq,RX Mode,Shift,TX Shift/Freq,TX Mode,CTCSS/DCS,Tone/Code,Show,"
              "Name,Scan,Group,Description\r\n"
              "7,145.5,FM,Minus,.6,,DEN,23,Name,RPT-A,Y,0,\r\n"
              " 9 , 7 ,LSB,Simplex, .1 ,,,,Freq,        ,Y,0,\r\n");
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    const veldor::Core& c = app.core();
    ASSERT_TRUE(Eventually([&] { return !c.f.txtVfoA.text.isEmpty(); }, 5000));

    int rowsShown = 0, rowsImported = 0;
    QString importedCell;
    QStringList told;
    bool pollWhileOpen = true, done = false;
    WhenShown([&](QWidget* w) {
        if (w->objectName() != "frmConvert") return false;
        EXPECT_EQ(w->windowTitle(), "VELDOR - Convert memory files");
        pollWhileOpen = c.p.tmrPollInterval->enabled();
        Tick(w->findChild<QRadioButton*>("optProgFile_1"));
        const QAbstractItemModel* shown = w->findChild<QTableView*>("grdMemories")->model();
        TypeFile(path);
        QTest::mouseClick(w->findChild<QPushButton*>("cmdLoadFile"), Qt::LeftButton);
        rowsShown = shown->rowCount();
        TypeFile(path);
        Answer(&told, QMessageBox::Ok);
        QTest::mouseClick(w->findChild<QPushButton*>("cmdExportKenwood"), Qt::LeftButton);
        TypeFile(csv);
        Answer(&told, QMessageBox::Yes);
        QTest::mouseClick(w->findChild<QPushButton*>("cmdImport"), Qt::LeftButton);
        rowsImported = shown->rowCount();
        importedCell = shown->index(1, 0).data().toString() + shown->index(0, 7).data().toString();
        Screenshot(w, "convert");
        QTest::mouseClick(w->findChild<QPushButton*>("cmdExit"), Qt::LeftButton);
        done = true;
        return true;
    });
    app.window().findChild<QAction*>("mnuConvert")->trigger();
    ASSERT_TRUE(Eventually([&] { return done; }, 20000));
    EXPECT_FALSE(pollWhileOpen);  // the poll stands still while the window is open
    EXPECT_EQ(rowsShown, 2);
    EXPECT_EQ(told, QStringList({"Export to Kenwood complete",
                                 "One or more errors existing in this file. Do you want to try "
                                 "to load it?"}));
    EXPECT_EQ(rowsImported, 2);
    EXPECT_EQ(importedCell, "2023");  // renumbered from 1; the code made three digits
    EXPECT_TRUE(
        c.frmErrorList.txtErrors.text.contains("Record 1. CTCSS or DCS of 'DEN' is invalid."));
    QFile written(path);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromLatin1(written.readAll()), QString::fromLatin1(original));
    EXPECT_TRUE(QFile::exists(path + ".BAK"));
    EXPECT_TRUE(Eventually([&] { return c.p.tmrPollInterval->enabled(); }, 5000));
    app.closeForSignal();
}

}  // namespace
