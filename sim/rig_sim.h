// A simulated Yaesu rig, written from the rig's side of the wire.
//
// It shares no table and no encoding code with the program: a round trip through it is an
// independent check of every byte the program sends. Time is given by the caller in
// milliseconds (virtual in tests, the monotonic clock on a pseudo-terminal), so replies become
// readable byte by byte at the pace of the wire.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace veldor::sim {

// Direction of a traced chunk of bytes.
enum class Dir { HostToRig, RigToHost };

struct TraceEntry {
    int64_t atMs;  // when the chunk was written (host) or became readable (rig)
    Dir dir;
    QByteArray bytes;
};

// Faults that the next replies suffer. Each count is consumed one reply at a time.
struct Faults {
    int dropReplies = 0;          // swallow the next N replies whole
    int cutShortReplies = 0;      // send only the first half of the next N replies
    int corruptDigitReplies = 0;  // put 0xA in a BCD nibble of the next N frequency replies
    QByteArray strayBeforeNext;   // bytes sent in front of the next reply
    bool silent = false;          // answer nothing at all while set
    int extraLatencyMs = 0;       // added to every reply's ready time
    bool gone = false;            // the device has vanished (USB adapter unplugged)
};

// Everything a rig can be set to by a test or by veldor-rigsim. Fields that a rig does not
// have are ignored by its model.
struct RigState {
    int64_t frequencyHz = 14250000;  // of the VFO in use
    int64_t vfoBHz = 7050000;
    QString mode = "USB";  // a program mode name: LSB USB CW CWR AM FM WFM DIG PKT FMN ...
    bool vfoB = false;     // VFO B in use
    bool split = false;
    bool ptt = false;
    bool catOn = false;     // FT-847: between CAT on (00) and CAT off (80)
    bool poweredOn = true;  // FRG-100 power state
    int sMeter = 0;         // 0..15 raw meter step (binary rigs), scaled by each model
    bool squelchOpen = false;
    bool toneMatch = false;
    bool discriminatorCentred = false;
    std::vector<uint8_t> eeprom;  // byte image for rigs with an EEPROM (FT-817/857/897)
    QString ft450Id = "0241";     // answer of the FT-450 to "ID;"

    // Repeater settings. The tone is kept as the rig holds it: in tenths of a hertz where the
    // command carries the frequency in BCD (FT-817/857/897), and as the rig's own tone number
    // where it carries a number (FT-847 code byte, FT-450 "CN", FT-920 opcode 90).
    int toneDeciHz = 0;         // FT-817/857/897 encoder tone; FT-857/897 also decoder below
    int toneDecodeDeciHz = 0;   // FT-857/897: the second tone of opcode 0B
    int toneNumber = -1;        // FT-847, FT-450, FT-920; -1 never set
    int toneDecodeNumber = -1;  // FT-920: P3 of opcode 90
    QString toneMode = "off";   // "off", "encode" (encoder only), "squelch" (encode+decode), "dcs"
    QString shift = "0";        // "0" simplex, "-", "+"
    int64_t offsetHz = 0;       // repeater offset
    // VR-5000 sub receiver and tuning steps.
    bool subOn = false;
    QString subMode = "AM";
    uint8_t stepCode = 0, subStepCode = 0;
    // FT-920: antenna tuner, its tuning runs (also the FT-450's "AC002;") and the narrow filter.
    bool tunerIn = false;
    int tuneStarts = 0;
    bool narrow = false;
    // FT-1000MP: bandwidth in hertz chosen for the 8.2 MHz and the 455 kHz IF; 0 never set.
    int filter82Hz = 0, filter455Hz = 0;
    // FT-450 functions as set by text commands, read back by the matching query.
    bool attenuator = false, ipo = false, noiseBlanker = false, noiseReduction = false;
    bool notch = false, memoryMode = false;
    bool sqlIsRfGain = false;  // "EX0581;": the SQL/RF knob works as RF gain; "EX0580;": squelch
    int agc = 0;               // GT digit: 0 off, 1 fast, 2 slow, 4 auto
    int tunerState = 0;        // AC: 0 off, 1 on, 2 tuning started
    int nrLevel = 0, afGain = 0, rfGain = 0, notchHz = 0, width = 16;
    QString contour = "CO0000", contourFrequency = "CO0114";
    int vfoEqualCount = 0;  // "VV;" received
    // FT-847 satellite mode: the receive side (set with 11, 17) and the transmit side (21, 27).
    bool satellite = false;
    int64_t satRxHz = 0, satTxHz = 0;
    QString satRxMode, satTxMode;
    // FT-920 meters, four blocks of four bytes as the rig sends them for opcode F7 with P4 0
    // to 3. Byte 0 of block 0 is the S-meter, taken from the signal at the moment.
    std::array<uint8_t, 16> meters{0, 12, 190, 40, 0, 0, 128, 100, 0, 60, 30, 220, 20, 0, 128, 0};
};

class RigSim {
  public:
    virtual ~RigSim() = default;

    // The rig's own time between a command's last byte and the first byte of its reply.
    static constexpr double kReplyLatencyMs = 2;

    // "FT817", "FT817ND", "FT847", "FT857", "FT857D", "FT897", "FT897D", "FT450", "FT920",
    // "FT1000MP", "FRG100", "VR5000"; nullptr for any other name.
    static std::unique_ptr<RigSim> create(const QString& rigName);
    static QStringList rigNames();

    // Serial line speed for pacing: bits per byte is start + 8 data + stop bits.
    virtual void setLine(int baud, int stopBits) = 0;

    // Bytes from the host at time nowMs. The model frames them itself (five-byte frames, or
    // ";"-ended text for the FT-450) and queues its replies.
    virtual void write(const QByteArray& bytes, int64_t nowMs) = 0;
    // Number of reply bytes readable at nowMs.
    virtual int available(int64_t nowMs) const = 0;
    // Take up to maxBytes readable bytes (all of them when maxBytes < 0).
    virtual QByteArray read(int64_t nowMs, int maxBytes = -1) = 0;
    // Forget bytes already readable (the host emptied its input buffer).
    virtual void discardReadable(int64_t nowMs) = 0;

    virtual RigState& state() = 0;
    virtual Faults& faults() = 0;
    virtual const std::vector<TraceEntry>& trace() const = 0;
    virtual void clearTrace() = 0;
};

}  // namespace veldor::sim
