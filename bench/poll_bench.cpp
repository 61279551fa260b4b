// Full readings per second on the built-in simulated rig with wire pacing, on the real
// clock, beside the bound that the wire and the program's own delays allow.
#include "bench_station.h"
#include "link/catalogue.h"
#include "rig_sim.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

using namespace veldor;
using namespace veldor::bench;

// Runs the poll tick as its timer would, for seconds, and counts full readings (a reading is
// done when the tick sets the time of the next). The bound is what the same readings cannot
// take less than: the tick period for each tick, the fixed pauses the program asked for, every
// byte on the wire both ways at 11 bits a byte, and the rig's own time before each reply; all
// counted over the same window, from the simulated rig's trace.
void Measure(const char* rig, const char* speed, int seconds) {
    BenchStation st(rig, speed);
    for (int i = 0; i < 3; ++i) st.tickOnce();  // taking the rig, the first reading
    st.port.rig()->clearTrace();
    st.pump.pausedMs = 0;
    int readings = 0, ticks = 0;
    QElapsedTimer t;
    t.start();
    const std::clock_t cpu = std::clock();
    while (t.elapsed() < seconds * 1000) {
        const uint32_t before = st.c.s.NextPollTime;
        st.tickOnce();
        ++ticks;
        if (st.c.s.NextPollTime != before) ++readings;
    }
    const double wall = t.elapsed() / 1000.0;
    const double cpuPercent = 100.0 * double(std::clock() - cpu) / CLOCKS_PER_SEC / wall;
    qsizetype bytes = 0;
    int replies = 0;
    for (const sim::TraceEntry& e : st.port.rig()->trace()) {
        bytes += e.bytes.size();
        replies += e.dir == sim::Dir::RigToHost;
    }
    const int baud = QString(speed).section(',', 0, 0).toInt();
    const double wireMs = bytes * 11.0 * 1000.0 / baud;
    const double boundMs = ticks * st.poll.period + double(st.pump.pausedMs) + wireMs +
                           replies * sim::RigSim::kReplyLatencyMs;
    const double perSecond = readings / wall;
    const double bound = readings * 1000.0 / boundMs;
    const auto each = [&](double total) { return readings > 0 ? total / readings : 0.0; };
    std::printf(
        "%-8s %-12s %6.2f readings/s  bound %6.2f/s (%3.0f%%)  a reading: tick %d ms + "
        "pauses %.0f ms + %.0f bytes %.1f ms + %.1f replies %.1f ms; CPU %.1f%%\n",
        rig, speed, perSecond, bound, bound > 0 ? 100.0 * perSecond / bound : 0.0, st.poll.period,
        each(double(st.pump.pausedMs)), each(double(bytes)), each(wireMs), each(replies),
        each(replies * sim::RigSim::kReplyLatencyMs), cpuPercent);
}

// Rig sharing: a read answered from the kept state, and a write from its line to its answer.
void MeasureSharing(const char* rig, const char* speed, int writes) {
    BenchStation st(rig, speed);
    st.tickOnce();
    RigctlSession& session = st.server.session;
    constexpr int kReads = 100000;
    QElapsedTimer t;
    t.start();
    qsizetype bytes = 0;
    for (int i = 0; i < kReads; ++i) bytes += RigctlReceive(st.c, session, "f\nm\n").size();
    const double readUs = t.nsecsElapsed() / 1000.0 / (2.0 * kReads);

    // From the line to its answer, which the tick gives once the rig has taken the frequency.
    double answeredMs = 0, worstMs = 0;
    for (int i = 0; i < writes; ++i) {
        const int64_t hz = 14000000 + 1000 * (i % 50 + 1);
        st.server.answeredMs = -1;
        st.server.sinceWrite.start();
        st.server.replies = RigctlReceive(st.c, session, "F " + QByteArray::number(hz) + "\n");
        while (st.server.replies.isEmpty()) st.tickOnce();
        if (st.port.rig()->state().frequencyHz != hz) std::printf("frequency not taken\n");
        answeredMs += st.server.answeredMs;
        worstMs = std::max(worstMs, st.server.answeredMs);
    }
    std::printf(
        "%-6s %-12s read answered in %.1f us (%lld bytes); write answered after %.0f ms "
        "(worst %.0f ms; tick period %d ms)\n",
        rig, speed, readUs, static_cast<long long>(bytes), answeredMs / writes, worstMs,
        st.poll.period);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 5;
    // Every rig the program drives, each family at the slowest and the fastest usual speed.
    for (const QString& rig : sim::RigSim::rigNames())
        for (const char* speed : {"4800,N,8,2", "38400,N,8,2"})
            Measure(rig.toLatin1().constData(), speed, seconds);
    MeasureSharing("FT817", "4800,N,8,2", 5 * seconds);
    MeasureSharing("FT450", "38400,N,8,2", 5 * seconds);
    return 0;
}
