// Scan steps and sweep points per second on the built-in simulated rig with wire pacing, on
// the real clock, beside the bound of the tick, the program's pauses and the wire; and the
// processor time the program takes meanwhile.
#include "bench_station.h"
#include "rig_sim.h"
#include "scan/range_choice.h"
#include "scan/scan_engine.h"
#include "scan/spectrum.h"

#include <QCoreApplication>

#include <cstdio>
#include <ctime>

namespace {

using namespace veldor;
using namespace veldor::bench;

struct Figures {
    double perSecond;
    double cpuPercent;
};

// Ticks for seconds, counting the moves of the simulated rig.
Figures Run(BenchStation& st, int seconds) {
    int moves = 0;
    int64_t last = st.port.rig()->state().frequencyHz;
    QElapsedTimer t;
    t.start();
    const std::clock_t cpu = std::clock();
    while (t.elapsed() < seconds * 1000) {
        st.tickOnce();
        const int64_t hz = st.port.rig()->state().frequencyHz;
        if (hz != last) ++moves;
        last = hz;
    }
    const double wall = t.elapsed() / 1000.0;
    const double used = double(std::clock() - cpu) / CLOCKS_PER_SEC;
    return {moves / wall, 100.0 * used / wall};
}

// commands: how many five-byte commands a step sends; delay: the command delay each pays.
void Report(const char* what, BenchStation& st, const char* speed, int commands, int delay,
            const Figures& f) {
    const int baud = QString(speed).section(',', 0, 0).toInt();
    const int bytes = commands * 6;  // five out, one back
    const double wireMs = bytes * 11.0 * 1000.0 / baud;
    const int pause = st.c.f.sldSmeterDelay.value;
    // Each command is acknowledged or answered: the rig's own time before each reply counts.
    const double answerMs = commands * sim::RigSim::kReplyLatencyMs;
    const double boundMs = st.poll.period + wireMs + answerMs + pause + commands * delay;
    std::printf(
        "%-6s %-12s %7.2f %s/s  bound %6.2f/s (%3.0f%%)  tick %d ms + S-meter pause %d ms + "
        "%d x %d ms command delay + %d bytes %.1f ms + %d replies %.0f ms; CPU %.1f%%\n",
        "FT817", speed, f.perSecond, what, 1000.0 / boundMs, 100.0 * f.perSecond * boundMs / 1000.0,
        st.poll.period, pause, commands, delay, bytes, wireMs, commands, answerMs, f.cpuPercent);
}

void MeasureScan(const char* speed, int seconds) {
    BenchStation st("FT817", speed);
    ScanRange& range = st.c.s.ScanRanges[0];
    range = ScanRange{"14.100", "14.900", "5.0", "USB", "bench", "0", "0", "0", "0", "600"};
    st.c.f.cboScanRange.list = QStringList{"bench"};
    st.c.f.cboScanRange.listIndex = 0;
    cboScanRange_Click(st.c);
    st.c.f.optStopOn = {};
    st.c.f.optStopOn[2].value = true;  // None: every tick steps
    mnuScanSpeed_Click(st.c, 5);
    cmdStartStopScan_Click(st.c);
    st.tickOnce();
    // Status, frequency, S-meter; the whole command delay while scanning.
    Report("steps ", st, speed, 3, st.c.f.sldCMDdelay.value, Run(st, seconds));
}

void MeasureSweep(const char* speed, int seconds) {
    BenchStation st("FT817", speed);
    cmdStartSpectrum_Click(st.c);
    st.tickOnce();
    // Frequency and S-meter; a quarter of the command delay.
    Report("points", st, speed, 2, st.c.f.sldCMDdelay.value / 4, Run(st, seconds));
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 5;
    for (const char* speed : {"4800,N,8,2", "38400,N,8,2"}) {
        MeasureScan(speed, seconds);
        MeasureSweep(speed, seconds);
    }
    return 0;
}
