// The real program's memory grid: Mem Grid opens it, a CSV file is added through the open
// dialog and the questions, the grid shows it, and Save All writes it through the save dialog.
#include "e2e_support.h"
#include "grid/grid.h"
#include "ui/application.h"
#include "ui/main_window.h"
#include "ui/qt_printer.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

using veldor::test::Eventually;

// The operator at the screen: each step waits for its dialog and answers it, in order.
struct Operator {
    // A file name typed into the file dialog.
    void typeFile(const QString& path) {
        steps.push_back([path](QWidget* w) {
            auto* dialog = qobject_cast<QFileDialog*>(w);
            auto* name = dialog ? dialog->findChild<QLineEdit*>("fileNameEdit") : nullptr;
            if (!name) return false;
            name->setText(path);
            QTest::keyClick(name, Qt::Key_Return);
            return true;
        });
    }
    // A message box answered, its text kept.
    void answer(QMessageBox::StandardButton button) {
        steps.push_back([this, button](QWidget* w) {
            auto* box = qobject_cast<QMessageBox*>(w);
            if (!box || !box->button(button)) return false;
            texts << box->text();
            box->button(button)->click();
            return true;
        });
    }
    void start() {
        // The operator's timer goes with the operator.
        QTimer::singleShot(100, &alive, [this] {
            if (steps.empty()) return;
            for (QWidget* w : QApplication::topLevelWidgets())
                if (w->isVisible() && steps.front()(w)) {
                    steps.erase(steps.begin());
                    break;
                }
            start();
        });
    }
    std::vector<std::function<bool(QWidget*)>> steps;
    QStringList texts;
    QObject alive;
};

TEST(MemoryGridInTheProgram, AddsACsvFileAndSavesItThroughTheDialogs) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(), QString("[Settings]\nRigType=FT817\nCommport=SIM\nAutoStart=Yes\nHomeDir=%1\n")
                        .arg(dir.path())
                        .toUtf8()));
    QFile csv(dir.path() + "/club.CSV");
    ASSERT_TRUE(csv.open(QIODevice::WriteOnly));
    csv.write(
        "Memory,RX Freq,RX Mode,Shift,TX Shift/Freq,TX Mode,CTCSS/DCS,Tone/Code,Show,Name,"
        "Scan,Group,Description\r\n"
        " 1 , 145.6 ,FM,Minus, .6 ,,CTCSS Enc,88.5,Name,GB3XX   ,Y,2,Hill top\r\n"
        " 2 , 433.2 ,FMN,Simplex, 5 ,,,,Freq,        ,Q,0,\r\n");
    csv.close();

    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    QTest::mouseClick(app.window().findChild<QPushButton*>("cmdCsvMem"), Qt::LeftButton);
    QWidget* grid = app.windows().window(veldor::FormId::frmCsvMem);
    ASSERT_NE(grid, nullptr);
    ASSERT_TRUE(Eventually([&] { return grid->isVisible(); }, 2000));
    auto* table = grid->findChild<QTableView*>("grdMemories");
    ASSERT_EQ(table->model()->rowCount(), 1);  // the new grid's one memory

    Operator op;
    op.typeFile(dir.path() + "/club");  // ".CSV" is added
    op.answer(QMessageBox::Yes);        // errors found: load it all the same
    op.answer(QMessageBox::Yes);        // clear the grid first
    op.start();
    grid->findChild<QAction*>("mnuAddCSV")->trigger();
    EXPECT_TRUE(op.steps.empty());
    EXPECT_EQ(
        op.texts,
        QStringList({"One or more errors existing in this file. Do you want to try to load it?",
                     "Do you want to clear all of the existing memories before importing?"}));
    ASSERT_EQ(table->model()->rowCount(), 2);
    EXPECT_EQ(table->model()->index(0, 9).data().toString(), "GB3XX   ");
    EXPECT_EQ(table->model()->index(1, 10).data().toString(), "Y");  // "Q" became Y
    EXPECT_EQ(table->model()->headerData(4, Qt::Horizontal).toString(), "TX Shift/Freq");
    EXPECT_TRUE(app.core().frmErrorList.txtErrors.text.contains("Record 2. Scan of Q is invalid."));

    Operator save;
    save.typeFile(dir.path() + "/copy");
    save.answer(QMessageBox::Ok);
    save.start();
    grid->findChild<QAction*>("mnuSaveCSV")->trigger();
    EXPECT_EQ(save.texts, QStringList({"Save completed"}));
    QFile copy(dir.path() + "/copy.CSV");
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_TRUE(copy.readAll().endsWith(" 2 , 433.2 ,FMN,Simplex, 5 ,,,,Freq,        ,Y,0,\r\n"));
    EXPECT_TRUE(QFile::exists(dir.path() + "/LastUsed.VDR"));
    app.closeForSignal();
}

// The edit panel takes the filter strip's place: the window grows by the difference of their
// heights, so the grid keeps its rows in sight, and gives it back when the panel closes. Every
// box of the panel is whole on the screen.
TEST(MemoryGridInTheProgram, TheEditPanelGrowsTheWindowAndTheGridKeepsItsHeight) {
    QTemporaryDir dir;
    qputenv("XDG_CONFIG_HOME", dir.path().toUtf8());
    ASSERT_TRUE(veldor::test::WriteSettings(
        dir.path(),
        QString("[Settings]\nRigType=FT817\nCommport=SIM\nHomeDir=%1\n").arg(dir.path()).toUtf8()));
    veldor::Application app;
    ASSERT_TRUE(app.start(""));
    veldor::ShowGridWindow(app.core());
    QWidget* grid = app.windows().window(veldor::FormId::frmCsvMem);
    ASSERT_NE(grid, nullptr);
    ASSERT_TRUE(Eventually([&] { return grid->isVisible(); }, 2000));
    auto* table = grid->findChild<QTableView*>("grdMemories");
    auto* strip = grid->findChild<QWidget*>("frmMainControl");
    auto* panel = grid->findChild<QWidget*>("frmEdit");
    const QString shots = qEnvironmentVariable("VELDOR_SCREENSHOTS");
    const auto shoot = [&](const QString& name) {
        if (!shots.isEmpty()) grid->grab().save(shots + "/" + name + ".png");
    };
    QTest::qWait(50);
    shoot("grid-browsing");
    const QSize browsing = grid->size();
    const int tableHeight = table->height();
    const int stripHeight = strip->height();

    grid->findChild<QAction*>("mnuEdit")->trigger();
    ASSERT_TRUE(Eventually([&] { return panel->isVisible() && !strip->isVisible(); }, 1000));
    QTest::qWait(50);
    shoot("grid-editing");
    EXPECT_EQ(grid->height() - browsing.height(), panel->height() - stripHeight);
    EXPECT_EQ(table->height(), tableHeight);
    EXPECT_GE(table->y(), panel->y() + panel->height());
    for (QWidget* box : panel->findChildren<QWidget*>()) {
        if (!box->isVisible()) continue;
        EXPECT_TRUE(panel->rect().contains(QRect(box->mapTo(panel, QPoint()), box->size())))
            << box->objectName().toStdString() << " is cut off";
    }

    grid->findChild<QPushButton*>("cmdEditCancel")->click();
    ASSERT_TRUE(Eventually([&] { return strip->isVisible(); }, 1000));
    QTest::qWait(50);
    EXPECT_EQ(grid->size(), browsing);
    EXPECT_EQ(table->height(), tableHeight);
    app.closeForSignal();
}

TEST(MemoryGridListing, PrintsToAPdfFileInAFixedPitchFont) {
    QTemporaryDir dir;
    veldor::MemoryGrid grid;
    grid.rows.resize(80);
    for (int r = 1; r < 80; ++r)
        grid.rows[static_cast<size_t>(r)].cells = {QString::number(r),
                                                   r % 7 == 3 ? "Empty" : "145.50000",
                                                   "FM",
                                                   "Minus",
                                                   ".60000",
                                                   "",
                                                   "CTCSS Enc",
                                                   "88.5",
                                                   "Name",
                                                   "GB3XX   ",
                                                   "Y",
                                                   "2",
                                                   r % 5 ? "" : "Hill top"};
    bool failed = false;
    const QStringList lines = veldor::PrintListing(grid, '.', &failed);
    ASSERT_FALSE(failed);
    // Where the tests are told to, the listing is kept for the eye.
    const QString kept = qEnvironmentVariable("VELDOR_LISTING_PDF");
    const QString path = kept.isEmpty() ? dir.path() + "/listing.pdf" : kept;
    veldor::QtPrinter printer(path);
    ASSERT_TRUE(printer.available());
    QString reason;
    ASSERT_TRUE(printer.print(lines, &reason)) << reason.toStdString();
    QFile pdf(path);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray bytes = pdf.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_GE(bytes.count("/Type /Page\n") + bytes.count("/Type /Page\r"), 2);  // it runs on
}

}  // namespace
