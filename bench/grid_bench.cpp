// The memory grid at 100,000 rows: importing a CSV file, a filter change, saving the grid's
// file and a CSV file, opening the window, loading a settings file of as many keys, and the
// memory the process then holds. Run
// offscreen; prints one line per figure.
#include "bench_station.h"
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
#include <ctime>

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

// Wall time, and the processor time the program itself used: on a shared machine the second
// is the fairer figure.
struct Stopwatch {
    QElapsedTimer wall;
    std::clock_t cpu = 0;
    void restart() {
        wall.restart();
        cpu = std::clock();
    }
    double wallMs() const { return static_cast<double>(wall.nsecsElapsed()) / 1e6; }
    double cpuMs() const {
        return 1000.0 * static_cast<double>(std::clock() - cpu) / CLOCKS_PER_SEC;
    }
};

void Figure(const char* what, const Stopwatch& t, double limitMs) {
    std::printf("%-40s %8.1f ms wall %8.1f ms cpu  (limit %.0f ms) %s\n", what, t.wallMs(),
                t.cpuMs(), limitMs, t.cpuMs() <= limitMs ? "ok" : "OVER");
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
    bench::BenchSystem system;
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

    Stopwatch t;
    t.restart();
    mnuAddCSV_Click(c);  // read, check, load, and save the grid's file
    Figure("import a CSV file (and save the grid)", t, 1000);
    if (c.frmCsvMem.grdMemories.Rows() != rows + 1) {
        std::printf("the grid holds %d rows\n", c.frmCsvMem.grdMemories.Rows() - 1);
        return 1;
    }

    t.restart();
    c.frmCsvMem.chkFilter[0].value = 1;
    c.frmCsvMem.cboShow[0].listIndex = 3;
    chkFilter_Click(c, 0);
    Figure("a filter change", t, 100);

    t.restart();
    SaveGridFile(c);
    Figure("save the grid's file", t, 1000);

    t.restart();
    WriteCsvFile(c, dir.path() + "/out.CSV");
    Figure("save all as a CSV file", t, 1000);

    c.frmCsvMem.chkFilter[0].value = 0;
    chkFilter_Click(c, 0);
    t.restart();
    ShowGridWindow(c);
    QApplication::processEvents();
    Figure("open the window", t, 500);
    auto* table = windows.window(FormId::frmCsvMem)->findChild<QTableView*>("grdMemories");
    if (!table || table->model()->rowCount() != rows) return 1;

    // A settings file as long as the grid: its keys are hashed per section, so the load is
    // linear in the file's size.
    QByteArray keys = "[Settings]\n";
    for (int i = 0; i < rows; ++i)
        keys += "Key" + QByteArray::number(i) + "=" + QByteArray::number(i) + "\n";
    QTemporaryDir settingsDir;
    QFile settings(settingsDir.path() + "/VELDOR.ini");
    if (!settings.open(QIODevice::WriteOnly) || settings.write(keys) != keys.size()) return 1;
    settings.close();
    t.restart();
    IniStore loaded(settingsDir.path());
    if (loaded.get("VELDOR", "Settings", "KEY" + QString::number(rows - 1), "") !=
        QString::number(rows - 1))
        return 1;
    Figure("load a settings file of as many keys", t, 1000);

    const long kb = ResidentKilobytes();
    std::printf("%-40s %9.1f MB  (limit 150 MB) %s\n", "resident memory", kb / 1024.0,
                kb >= 0 && kb <= 150 * 1024 ? "ok" : "OVER");
    return 0;
}
