// A client of rig sharing (VELDOR's or Hamlib's rigctld) that times its answers:
//   share_client PORT SECONDS [READ_MS] [WRITE_MS]
// It reads the frequency ("f") every READ_MS (default 100) and writes one ("F", 14.001 to
// 14.050 MHz in turn) every WRITE_MS (default 1000, 0 for none), one request at a time, and
// prints the read and write answer times: median, the share of reads over 1 ms, and the worst.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double Ms(Clock::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

// Sends one request and waits (at most 5 s) for its whole answer: one line for a read, the
// "RPRT n" line for a write.
bool Ask(int fd, const std::string& request, bool write, double* ms) {
    const auto start = Clock::now();
    if (::send(fd, request.data(), request.size(), 0) != static_cast<ssize_t>(request.size()))
        return false;
    std::string got;
    for (;;) {
        pollfd p{fd, POLLIN, 0};
        if (::poll(&p, 1, 5000) <= 0) return false;
        char buf[256];
        const ssize_t n = ::recv(fd, buf, sizeof buf, 0);
        if (n <= 0) return false;
        got.append(buf, static_cast<size_t>(n));
        const bool done = write ? got.find("RPRT") != std::string::npos &&
                                      got.find('\n', got.find("RPRT")) != std::string::npos
                                : got.find('\n') != std::string::npos;
        if (done) break;
    }
    *ms = Ms(Clock::now() - start);
    return true;
}

double Percentile(std::vector<double> v, double p) {
    if (v.empty()) return 0;
    std::sort(v.begin(), v.end());
    return v[std::min(v.size() - 1, static_cast<size_t>(p * static_cast<double>(v.size())))];
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: share_client PORT SECONDS [READ_MS] [WRITE_MS]\n");
        return 2;
    }
    const int port = std::atoi(argv[1]);
    const double seconds = std::atof(argv[2]);
    const int readMs = argc > 3 ? std::atoi(argv[3]) : 100;
    const int writeMs = argc > 4 ? std::atoi(argv[4]) : 1000;

    int fd = -1;
    for (int attempt = 0; attempt < 100 && fd < 0; ++attempt) {
        fd = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in a{};
        a.sin_family = AF_INET;
        a.sin_port = htons(static_cast<uint16_t>(port));
        a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (::connect(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0) {
            ::close(fd);
            fd = -1;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    }
    if (fd < 0) {
        std::fprintf(stderr, "share_client: cannot connect to port %d\n", port);
        return 1;
    }
    int one = 1;
    ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);

    std::vector<double> reads, writes;
    const auto start = Clock::now();
    auto nextRead = start, nextWrite = start + std::chrono::milliseconds(writeMs / 2);
    int written = 0;
    while (Ms(Clock::now() - start) < seconds * 1000) {
        const auto now = Clock::now();
        double ms = 0;
        if (writeMs > 0 && now >= nextWrite) {
            const std::string f = "F " + std::to_string(14001000 + 1000 * (written++ % 50)) + "\n";
            if (!Ask(fd, f, true, &ms)) break;
            writes.push_back(ms);
            nextWrite += std::chrono::milliseconds(writeMs);
        } else if (now >= nextRead) {
            if (!Ask(fd, "f\n", false, &ms)) break;
            reads.push_back(ms);
            nextRead += std::chrono::milliseconds(readMs);
        } else {
            std::this_thread::sleep_until(std::min(nextRead, writeMs > 0 ? nextWrite : nextRead));
        }
    }
    ::close(fd);
    const auto over1 = std::count_if(reads.begin(), reads.end(), [](double v) { return v > 1; });
    std::printf(
        "reads %zu median %.2f ms, over 1 ms %.1f%%, worst %.1f ms; writes %zu median "
        "%.1f ms, worst %.1f ms\n",
        reads.size(), Percentile(reads, 0.5),
        reads.empty() ? 0.0 : 100.0 * static_cast<double>(over1) / reads.size(),
        Percentile(reads, 1.0), writes.size(), Percentile(writes, 0.5), Percentile(writes, 1.0));
    return reads.empty() ? 1 : 0;
}
