// Full readings per second on the built-in simulated rig with wire pacing, on the real
// clock, beside the bound that the wire and the program's own delays allow.
#include "bench_station.h"
#include "link/catalogue.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>

namespace {

using namespace veldor;
using namespace veldor::bench;

// Runs the poll tick as its timer would, for seconds, and counts frequency reads.
void Measure(const char* rig, const char* speed, int bytesPerReading, int seconds) {
    BenchStation st(rig, speed);
    int readings = 0;
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < seconds * 1000) {
        const uint32_t before = st.c.s.NextPollTime;
        st.tickOnce();
        if (st.c.s.NextPollTime != before) ++readings;
    }
    const double perSecond = readings / (t.elapsed() / 1000.0);
    const int baud = QString(speed).section(',', 0, 0).toInt();
    const double wireMs = bytesPerReading * 11.0 * 1000.0 / baud;
    const double boundMs = st.poll.period + wireMs + st.c.f.sldSmeterDelay.value;
    std::printf(
        "%-6s %-12s %6.2f readings/s   bound %6.2f/s  (tick %d ms + wire %.1f ms + "
        "S-meter pause %d ms)\n",
        rig, speed, perSecond, 1000.0 / boundMs, st.poll.period, wireMs,
        st.c.f.sldSmeterDelay.value);
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
    // Bytes on the wire for one reading: frequency, status and signal, both ways.
    Measure("FT817", "4800,N,8,2", 3 * 5 + 5 + 1 + 1, seconds);
    Measure("FT817", "38400,N,8,2", 3 * 5 + 5 + 1 + 1, seconds);
    Measure("FT450", "38400,N,8,2", 60 + 70, seconds);
    MeasureSharing("FT817", "4800,N,8,2", 5 * seconds);
    MeasureSharing("FT450", "38400,N,8,2", 5 * seconds);
    return 0;
}
