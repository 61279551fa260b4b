#include "sim_base.h"

#include <algorithm>
#include <cmath>

namespace veldor::sim {

namespace {

// The band of signals: carriers the S-meter finds when the rig sits on them.
struct Carrier {
    int64_t hz;
    int level;     // S-meter step 0..15
    int periodMs;  // 0: always there; else on for the first half of each period
    bool tone;     // carries a CTCSS tone
};

constexpr Carrier kBand[] = {
    {3'573'000, 6, 0, false},        {7'074'000, 9, 0, false},    {14'074'000, 11, 0, false},
    {14'250'000, 5, 8'000, false},   {21'074'000, 7, 0, false},   {28'500'000, 4, 12'000, false},
    {145'500'000, 13, 20'000, true}, {145'575'000, 10, 0, false}, {433'500'000, 8, 15'000, true},
    {446'006'250, 12, 6'000, false},
};

constexpr int64_t kCarrierWidthHz = 3'000;

const Carrier* StrongestAt(int64_t hz, int64_t nowMs) {
    const Carrier* best = nullptr;
    for (const Carrier& c : kBand) {
        if (std::llabs(c.hz - hz) > kCarrierWidthHz) continue;
        if (c.periodMs > 0 && (nowMs % c.periodMs) >= c.periodMs / 2) continue;
        if (!best || c.level > best->level) best = &c;
    }
    return best;
}

}  // namespace

QByteArray ToBcd(int64_t value, int digits) {
    QByteArray out(digits / 2, '\0');
    for (int i = digits / 2 - 1; i >= 0; --i) {
        const int low = static_cast<int>(value % 10);
        value /= 10;
        const int high = static_cast<int>(value % 10);
        value /= 10;
        out[i] = static_cast<char>(high << 4 | low);
    }
    return out;
}

int64_t FromBcd(const QByteArray& bytes) {
    int64_t value = 0;
    for (char ch : bytes) {
        const auto b = static_cast<uint8_t>(ch);
        if ((b >> 4) > 9 || (b & 0x0F) > 9) return -1;
        value = value * 100 + (b >> 4) * 10 + (b & 0x0F);
    }
    return value;
}

void SimBase::setLine(int baud, int stopBits) {
    baud_ = baud > 0 ? baud : 4800;
    stopBits_ = stopBits == 1 ? 1 : 2;
}

void SimBase::traceChunk(TraceEntry entry) {
    // A rig left running for hours keeps only its recent traffic.
    constexpr size_t kTraceLimit = 20000;
    if (trace_.size() >= kTraceLimit)
        trace_.erase(trace_.begin(), trace_.begin() + kTraceLimit / 2);
    trace_.push_back(std::move(entry));
}

void SimBase::write(const QByteArray& bytes, int64_t nowMs) {
    if (faults_.gone || bytes.isEmpty()) return;
    traceChunk({nowMs, Dir::HostToRig, bytes});
    input += bytes;
    // The command is whole once its last byte has crossed the wire.
    takeCommands(nowMs + static_cast<int64_t>(std::ceil(bytes.size() * byteMs())));
}

void SimBase::reply(QByteArray bytes, int64_t nowMs, bool carriesBcdFrequency) {
    if (faults_.silent || bytes.isEmpty()) return;
    if (faults_.dropReplies > 0) {
        --faults_.dropReplies;
        return;
    }
    if (carriesBcdFrequency && faults_.corruptDigitReplies > 0 && bytes.size() > 2) {
        --faults_.corruptDigitReplies;
        bytes[2] = static_cast<char>((static_cast<uint8_t>(bytes[2]) & 0xF0) | 0x0A);
    }
    if (faults_.cutShortReplies > 0) {
        --faults_.cutShortReplies;
        bytes.truncate(bytes.size() / 2);
    }
    if (!faults_.strayBeforeNext.isEmpty()) {
        bytes.prepend(faults_.strayBeforeNext);
        faults_.strayBeforeNext.clear();
    }
    if (bytes.isEmpty()) return;
    double at = std::max<double>(static_cast<double>(nowMs), lineFreeAt_) + kReplyLatencyMs +
                faults_.extraLatencyMs;
    for (char b : bytes) {
        at += byteMs();
        out_.push_back({at, b});
    }
    lineFreeAt_ = at;
    traceChunk({static_cast<int64_t>(std::ceil(at)), Dir::RigToHost, bytes});
}

int SimBase::available(int64_t nowMs) const {
    if (faults_.gone) return 0;
    int n = 0;
    for (const Outgoing& o : out_) {
        if (o.readyAt > static_cast<double>(nowMs)) break;
        ++n;
    }
    return n;
}

QByteArray SimBase::read(int64_t nowMs, int maxBytes) {
    QByteArray bytes;
    while (!out_.empty() && out_.front().readyAt <= static_cast<double>(nowMs) &&
           (maxBytes < 0 || bytes.size() < maxBytes) && !faults_.gone) {
        bytes.append(out_.front().byte);
        out_.pop_front();
    }
    return bytes;
}

void SimBase::discardReadable(int64_t nowMs) {
    read(nowMs, -1);
}

int SimBase::signalLevelAt(int64_t hz, int64_t nowMs) const {
    const Carrier* c = StrongestAt(hz, nowMs);
    return std::clamp(std::max(state_.sMeter, c ? c->level : 0), 0, 15);
}

bool SimBase::signalHasTone(int64_t nowMs) const {
    const Carrier* c = StrongestAt(state_.frequencyHz, nowMs);
    return c ? c->tone : state_.toneMatch;
}

void FiveByteSim::takeCommands(int64_t nowMs) {
    while (input.size() >= 5) {
        const auto* b = reinterpret_cast<const uint8_t*>(input.constData());
        const Frame f{b[0], b[1], b[2], b[3], b[4]};
        input.remove(0, 5);
        command(f, nowMs);
    }
}

std::unique_ptr<RigSim> RigSim::create(const QString& rigName) {
    const QString n = rigName.toUpper();
    if (n == "FT817" || n == "FT817ND" || n == "FT857" || n == "FT857D" || n == "FT897" ||
        n == "FT897D")
        return MakeFt817Family(n);
    if (n == "FT847") return MakeFt847();
    if (n == "FT920" || n == "FT1000MP" || n == "FRG100") return MakeStatusBlockRig(n);
    if (n == "VR5000") return MakeVr5000();
    if (n == "FT450") return MakeFt450();
    return nullptr;
}

QStringList RigSim::rigNames() {
    return {"FT817",  "FT817ND", "FT847", "FT857",    "FT857D", "FT897",
            "FT897D", "FT450",   "FT920", "FT1000MP", "FRG100", "VR5000"};
}

}  // namespace veldor::sim
