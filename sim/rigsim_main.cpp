// veldor-rigsim: a simulated rig on a pseudo-terminal, for VELDOR or any CAT program.
#include "rig_sim.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using veldor::sim::Dir;
using veldor::sim::RigSim;

volatile std::sig_atomic_t stopRequested = 0;
void OnStop(int) {
    stopRequested = 1;
}

constexpr const char* kHelp =
    "veldor-rigsim --rig NAME [options]\n"
    "Puts a simulated Yaesu rig on a pseudo-terminal and prints the terminal's path.\n\n"
    "  --rig NAME          FT817 FT817ND FT847 FT857 FT857D FT897 FT897D FT450 FT920\n"
    "                      FT1000MP FRG100 VR5000\n"
    "  --link PATH         also make PATH a symbolic link to the terminal\n"
    "  --second-link PATH  a second terminal to the same rig, for another client; its path\n"
    "                      is printed on the second line\n"
    "  --baud N            line speed for pacing the replies (default 4800)\n"
    "  --stop-bits N       1 or 2 (default 2)\n"
    "  --trace FILE        append every chunk: milliseconds, > host to rig or < rig to host,\n"
    "                      hex bytes\n"
    "  --state-file FILE   rewritten after every command: the rig's state as key=value\n"
    "  --control FIFO      a named pipe taking lines: freq HZ, freqb HZ, mode NAME, smeter N,\n"
    "                      ptt 0|1, split 0|1, squelch 0|1 (open), tone 0|1 (matched),\n"
    "                      disc 0|1 (centred), eeprom ADDR VALUE (hex), id TEXT, drop N,\n"
    "                      cut N, corrupt N, stray HEX, silent 0|1, latency MS, gone\n"
    "  --freq HZ           start frequency (default 14250000)\n"
    "  --mode NAME         start mode (default USB)\n"
    "  --faults LIST       faults to start with, comma separated, as on the control pipe\n"
    "                      with '=': drop=2,silent=1\n"
    "  -h, --help          print this help and exit\n"
    "  --version           print the version and exit\n";

struct Options {
    QString rig, link, secondLink, trace, stateFile, control, faults;
    int baud = 4800;
    int stopBits = 2;
    long long freq = -1;
    QString mode;
};

bool Apply(RigSim& rig, const QString& line) {
    const QStringList w = line.simplified().split(' ');
    if (w.size() < 1 || w[0].isEmpty()) return false;
    const QString key = w[0].toLower();
    if (key == "gone") {
        rig.faults().gone = true;
        return true;
    }
    if (w.size() < 2) return false;
    const QString& v = w[1];
    if (key == "eeprom" && w.size() == 3) {  // eeprom ADDRESS VALUE, both hexadecimal
        bool okAddress = false, okValue = false;
        const int address = v.toInt(&okAddress, 16);
        const int value = w[2].toInt(&okValue, 16);
        auto& image = rig.state().eeprom;
        if (!okAddress || !okValue || address < 0 || address >= static_cast<int>(image.size()) ||
            value < 0 || value > 255)
            return false;
        image[static_cast<size_t>(address)] = static_cast<uint8_t>(value);
        return true;
    }
    bool ok = true;
    auto& s = rig.state();
    auto& f = rig.faults();
    if (key == "freq")
        s.frequencyHz = v.toLongLong(&ok);
    else if (key == "freqb")
        s.vfoBHz = v.toLongLong(&ok);
    else if (key == "mode")
        s.mode = v.toUpper();
    else if (key == "smeter")
        s.sMeter = v.toInt(&ok);
    else if (key == "ptt")
        s.ptt = v == "1";
    else if (key == "squelch")
        s.squelchOpen = v == "1";
    else if (key == "tone")
        s.toneMatch = v == "1";
    else if (key == "disc")
        s.discriminatorCentred = v == "1";
    else if (key == "split")
        s.split = v == "1";
    else if (key == "id")
        s.ft450Id = v;
    else if (key == "drop")
        f.dropReplies = v.toInt(&ok);
    else if (key == "cut")
        f.cutShortReplies = v.toInt(&ok);
    else if (key == "corrupt")
        f.corruptDigitReplies = v.toInt(&ok);
    else if (key == "stray")
        f.strayBeforeNext = QByteArray::fromHex(v.toLatin1());
    else if (key == "silent")
        f.silent = v == "1";
    else if (key == "latency")
        f.extraLatencyMs = v.toInt(&ok);
    else
        return false;
    return ok;
}

void WriteState(RigSim& rig, const QString& path) {
    if (path.isEmpty()) return;
    const auto& s = rig.state();
    const QString text = QString(
                             "frequency=%1\nfrequencyB=%2\nmode=%3\nvfoB=%4\nsplit=%5\nptt=%6\n"
                             "catOn=%7\npoweredOn=%8\n")
                             .arg(s.frequencyHz)
                             .arg(s.vfoBHz)
                             .arg(s.mode)
                             .arg(int(s.vfoB))
                             .arg(int(s.split))
                             .arg(int(s.ptt))
                             .arg(int(s.catOn))
                             .arg(int(s.poweredOn)) +
                         // The tone as the rig holds it: tenths of a hertz, or its number.
                         QString(
                             "toneMode=%1\ntoneDeciHz=%2\ntoneNumber=%3\nshift=%4\n"
                             "offset=%5\n")
                             .arg(s.toneMode)
                             .arg(s.toneDeciHz)
                             .arg(s.toneNumber)
                             .arg(s.shift)
                             .arg(s.offsetHz) +
                         // FT-847 satellite mode and its two sides.
                         QString("satellite=%1\nsatRx=%2\nsatTx=%3\n")
                             .arg(int(s.satellite))
                             .arg(s.satRxHz)
                             .arg(s.satTxHz);
    const QByteArray tmp = (path + ".tmp").toLocal8Bit();
    if (FILE* out = std::fopen(tmp.constData(), "w")) {
        const QByteArray bytes = text.toLatin1();
        std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), out);
        std::fclose(out);
        std::rename(tmp.constData(), path.toLocal8Bit().constData());
    }
}

struct Terminal {
    int master = -1;
    int slave = -1;
    QByteArray slaveName;
    QString link;
    std::unique_ptr<RigSim> model;
};

Terminal OpenTerminal(const QString& link) {
    Terminal term;
    term.link = link;
    term.master = ::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (term.master < 0 || ::grantpt(term.master) != 0 || ::unlockpt(term.master) != 0) {
        std::perror("veldor-rigsim: pseudo-terminal");
        term.master = -1;
        return term;
    }
    term.slaveName = ::ptsname(term.master);
    // Raw bytes, no echo: the terminal must carry binary frames as they are. Our own opening
    // of the slave keeps the terminal alive while the client closes and reopens it.
    term.slave = ::open(term.slaveName.constData(), O_RDWR | O_NOCTTY);
    termios tio{};
    if (term.slave >= 0 && ::tcgetattr(term.slave, &tio) == 0) {
        ::cfmakeraw(&tio);
        ::tcsetattr(term.slave, TCSANOW, &tio);
    }
    if (!link.isEmpty()) {
        ::unlink(link.toLocal8Bit().constData());
        if (::symlink(term.slaveName.constData(), link.toLocal8Bit().constData()) != 0) {
            std::perror("veldor-rigsim: --link");
            ::close(term.master);
            term.master = -1;
        }
    }
    return term;
}

void CloseTerminal(Terminal& term) {
    if (!term.link.isEmpty()) ::unlink(term.link.toLocal8Bit().constData());
    if (term.slave >= 0) ::close(term.slave);
    if (term.master >= 0) ::close(term.master);
}

int64_t NowMs() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

}  // namespace

int main(int argc, char* argv[]) {
    Options o;
    for (int i = 1; i < argc; ++i) {
        const QString a = QString::fromLocal8Bit(argv[i]);
        auto next = [&]() -> QString {
            if (i + 1 >= argc) {
                std::fprintf(stderr, "veldor-rigsim: %s needs a value\n", argv[i]);
                std::exit(2);
            }
            return QString::fromLocal8Bit(argv[++i]);
        };
        if (a == "--help" || a == "-h") {
            std::fputs(kHelp, stdout);
            return 0;
        }
        if (a == "--version") {
            std::printf("veldor-rigsim %d.%d.%d\n", VELDOR_VERSION_MAJOR, VELDOR_VERSION_MINOR,
                        VELDOR_VERSION_REVISION);
            return 0;
        }
        if (a == "--rig")
            o.rig = next();
        else if (a == "--link")
            o.link = next();
        else if (a == "--second-link")
            o.secondLink = next();
        else if (a == "--baud")
            o.baud = next().toInt();
        else if (a == "--stop-bits")
            o.stopBits = next().toInt();
        else if (a == "--trace")
            o.trace = next();
        else if (a == "--state-file")
            o.stateFile = next();
        else if (a == "--control")
            o.control = next();
        else if (a == "--freq")
            o.freq = next().toLongLong();
        else if (a == "--mode")
            o.mode = next();
        else if (a == "--faults")
            o.faults = next();
        else {
            std::fprintf(stderr, "veldor-rigsim: unknown option %s\n%s", argv[i], kHelp);
            return 2;
        }
    }
    auto rig = RigSim::create(o.rig);
    if (!rig) {
        std::fprintf(stderr, "veldor-rigsim: unknown rig '%s'\n%s", qPrintable(o.rig), kHelp);
        return 2;
    }
    rig->setLine(o.baud, o.stopBits);
    if (o.freq >= 0) rig->state().frequencyHz = o.freq;
    if (!o.mode.isEmpty()) rig->state().mode = o.mode.toUpper();
    for (const QString& fault : o.faults.split(',', Qt::SkipEmptyParts)) {
        if (!Apply(*rig, QString(fault).replace('=', ' '))) {
            std::fprintf(stderr, "veldor-rigsim: bad fault '%s'\n", qPrintable(fault));
            return 2;
        }
    }

    // The rig's terminal, and a second one for another client of the same rig (as a rig with
    // two CAT ports would have): each client has its own framing, the rig's state is one.
    std::vector<Terminal> terminals;
    terminals.push_back(OpenTerminal(o.link));
    if (!o.secondLink.isEmpty()) terminals.push_back(OpenTerminal(o.secondLink));
    for (const Terminal& term : terminals)
        if (term.master < 0) return 1;
    terminals[0].model = std::move(rig);
    for (size_t i = 1; i < terminals.size(); ++i) {
        terminals[i].model = RigSim::create(o.rig);
        terminals[i].model->setLine(o.baud, o.stopBits);
    }
    RigSim& first = *terminals[0].model;

    int control = -1;
    if (!o.control.isEmpty()) {
        const QByteArray path = o.control.toLocal8Bit();
        ::unlink(path.constData());
        if (::mkfifo(path.constData(), 0600) != 0 ||
            (control = ::open(path.constData(), O_RDWR | O_NONBLOCK)) < 0) {
            std::perror("veldor-rigsim: --control");
            return 1;
        }
    }
    FILE* trace = o.trace.isEmpty() ? nullptr : std::fopen(o.trace.toLocal8Bit().constData(), "a");
    for (const Terminal& term : terminals) std::printf("%s\n", term.slaveName.constData());
    std::fflush(stdout);

    std::signal(SIGTERM, OnStop);
    std::signal(SIGINT, OnStop);
    std::signal(SIGPIPE, SIG_IGN);
    const int64_t start = NowMs();
    QByteArray controlLine;
    WriteState(first, o.stateFile);

    while (!stopRequested && !first.faults().gone) {
        std::vector<pollfd> fds;
        for (const Terminal& term : terminals) fds.push_back({term.master, POLLIN, 0});
        if (control >= 0) fds.push_back({control, POLLIN, 0});
        const int64_t now = NowMs() - start;
        // Wake for the next reply byte that falls due.
        int timeout = 5;
        for (const Terminal& term : terminals)
            if (term.model->available(now + 1) > term.model->available(now)) timeout = 1;
        ::poll(fds.data(), fds.size(), timeout);
        const int64_t t = NowMs() - start;
        for (size_t i = 0; i < terminals.size(); ++i) {
            if (!(fds[i].revents & POLLIN)) continue;
            char buf[512];
            const ssize_t n = ::read(terminals[i].master, buf, sizeof buf);
            if (n <= 0) continue;
            RigSim& model = *terminals[i].model;
            model.state() = first.state();  // the one rig behind both terminals
            model.write(QByteArray(buf, static_cast<int>(n)), t);
            first.state() = model.state();
            WriteState(first, o.stateFile);
        }
        if (control >= 0 && (fds.back().revents & POLLIN)) {
            char buf[256];
            const ssize_t n = ::read(control, buf, sizeof buf);
            if (n > 0) controlLine.append(buf, static_cast<int>(n));
            for (qsizetype nl = controlLine.indexOf('\n'); nl >= 0;
                 nl = controlLine.indexOf('\n')) {
                const QString line = QString::fromLatin1(controlLine.left(nl)).trimmed();
                controlLine.remove(0, nl + 1);
                if (!line.isEmpty() && !Apply(first, line))
                    std::fprintf(stderr, "veldor-rigsim: bad control line '%s'\n",
                                 qPrintable(line));
                WriteState(first, o.stateFile);
            }
        }
        for (Terminal& term : terminals) {
            const QByteArray out = term.model->read(t, -1);
            if (!out.isEmpty()) {
                [[maybe_unused]] const ssize_t w =
                    ::write(term.master, out.constData(), static_cast<size_t>(out.size()));
            }
            if (trace && !term.model->trace().empty()) {
                for (const auto& e : term.model->trace())
                    std::fprintf(trace, "%lld %c %s\n", static_cast<long long>(e.atMs),
                                 e.dir == Dir::HostToRig ? '>' : '<',
                                 e.bytes.toHex(' ').constData());
                std::fflush(trace);
            }
            term.model->clearTrace();
        }
    }
    WriteState(first, o.stateFile);
    // A vanished device: the terminal goes away under the client, as an unplugged adapter.
    for (Terminal& term : terminals) CloseTerminal(term);
    if (trace) std::fclose(trace);
    if (!o.control.isEmpty()) ::unlink(o.control.toLocal8Bit().constData());
    return 0;
}
