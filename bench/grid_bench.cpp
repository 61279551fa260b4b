// The memory grid at 100,000 rows: importing a CSV file, a filter change, saving the grid's
// file and a CSV file, opening the window, and the memory the process then holds. Run
// offscreen; prints one line per figure.
#include "grid/csv_file.h"
#include "grid/grid.h"
#include "platform/ini_store.h"
#include "platform/qt_platform.h"
#include "ui/grid_window.h"
#include "ui/qt_windows.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTableView>
#include <QTemporaryDir>

#include <cstdio>

namespace {

using namespace veldor;

// The operator's answers: the file given, Yes to every question.
class Answers : public Dialogs {
  public:
    QString file;
    MsgResult messageBox(const QString&, const QString&, MsgButtons buttons, MsgIcon) override {
        return buttons == MsgButtons::OK ? MsgResult::OK : MsgResult::Yes;
    }
    bool inputBox(const QString&, const QString&, QString*) override { return false; }
    QString browseForFolder(const QString&) override { return {}; }
    QString saveFileName(const QString&, const QString&, const QString&, int) override {
        return file;
    }
    QString openFileName(const QString&, const QString&, const QString&, int) override {
        return file;
    }
};

class BenchSystem : public System {
  public:
    bool directoryExists(const QString&) override { return true; }
    QChar decimalSeparator() override { return '.'; }
    int screenWidthTwips() override { return 28800; }
    int screenHeightTwips() override { return 16200; }
    QString programFolder() override { return "."; }
    void endProcess() override {}
    void abortProcess() override {}
};

QByteArray CsvOfRows(int rows) {
    QByteArray text =
        "Memory,RX Freq,RX Mode,Shift,TX Shift/Freq,TX Mode,CTCSS/DCS,Tone/Code,"
        "Show,Name,Scan,Group,Description\r\n";
    const char* modes[] = {"FM", "USB", "LSB", "AM", "CW"};
    for (int i = 1; i <= rows; ++i)
        text += QString(" %1 , %2 ,%3,Plus, .6 ,,CTCSS Enc,88.5,Freq,CH%4,Y,%5,Channel %1\r\n")
                    .arg(i)
                    .arg(144.0 + (i % 4000) * 0.0005, 0, 'f', 4)
                    .arg(modes[i % 5])
                    .arg(i % 10000, 4, 10, QChar('0'))
                    .arg(i % 10)
                    .toLatin1();
    return text;
}

long ResidentKilobytes() {
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly)) return -1;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:")) return line.mid(6).trimmed().split(' ').first().toLong();
    return -1;
}

void Figure(const char* what, double ms, double limitMs) {
    std::printf("%-40s %9.1f ms  (limit %.0f ms) %s\n", what, ms, limitMs,
                ms <= limitMs ? "ok" : "OVER");
}

double Ms(const QElapsedTimer& t) {
    return static_cast<double>(t.nsecsElapsed()) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM",
            qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    const int rows = argc > 1 ? std::atoi(argv[1]) : 100000;
    QTemporaryDir dir;
    Core c;
    QtClock clock;
    QtEventPump pump;
    IniStore store(dir.path());
    Answers dialogs;
    BenchSystem system;
    QtWindows windows;
    Views views;
    c.p = Platform{.clock = &clock,
                   .pump = &pump,
                   .store = &store,
                   .dialogs = &dialogs,
                   .system = &system,
                   .windows = &windows};
    c.s.HomeDir = dir.path();
    c.s.RigType = "FT817";
    windows.add(FormId::frmCsvMem, [&] { return new GridWindow(c, views, nullptr); });
    frmCsvMem_Load(c);

    dialogs.file = dir.path() + "/big.CSV";
    QFile csv(dialogs.file);
    if (!csv.open(QIODevice::WriteOnly)) return 1;
    csv.write(CsvOfRows(rows));
    csv.close();
    std::printf("%d rows\n", rows);

    QElapsedTimer t;
    t.start();
    mnuAddCSV_Click(c);  // read, check, load, and save the grid's file
    Figure("import a CSV file (and save the grid)", Ms(t), 1000);
    if (c.frmCsvMem.grdMemories.Rows() != rows + 1) return 1;

    t.restart();
    c.frmCsvMem.chkFilter[0].value = 1;
    c.frmCsvMem.cboShow[0].listIndex = 3;
    chkFilter_Click(c, 0);
    Figure("a filter change", Ms(t), 100);

    t.restart();
    SaveGridFile(c);
    Figure("save the grid's file", Ms(t), 1000);

    t.restart();
    WriteCsvFile(c, dir.path() + "/out.CSV");
    Figure("save all as a CSV file", Ms(t), 1000);

    c.frmCsvMem.chkFilter[0].value = 0;
    chkFilter_Click(c, 0);
    t.restart();
    ShowGridWindow(c);
    QApplication::processEvents();
    Figure("open the window", Ms(t), 500);
    auto* table = windows.window(FormId::frmCsvMem)->findChild<QTableView*>("grdMemories");
    if (!table || table->model()->rowCount() != rows) return 1;

    const long kb = ResidentKilobytes();
    std::printf("%-40s %9.1f MB  (limit 150 MB) %s\n", "resident memory", kb / 1024.0,
                kb >= 0 && kb <= 150 * 1024 ? "ok" : "OVER");
    return 0;
}
