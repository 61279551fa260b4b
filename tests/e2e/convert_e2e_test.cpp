// The real program converts a TM-D700 memory file: Tools -> "Convert freq files..." with the
// link on opens the window at the next tick, a file is read and written back over itself, and
// the link is taken again when the window closes.
#include "e2e_support.h"
#include "ui/application.h"
#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

using veldor::test::Eventually;

// Runs act on the first visible top-level window of type W once it shows.
template <typename W>
void WhenShown(std::function<void(W*)> act) {
    QTimer::singleShot(100, [act] {
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (auto* window = qobject_cast<W*>(w); window && window->isVisible()) {
                act(window);
                return;
            }
        }
        WhenShown<W>(act);
    });
}

void AnswerOpenDialog(const QString& path) {
    WhenShown<QFileDialog>([path](QFileDialog* dialog) {
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

// Keeps the box's text and presses its button of that kind, or else accepts it.
void AnswerBox(QString* text, QMessageBox::StandardButton press = QMessageBox::NoButton) {
    WhenShown<QMessageBox>([text, press](QMessageBox* box) {
        *text = box->text();
        if (press != QMessageBox::NoButton)
            box->button(press)->click();
        else
            box->accept();
    });
}

TEST(ConvertInTheProgram, ReadsAKenwoodFileWritesItBackAndImportsACsvFile) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(),
        QString("[Settings]\nRigType=FT817\nCommport=SIM\nAutoStart=Yes\nPollingDelay=0\n"
                "HomeDir=%1\n")
            .arg(dir.path())
            .toUtf8()));
    const QString path = dir.path() + "/radio.700";
    const QByteArray original =
        "[TM-D700]\r\nMEMORY\r\n"
        "001\t00145500000\t0\t2\t0\t1\t0\t0\t09\t0010\t09\t000600000\t0\t0\t\t\t\tRPT-A\r\n"
        "002\t00433500000\t0\t0\t0\t0\t0\t1\t09\t0230\t09\t000000000\t0\t1\t\t\t\t\r\n"
        "CALL\t00145000000\r\nEND\r\n";
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(original);
    file.close();

    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    const veldor::Core& c = app.core();
    ASSERT_TRUE(Eventually([&] { return !c.f.txtVfoA.text.isEmpty(); }, 5000));

    // Memory CSV: "DEN" is reported by this window, so the file loads on the operator's Yes.
    const QString csv = dir.path() + "/grid.CSV";
    QFile csvFile(csv);
    ASSERT_TRUE(csvFile.open(QIODevice::WriteOnly));
    csvFile.write(
        "Memory,RX Freq,RX Mode,Shift,TX Shift/Freq,TX Mode,CTCSS/DCS,Tone/Code,Show,"
        "Name,Scan,Group,Description\r\n"
        "7,145.5,FM,Minus,.6,,DEN,23,Name,RPT-A,Y,0,\r\n"
        " 9 , 7 ,LSB,Simplex, .1 ,,,,Freq,        ,Y,0,\r\n");
    csvFile.close();

    int rowsShown = 0, rowsImported = 0;
    QString exported, question, importedCell, statusWhileOpen;
    bool done = false;
    WhenShown<QDialog>([&](QDialog* window) {
        ASSERT_EQ(window->objectName(), "frmConvert");
        ASSERT_EQ(window->windowTitle(), "VELDOR - Convert memory files");
        statusWhileOpen = QString::number(c.p.tmrPollInterval->enabled());
        // On the option's circle, at its left.
        auto* d700 = window->findChild<QRadioButton*>("optProgFile_1");
        QTest::mouseClick(d700, Qt::LeftButton, {}, QPoint(8, d700->height() / 2));
        AnswerOpenDialog(path);
        QTest::mouseClick(window->findChild<QPushButton*>("cmdLoadFile"), Qt::LeftButton);
        rowsShown = window->findChild<QTableView*>("grdMemories")->model()->rowCount();
        AnswerOpenDialog(path);
        AnswerBox(&exported);
        QTest::mouseClick(window->findChild<QPushButton*>("cmdExportKenwood"), Qt::LeftButton);
        AnswerOpenDialog(csv);
        AnswerBox(&question, QMessageBox::Yes);
        QTest::mouseClick(window->findChild<QPushButton*>("cmdImport"), Qt::LeftButton);
        const QAbstractItemModel* shown = window->findChild<QTableView*>("grdMemories")->model();
        rowsImported = shown->rowCount();
        importedCell = shown->index(1, 0).data().toString() + shown->index(0, 7).data().toString();
        if (const QString shots = qEnvironmentVariable("VELDOR_SHOTS"); !shots.isEmpty())
            window->grab().save(shots + "/frmConvert.png");
        QTest::mouseClick(window->findChild<QPushButton*>("cmdExit"), Qt::LeftButton);
        done = true;
    });
    app.window().findChild<QAction*>("mnuConvert")->trigger();
    ASSERT_TRUE(Eventually([&] { return done; }, 20000));
    EXPECT_EQ(rowsShown, 2);
    EXPECT_EQ(exported, "Export to Kenwood complete");
    EXPECT_EQ(question, "One or more errors existing in this file. Do you want to try to load it?");
    EXPECT_EQ(rowsImported, 2);
    EXPECT_EQ(importedCell, "2023");  // renumbered from 1; the code made three digits
    EXPECT_TRUE(
        c.frmErrorList.txtErrors.text.contains("Record 1. CTCSS or DCS of 'DEN' is invalid."));
    EXPECT_EQ(statusWhileOpen, "0");  // the poll stands still while the window is open
    QFile written(path);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromLatin1(written.readAll()), QString::fromLatin1(original));
    EXPECT_TRUE(QFile::exists(path + ".BAK"));
    EXPECT_TRUE(Eventually([&] { return c.p.tmrPollInterval->enabled(); }, 5000));
    app.closeForSignal();
}

}  // namespace
