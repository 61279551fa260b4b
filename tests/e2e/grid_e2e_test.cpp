// The real program's memory grid in its window, and its listing printed to a file.
#include "e2e_support.h"
#include "grid/grid.h"
#include "ui/qt_printer.h"

#include <QAction>
#include <QPushButton>
#include <QTableView>

namespace {

using namespace veldor::test;

// Mem Grid opens the grid. Its edit panel takes the filter strip's place: the window grows by
// the difference of their heights, so the grid keeps its rows in sight, and gives it back when
// the panel closes; every box of the panel is whole on the screen. A CSV file is added through
// the open dialog and the questions, and Save All writes it through the save dialog.
TEST(MemoryGridInTheProgram, EditsInPlaceAddsACsvFileAndSavesItThroughTheDialogs) {
    Station st("FT817", Port::BuiltIn, "AutoStart=Yes\n");
    QFile csv(st.path() + "/club.CSV");
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
    ASSERT_TRUE(grid && Eventually([&] { return grid->isVisible(); }, 2000));
    auto* view = grid->findChild<QTableView*>("grdMemories");
    auto* strip = grid->findChild<QWidget*>("frmMainControl");
    auto* panel = grid->findChild<QWidget*>("frmEdit");
    QTest::qWait(50);
    const QSize browsing = grid->size();
    const int viewHeight = view->height(), stripHeight = strip->height();
    grid->findChild<QAction*>("mnuEdit")->trigger();
    ASSERT_TRUE(Eventually([&] { return panel->isVisible() && !strip->isVisible(); }, 1000));
    QTest::qWait(50);
    Screenshot(grid, "grid-editing");
    EXPECT_EQ(grid->height() - browsing.height(), panel->height() - stripHeight);
    EXPECT_EQ(view->height(), viewHeight);
    EXPECT_GE(view->y(), panel->y() + panel->height());
    for (QWidget* box : panel->findChildren<QWidget*>())
        EXPECT_TRUE(!box->isVisible() ||
                    panel->rect().contains(QRect(box->mapTo(panel, QPoint()), box->size())))
            << box->objectName().toStdString() << " is cut off";
    grid->findChild<QPushButton*>("cmdEditCancel")->click();
    ASSERT_TRUE(Eventually([&] { return strip->isVisible(); }, 1000));
    QTest::qWait(50);
    EXPECT_EQ(grid->size(), browsing);
    EXPECT_EQ(view->height(), viewHeight);

    const QAbstractItemModel* table = view->model();
    ASSERT_EQ(table->rowCount(), 1);  // the new grid's one memory

    QStringList told;
    TypeFile(st.path() + "/club");    // ".CSV" is added
    Answer(&told, QMessageBox::Yes);  // errors found: load it all the same
    Answer(&told, QMessageBox::Yes);  // clear the grid first
    grid->findChild<QAction*>("mnuAddCSV")->trigger();
    EXPECT_EQ(told, QStringList(
                        {"One or more errors existing in this file. Do you want to try to load it?",
                         "Do you want to clear all of the existing memories before importing?"}));
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->index(0, 9).data().toString(), "GB3XX   ");
    EXPECT_EQ(table->index(1, 10).data().toString(), "Y");  // "Q" became Y
    EXPECT_EQ(table->headerData(4, Qt::Horizontal).toString(), "TX Shift/Freq");
    EXPECT_TRUE(app.core().frmErrorList.txtErrors.text.contains("Record 2. Scan of Q is invalid."));

    told.clear();
    TypeFile(st.path() + "/copy");
    Answer(&told, QMessageBox::Ok);
    grid->findChild<QAction*>("mnuSaveCSV")->trigger();
    EXPECT_EQ(told, QStringList({"Save completed"}));
    QFile copy(st.path() + "/copy.CSV");
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_TRUE(copy.readAll().endsWith(" 2 , 433.2 ,FMN,Simplex, 5 ,,,,Freq,        ,Y,0,\r\n"));
    EXPECT_TRUE(QFile::exists(st.path() + "/LastUsed.VDR"));
    app.closeForSignal();
}

// A listing of eighty rows runs on to a second page of the PDF file; with VELDOR_LISTING_PDF
// set, the file is kept there for the eye.
TEST(MemoryGridListing, PrintsToAPdfFileInAFixedPitchFont) {
    QTemporaryDir dir;
    veldor::MemoryGrid grid;
    grid.rows.resize(80);
    const QStringList row = QString(
                                "0,145.50000,FM,Minus,.60000,,CTCSS Enc,88.5,Name,GB3XX   ,Y,2,"
                                "Hill top")
                                .split(',');
    for (int r = 1; r < 80; ++r) {
        std::copy(row.begin(), row.end(), grid.rows[static_cast<size_t>(r)].cells.begin());
        grid.rows[static_cast<size_t>(r)].cells[0] = QString::number(r);
    }
    bool failed = false;
    const QStringList lines = veldor::PrintListing(grid, '.', &failed);
    ASSERT_FALSE(failed);
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
    EXPECT_GE(bytes.count("/Type /Page\n") + bytes.count("/Type /Page\r"), 2);
}

}  // namespace
