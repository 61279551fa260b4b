// What every simulated rig shares: the reply queue paced at the wire's speed, the trace, the
// faults, and the band of signals the S-meter follows.
#pragma once

#include "rig_sim.h"

#include <deque>

namespace veldor::sim {

class SimBase : public RigSim {
  public:
    void setLine(int baud, int stopBits) override;
    void write(const QByteArray& bytes, int64_t nowMs) override;
    int available(int64_t nowMs) const override;
    QByteArray read(int64_t nowMs, int maxBytes) override;
    void discardReadable(int64_t nowMs) override;
    RigState& state() override { return state_; }
    Faults& faults() override { return faults_; }
    const std::vector<TraceEntry>& trace() const override { return trace_; }
    void clearTrace() override { trace_.clear(); }

  protected:
    // Bytes from the host wait in `input` until the model takes a whole command.
    virtual void takeCommands(int64_t nowMs) = 0;
    // Queues a reply. A frequency reply may have a digit corrupted by the faults.
    void reply(QByteArray bytes, int64_t nowMs, bool carriesBcdFrequency = false);
    // The S-meter step (0..15) at the rig's frequency and moment, from the band of signals.
    int signalLevel(int64_t nowMs) const { return signalLevelAt(state_.frequencyHz, nowMs); }
    // The same on another frequency (the FT-847's satellite receive side).
    int signalLevelAt(int64_t hz, int64_t nowMs) const;
    // Whether the strongest signal there carries a CTCSS tone.
    bool signalHasTone(int64_t nowMs) const;
    double byteMs() const { return (1.0 + 8.0 + stopBits_) * 1000.0 / baud_; }

    QByteArray input;
    RigState state_;

  private:
    void traceChunk(TraceEntry entry);

    struct Outgoing {
        double readyAt;
        char byte;
    };
    std::deque<Outgoing> out_;
    double lineFreeAt_ = 0;
    Faults faults_;
    std::vector<TraceEntry> trace_;
    int baud_ = 4800;
    int stopBits_ = 2;
};

// A binary command: parameters P1..P4 then the opcode.
struct Frame {
    uint8_t p1, p2, p3, p4, opcode;
};

// Binary rigs: five-byte frames.
class FiveByteSim : public SimBase {
  protected:
    void takeCommands(int64_t nowMs) override;
    virtual void command(const Frame& f, int64_t nowMs) = 0;
};

std::unique_ptr<RigSim> MakeFt817Family(const QString& name);
std::unique_ptr<RigSim> MakeFt847();
std::unique_ptr<RigSim> MakeStatusBlockRig(const QString& name);  // FT-920, FT-1000MP, FRG-100
std::unique_ptr<RigSim> MakeVr5000();
std::unique_ptr<RigSim> MakeFt450();

// Packed BCD of a number of digits, most significant pair first, and back (-1 if a nibble is
// not a decimal digit).
QByteArray ToBcd(int64_t value, int digits);
int64_t FromBcd(const QByteArray& bytes);

}  // namespace veldor::sim
