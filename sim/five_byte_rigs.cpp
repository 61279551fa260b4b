// The binary rigs, each written from the rig's side of its CAT manual: what a frame does to
// the rig and what the rig sends back.
#include "sim_base.h"

#include <array>

namespace veldor::sim {

namespace {

// The mode byte of the FT-817/857/897 and FT-847 (read with 03, set with 07).
struct ModeCode {
    const char* name;
    uint8_t code;
};
constexpr ModeCode kBcdRigModes[] = {
    {"LSB", 0x00},  {"USB", 0x01}, {"CW", 0x02},  {"CWR", 0x03}, {"AM", 0x04},
    {"WFM", 0x06},  {"FM", 0x08},  {"DIG", 0x0A}, {"PKT", 0x0C}, {"CWN", 0x82},
    {"CWRN", 0x83}, {"AMN", 0x84}, {"FMN", 0x88},
};

uint8_t BcdRigModeCode(const QString& mode) {
    for (const ModeCode& m : kBcdRigModes)
        if (mode == m.name) return m.code;
    return 0x01;
}

QString BcdRigModeName(uint8_t code) {
    for (const ModeCode& m : kBcdRigModes)
        if (code == m.code) return m.name;
    return {};
}

QByteArray FrameBytes(uint8_t a, uint8_t b, uint8_t c, uint8_t d) {
    QByteArray out;
    for (uint8_t v : {a, b, c, d}) out.append(static_cast<char>(v));
    return out;
}

QByteArray PairBytes(uint8_t a, uint8_t b) {
    QByteArray out;
    out.append(static_cast<char>(a));
    out.append(static_cast<char>(b));
    return out;
}

// The frequency and mode reply (opcode 03) of the FT-817/857/897 and FT-847.
QByteArray FrequencyModeReply(const RigState& s) {
    QByteArray r = ToBcd(s.frequencyHz / 10, 8);
    r.append(static_cast<char>(BcdRigModeCode(s.mode)));
    return r;
}

// The tone mode byte (opcode 0A) and the shift byte (opcode 09) of the FT-817/857/897 and
// FT-847.
struct NamedCode {
    const char* name;
    uint8_t code;
};
constexpr NamedCode kToneModes[] = {
    {"off", 0x8A}, {"encode", 0x4A}, {"squelch", 0x2A}, {"dcs", 0x0A}};
constexpr NamedCode kShifts[] = {{"0", 0x89}, {"-", 0x09}, {"+", 0x49}};

template <size_t N>
QString NameOf(const NamedCode (&table)[N], uint8_t code) {
    for (const NamedCode& c : table)
        if (c.code == code) return c.name;
    return {};
}

// The writes the FT-817/857/897 and FT-847 share: frequency, mode, PTT, tone mode, repeater
// shift and offset. False for any other opcode. A parameter the rig has no meaning for
// leaves its setting as it was.
bool SharedBcdRigWrite(RigState& s, const Frame& f) {
    switch (f.opcode) {
        case 0x01: {
            const int64_t tens = FromBcd(FrameBytes(f.p1, f.p2, f.p3, f.p4));
            if (tens >= 0) s.frequencyHz = tens * 10;
            return true;
        }
        case 0x07: {
            const QString mode = BcdRigModeName(f.p1);
            if (!mode.isEmpty()) s.mode = mode;
            return true;
        }
        case 0x08:
            s.ptt = true;
            return true;
        case 0x88:
            s.ptt = false;
            return true;
        case 0x0A: {
            const QString toneMode = NameOf(kToneModes, f.p1);
            if (!toneMode.isEmpty()) s.toneMode = toneMode;
            return true;
        }
        case 0x09: {
            const QString shift = NameOf(kShifts, f.p1);
            if (!shift.isEmpty()) s.shift = shift;
            return true;
        }
        case 0xF9: {  // repeater offset: eight BCD digits in tens of hertz
            const int64_t tens = FromBcd(FrameBytes(f.p1, f.p2, f.p3, f.p4));
            if (tens >= 0) s.offsetHz = tens * 10;
            return true;
        }
        default:
            return false;
    }
}

// FT-817, FT-817ND, FT-857, FT-857D, FT-897, FT-897D: every command that is not a read is
// answered by one byte.
class Ft817Family : public FiveByteSim {
  public:
    explicit Ft817Family(const QString& name) : ft817_(name.startsWith("FT817")) {
        state_.eeprom.assign(0x2000, 0);
    }

  protected:
    // The memory byte whose bit 0 is the VFO in use: 0x55 on the FT-817, 0x68 on the FT-857
    // and FT-897 (where bit 7 set says the rig is on a VFO at all).
    int liveVfoAddress() const { return ft817_ ? 0x55 : 0x68; }

    // A memory byte, with the bits that mirror the rig's live state.
    uint8_t memoryByte(int address) const {
        const uint8_t stored = state_.eeprom[address];
        const uint8_t vfo = state_.vfoB ? 0x01 : 0x00;
        if (address != liveVfoAddress()) return stored;
        if (ft817_) return static_cast<uint8_t>((stored & 0xFE) | vfo);
        return static_cast<uint8_t>((stored & 0x7E) | 0x80 | vfo);
    }

    // A byte written into memory; at the live VFO byte it puts the rig on the VFO of bit 0.
    void storeMemoryByte(int address, uint8_t value) {
        state_.eeprom[address] = value;
        if (address == liveVfoAddress()) useVfo((value & 0x01) != 0);
    }

    void useVfo(bool b) {
        if (b == state_.vfoB) return;
        std::swap(state_.frequencyHz, state_.vfoBHz);
        state_.vfoB = b;
    }

    void command(const Frame& f, int64_t now) override {
        RigState& s = state_;
        const int memorySize = static_cast<int>(s.eeprom.size());
        switch (f.opcode) {
            case 0x03:  // read frequency and mode
                return reply(FrequencyModeReply(s), now, true);
            case 0xE7: {  // receive status: S-meter, squelch, tone match, discriminator
                const int level = signalLevel(now);
                const bool open = level > 0 || s.squelchOpen;
                uint8_t b = static_cast<uint8_t>(level & 0x0F);
                if (!open) b |= 0x80;
                if (!(s.toneMatch || signalHasTone(now))) b |= 0x40;
                if (!s.discriminatorCentred) b |= 0x20;
                return reply(QByteArray(1, static_cast<char>(b)), now);
            }
            case 0xF7: {  // transmit status: 0xFF while receiving
                if (!s.ptt) return reply(QByteArray(1, '\xFF'), now);
                const uint8_t b = static_cast<uint8_t>((s.split ? 0x20 : 0) | 0x08);
                return reply(QByteArray(1, static_cast<char>(b)), now);
            }
            case 0xBB: {  // read two memory bytes
                const int a = (f.p1 << 8 | f.p2) % memorySize;
                QByteArray r;
                r.append(static_cast<char>(memoryByte(a)));
                r.append(static_cast<char>(memoryByte((a + 1) % memorySize)));
                return reply(r, now);
            }
            case 0xBC: {  // write two memory bytes: P3 at the address, P4 at the next
                const int a = (f.p1 << 8 | f.p2) % memorySize;
                storeMemoryByte(a, f.p3);
                storeMemoryByte((a + 1) % memorySize, f.p4);
                break;
            }
            case 0x0B:  // tone in BCD tenths of a hertz; the FT-857/897 add the decoder tone
                if (const int64_t tone = FromBcd(PairBytes(f.p1, f.p2)); tone >= 0)
                    s.toneDeciHz = static_cast<int>(tone);
                if (ft817_) break;
                if (const int64_t tone = FromBcd(PairBytes(f.p3, f.p4)); tone >= 0)
                    s.toneDecodeDeciHz = static_cast<int>(tone);
                break;
            case 0x02:
                s.split = true;
                break;
            case 0x82:
                s.split = false;
                break;
            case 0x81:  // VFO A/B toggle
                useVfo(!s.vfoB);
                break;
            case 0x0F:
                s.poweredOn = true;
                break;
            case 0x8F:
                s.poweredOn = false;
                break;
            default:
                SharedBcdRigWrite(s, f);  // and lock, clarifier: acknowledged
                break;
        }
        reply(QByteArray(1, '\0'), now);
    }

  private:
    bool ft817_;
};

// FT-847: nothing is understood outside CAT mode, and writes are not acknowledged.
class Ft847 : public FiveByteSim {
  protected:
    void command(const Frame& f, int64_t now) override {
        RigState& s = state_;
        if (f.opcode == 0x00) {
            s.catOn = true;
            return;
        }
        if (f.opcode == 0x80) {
            s.catOn = false;
            return;
        }
        if (!s.catOn) return;
        if (satelliteCommand(f)) return;
        switch (f.opcode) {
            case 0x03:
                return reply(FrequencyModeReply(s), now, true);
            case 0xE7: {  // S-meter in five bits, squelch in bit 7; in satellite mode, of the
                          // receive side
                const int64_t hz = s.satellite ? s.satRxHz : s.frequencyHz;
                const int level = signalLevelAt(hz, now) * 2;
                uint8_t b = static_cast<uint8_t>(std::min(level, 31));
                if (level == 0 && !s.squelchOpen) b |= 0x80;
                return reply(QByteArray(1, static_cast<char>(b)), now);
            }
            case 0xF7:
                return reply(QByteArray(1, s.ptt ? '\x08' : '\xFF'), now);
            case 0x0B:  // the FT-847's own tone code, one byte
                s.toneNumber = f.p1;
                return;
            default:
                SharedBcdRigWrite(s, f);  // no acknowledgement
                return;
        }
    }

    // Satellite mode on (4E) and off (8E), and the frequency and mode of its receive side
    // (11, 17) and transmit side (21, 27). False for any other opcode.
    bool satelliteCommand(const Frame& f) {
        RigState& s = state_;
        switch (f.opcode) {
            case 0x4E:
            case 0x8E:
                s.satellite = f.opcode == 0x4E;
                return true;
            case 0x11:
            case 0x21: {
                const int64_t tens = FromBcd(FrameBytes(f.p1, f.p2, f.p3, f.p4));
                if (tens >= 0) (f.opcode == 0x11 ? s.satRxHz : s.satTxHz) = tens * 10;
                return true;
            }
            case 0x17:
            case 0x27: {
                const QString mode = BcdRigModeName(f.p1);
                if (!mode.isEmpty()) (f.opcode == 0x17 ? s.satRxMode : s.satTxMode) = mode;
                return true;
            }
            default:
                return false;
        }
    }
};

// FT-920, FT-1000MP and FRG-100: frequency written as BCD least significant pair first, and
// status read back in blocks.
class StatusBlockRig : public FiveByteSim {
  public:
    explicit StatusBlockRig(QString name)
        : mp_(name == "FT1000MP"), ft920_(name == "FT920"), frg_(name == "FRG100") {}

  protected:
    // Each rig's own mode numbers, P4 of opcode 0C.
    static constexpr NamedCode kFrgSetModes[] = {{"LSB", 0}, {"USB", 1}, {"CW", 2}, {"CWN", 3},
                                                 {"AM", 4},  {"AMN", 5}, {"FM", 6}};
    static constexpr NamedCode kMpSetModes[] = {
        {"LSB", 0}, {"USB", 1}, {"CW", 2},   {"CWR", 3},  {"AM", 4},      {"AMS", 5},
        {"FM", 6},  {"WFM", 7}, {"RTYL", 8}, {"RTYU", 9}, {"PKTL", 0x0A}, {"PKTF", 0x0B}};
    static constexpr NamedCode kFt920SetModes[] = {
        {"LSB", 0}, {"USB", 1}, {"CW", 2},      {"CWR", 3},     {"AM", 4},
        {"FM", 6},  {"FMN", 7}, {"RTYL", 0x09}, {"RTYU", 0x0A}, {"PKTF", 0x0B}};

    // The mode as a VFO record carries it: the FRG-100's low nibble of byte 7; the
    // FT-1000MP's bits 0 to 2 of byte 7 with the alternate flag that lives in byte 0; the
    // FT-920's byte 7 with its alternate flag in bit 6 and its narrow flag in bit 7.
    struct RecordMode {
        const char* name;
        uint8_t frgNibble;
        uint8_t mpBits;
        bool mpAlternate;
        uint8_t ft920Byte;
    };
    static constexpr RecordMode kRecordModes[] = {
        {"LSB", 0, 0, false, 0x00}, {"USB", 1, 1, false, 0x40},  {"CW", 2, 2, false, 0x41},
        {"CWN", 2, 2, false, 0x41}, {"CWR", 2, 2, true, 0x01},   {"AM", 3, 3, false, 0x02},
        {"AMN", 3, 3, false, 0x82}, {"AMS", 3, 3, true, 0x02},   {"FM", 4, 4, false, 0x03},
        {"FMN", 4, 4, false, 0x83}, {"WFM", 4, 4, false, 0x03},  {"RTYL", 0, 5, false, 0x04},
        {"RTYU", 1, 5, true, 0x05}, {"PKTL", 0, 6, false, 0x06}, {"PKTF", 4, 6, true, 0x06},
    };

    const RecordMode& recordMode() const {
        for (const RecordMode& m : kRecordModes)
            if (state_.mode == m.name) return m;
        return kRecordModes[1];
    }

    // The FT-1000MP's bandwidths and their codes: P4 of opcode 8C, and the value the rig
    // puts in byte 8 of a VFO record (bits 4 to 6 for the 8.2 MHz IF, 0 to 2 for 455 kHz).
    struct Bandwidth {
        int hz;
        uint8_t set;
        uint8_t record;
    };
    static constexpr Bandwidth kBandwidths[] = {
        {2400, 0, 1}, {2000, 1, 2}, {500, 2, 3}, {250, 3, 4}, {6000, 4, 0}};

    static uint8_t BandwidthRecord(int hz) {
        for (const Bandwidth& b : kBandwidths)
            if (b.hz == hz) return b.record;
        return 0;  // never chosen: the field stays clear
    }

    int64_t& vfoAHz() { return state_.vfoB ? state_.vfoBHz : state_.frequencyHz; }
    int64_t& vfoBHz() { return state_.vfoB ? state_.frequencyHz : state_.vfoBHz; }
    int64_t vfoAHz() const { return state_.vfoB ? state_.vfoBHz : state_.frequencyHz; }
    int64_t vfoBHz() const { return state_.vfoB ? state_.frequencyHz : state_.vfoBHz; }

    // On the FT-920 the narrow flag is what makes AM and FM read back as AMN and FMN.
    void followNarrow() {
        RigState& s = state_;
        if (s.mode == "AM" || s.mode == "AMN") s.mode = s.narrow ? "AMN" : "AM";
        if (s.mode == "FM" || s.mode == "FMN") s.mode = s.narrow ? "FMN" : "FM";
    }

    void setMode(uint8_t code) {
        QString name;
        if (frg_) name = NameOf(kFrgSetModes, code);
        if (mp_) name = NameOf(kMpSetModes, code);
        if (ft920_) name = NameOf(kFt920SetModes, code);
        if (name.isEmpty()) return;
        state_.mode = name;
        if (!ft920_) return;
        if (name == "FMN") state_.narrow = true;
        if (name == "FM") state_.narrow = false;
        followNarrow();
    }

    // One VFO record of the FT-1000MP (16 bytes, frequency in 0.625 Hz steps) or of the
    // FT-920 (14 bytes, frequency in hertz).
    QByteArray vfoRecord(int64_t hz) const {
        QByteArray r(mp_ ? 16 : 14, '\0');
        const auto value = static_cast<uint32_t>(mp_ ? hz * 16 / 10 : hz);
        r[1] = static_cast<char>(value >> 24);
        r[2] = static_cast<char>(value >> 16);
        r[3] = static_cast<char>(value >> 8);
        r[4] = static_cast<char>(value);
        const RecordMode& m = recordMode();
        if (mp_) {
            if (m.mpAlternate) r[0] = static_cast<char>(0x80);
            r[7] = static_cast<char>(m.mpBits);
            r[8] = static_cast<char>(BandwidthRecord(state_.filter82Hz) << 4 |
                                     BandwidthRecord(state_.filter455Hz));
        } else {
            r[7] = static_cast<char>(m.ft920Byte | (state_.narrow ? 0x80 : 0));
        }
        return r;
    }

    // FRG-100: 10 Hz units least significant byte first from byte 2, mode in byte 7.
    QByteArray frgRecord() const {
        QByteArray r(19, '\0');
        const int64_t tens = state_.frequencyHz / 10;
        r[2] = static_cast<char>(tens & 0xFF);
        r[3] = static_cast<char>((tens >> 8) & 0xFF);
        r[4] = static_cast<char>((tens >> 16) & 0xFF);
        r[7] = static_cast<char>(recordMode().frgNibble);
        return r;
    }

    // Status flags. Byte 0: split in bit 0 (on the FT-920: transmit on VFO B, with bit 1
    // receive on VFO B), PTT in bit 7. Byte 1: 0x20, the rig is on a VFO. FT-920 byte 2 bit 1:
    // antenna tuner in line.
    QByteArray statusFlags() const {
        const RigState& s = state_;
        QByteArray r(ft920_ ? 8 : 6, '\0');
        uint8_t flags0 = s.ptt ? 0x80 : 0;
        if (ft920_) {
            if (s.vfoB) flags0 |= 0x02;
            if (s.vfoB != s.split) flags0 |= 0x01;
            if (s.tunerIn) r[2] = static_cast<char>(0x02);
        } else if (s.split) {
            flags0 |= 0x01;
        }
        r[0] = static_cast<char>(flags0);
        r[1] = static_cast<char>(0x20);
        return r;
    }

    void useVfo(bool b) {
        if (b == state_.vfoB) return;
        std::swap(state_.frequencyHz, state_.vfoBHz);
        state_.vfoB = b;
    }

    void command(const Frame& f, int64_t now) override {
        RigState& s = state_;
        switch (f.opcode) {
            case 0x10:  // status update: P4 selects the block
                if (frg_) return reply(frgRecord(), now);
                // The FT-1000MP gives the VFO in use for P4 = 2 and both VFOs for P4 = 3; the
                // FT-920 always gives both, VFO A first.
                if (mp_ && f.p4 != 3) return reply(vfoRecord(s.frequencyHz), now);
                return reply(vfoRecord(vfoAHz()) + vfoRecord(vfoBHz()), now);
            case 0xF7: {  // meter; the FT-920 gives one of its four blocks by P4
                QByteArray r(5, '\0');
                const int level = signalLevel(now);
                if (ft920_ && f.p4 <= 3) {
                    for (int i = 0; i < 4; ++i) r[i] = static_cast<char>(s.meters[f.p4 * 4 + i]);
                }
                if (frg_)
                    r[3] = static_cast<char>(std::min(255, level * 16));
                else if (f.p4 == 0)
                    r[0] = static_cast<char>(std::min(255, level * 17));
                return reply(r, now);
            }
            case 0xFA:
                return reply(statusFlags(), now);
            case 0x0A:    // set VFO A, least significant pair first
            case 0x8A: {  // set VFO B
                const int64_t tens = FromBcd(FrameBytes(f.p4, f.p3, f.p2, f.p1));
                if (tens < 0) return;
                if (frg_) {
                    if (f.opcode == 0x0A) s.frequencyHz = tens * 10;
                    return;
                }
                (f.opcode == 0x0A ? vfoAHz() : vfoBHz()) = tens * 10;
                return;
            }
            case 0x0C:
                return setMode(f.p4);
            case 0x05:  // VFO A (P4 0) or B (P4 1)
                if (!frg_ && f.p4 <= 1) useVfo(f.p4 == 1);
                return;
            case 0x01:
                s.split = f.p4 == 1;
                return;
            case 0x0F:
                s.ptt = f.p4 == 1;
                return;
            case 0x20:
                s.poweredOn = f.p4 == 1;
                return;
            case 0x8C:  // FT-920: wide (P4 1) or narrow (2); FT-1000MP: bandwidth of one IF
                if (ft920_) {
                    if (f.p4 == 1 || f.p4 == 2) s.narrow = f.p4 == 2;
                    followNarrow();
                }
                if (mp_) {
                    for (const Bandwidth& b : kBandwidths) {
                        if (b.set != f.p4) continue;
                        if (f.p1 == 1) s.filter82Hz = b.hz;
                        if (f.p1 == 2) s.filter455Hz = b.hz;
                    }
                }
                return;
            default:
                break;
        }
        if (ft920_) ft920Command(f);
    }

    // The FT-920's repeater and tuner commands.
    void ft920Command(const Frame& f) {
        RigState& s = state_;
        switch (f.opcode) {
            case 0x84: {  // shift: P4 0 simplex, 1 minus, 2 plus
                static constexpr const char* kShift[] = {"0", "-", "+"};
                if (f.p4 <= 2) s.shift = kShift[f.p4];
                return;
            }
            case 0x90:  // tone numbers from 1, 0 for none: encoder in P4, decoder in P3
                s.toneNumber = f.p4;
                s.toneDecodeNumber = f.p3;
                s.toneMode = f.p3 != 0 ? "squelch" : f.p4 != 0 ? "encode" : "off";
                return;
            case 0x81:  // antenna tuner in (P4 1) or out (0)
                if (f.p4 <= 1) s.tunerIn = f.p4 == 1;
                return;
            case 0x82:  // start tuning: only with the tuner in line
                if (s.tunerIn) ++s.tuneStarts;
                return;
            default:
                return;  // 0E and the rest change nothing the model shows
        }
    }

  private:
    bool mp_, ft920_, frg_;
};

// VR-5000: a receiver with a main and a sub receiver, whose frequencies are written in binary
// and never read back. Nothing but the S-meter read is answered, and only in CAT mode.
class Vr5000 : public FiveByteSim {
  protected:
    // P1 of the mode commands; P2 is the tuning step's code.
    static constexpr NamedCode kModes[] = {{"LSB", 0x00}, {"USB", 0x01}, {"CW", 0x02},
                                           {"AM", 0x04},  {"WAM", 0x44}, {"AMN", 0x84},
                                           {"WFM", 0x48}, {"FMN", 0x88}};

    // Plain binary of tens of hertz, most significant byte first.
    static int64_t BinaryHz(const Frame& f) {
        const uint32_t tens = static_cast<uint32_t>(f.p1) << 24 |
                              static_cast<uint32_t>(f.p2) << 16 | static_cast<uint32_t>(f.p3) << 8 |
                              f.p4;
        return static_cast<int64_t>(tens) * 10;
    }

    void command(const Frame& f, int64_t now) override {
        RigState& s = state_;
        if (f.opcode == 0x00 || f.opcode == 0x80) {
            s.catOn = f.opcode == 0x00;
            return;
        }
        if (!s.catOn) return;
        switch (f.opcode) {
            case 0xE7: {
                const int level = signalLevel(now);
                uint8_t b = static_cast<uint8_t>(0x13 + 2 * level);
                if (level == 0 && !s.squelchOpen) b |= 0x80;
                return reply(QByteArray(1, static_cast<char>(b)), now);
            }
            case 0x01:  // main receiver frequency
                s.frequencyHz = BinaryHz(f);
                return;
            case 0x31:  // sub receiver frequency; all zero switches the sub receiver off
                if (f.p1 == 0 && f.p2 == 0 && f.p3 == 0 && f.p4 == 0) {
                    s.subOn = false;
                    return;
                }
                s.vfoBHz = BinaryHz(f);
                s.subOn = true;
                return;
            case 0x07:    // main receiver mode and step
            case 0x37: {  // sub receiver mode and step
                const QString mode = NameOf(kModes, f.p1);
                if (mode.isEmpty()) return;
                if (f.opcode == 0x07) {
                    s.mode = mode;
                    s.stepCode = f.p2;
                } else {
                    s.subMode = mode;
                    s.subStepCode = f.p2;
                    s.subOn = true;
                }
                return;
            }
            default:
                return;
        }
    }
};

}  // namespace

std::unique_ptr<RigSim> MakeFt817Family(const QString& name) {
    return std::make_unique<Ft817Family>(name);
}
std::unique_ptr<RigSim> MakeFt847() {
    return std::make_unique<Ft847>();
}
std::unique_ptr<RigSim> MakeStatusBlockRig(const QString& name) {
    return std::make_unique<StatusBlockRig>(name);
}
std::unique_ptr<RigSim> MakeVr5000() {
    return std::make_unique<Vr5000>();
}

}  // namespace veldor::sim
