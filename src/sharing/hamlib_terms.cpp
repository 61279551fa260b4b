#include "sharing/hamlib_terms.h"

#include "link/catalogue.h"
#include "protocol/write_frequency.h"

#include <cstdlib>
#include <limits>

namespace veldor {

namespace {

// Hamlib's mode bits, as its rmode_t numbers them.
constexpr uint32_t kAM = 0x1, kCW = 0x2, kUSB = 0x4, kLSB = 0x8, kRTTY = 0x10, kFM = 0x20,
                   kWFM = 0x40, kCWR = 0x80, kRTTYR = 0x100, kAMS = 0x200, kPKTLSB = 0x400,
                   kPKTUSB = 0x800, kPKTFM = 0x1000;

// Each mode of the program with its Hamlib name, bit and usual passband. Read from the top:
// the first row of a Hamlib name is the mode a client's bare name asks for, and the plain
// mode of the last column is the one sent when the rig has no command for the first.
struct ModeTerm {
    const char* mode;
    const char* hamlib;
    uint32_t bit;
    int passband;
    const char* plain;
};
constexpr ModeTerm kModeTerms[] = {
    {"LSB", "LSB", kLSB, 2400, "LSB"},
    {"USB", "USB", kUSB, 2400, "USB"},
    {"CW", "CW", kCW, 500, "CW"},
    {"CWN", "CW", kCW, 250, "CW"},
    {"CWR", "CWR", kCWR, 500, "CW"},
    {"CWRN", "CWR", kCWR, 250, "CW"},
    {"AM", "AM", kAM, 6000, "AM"},
    {"AMN", "AM", kAM, 3000, "AM"},
    {"WAM", "AM", kAM, 9000, "AM"},
    {"AMS", "AMS", kAMS, 6000, "AM"},
    {"FM", "FM", kFM, 12000, "FM"},
    {"FMN", "FM", kFM, 6000, "FM"},
    {"WFM", "WFM", kWFM, 230000, "FM"},
    {"RTYL", "RTTY", kRTTY, 500, "LSB"},
    {"RTYU", "RTTYR", kRTTYR, 500, "USB"},
    {"PKTL", "PKTLSB", kPKTLSB, 2400, "LSB"},
    {"USRL", "PKTLSB", kPKTLSB, 2400, "LSB"},
    // USER-U of the FT-450; the nearest mode of the FT-8 family is USB.
    {"USRU", "PKTUSB", kPKTUSB, 2400, "USB"},
    // The FT-8 family's DIG serves the digital modes, most of them on the upper sideband.
    {"DIG", "PKTUSB", kPKTUSB, 2400, "USB"},
    {"PKTF", "PKTFM", kPKTFM, 12000, "FM"},
    {"PKT", "PKTFM", kPKTFM, 12000, "FM"},
};

QString Hex(uint64_t value) {
    return "0x" + QString::number(value, 16);
}

QString Hz(int32_t tensOfHz) {
    return QString::number(static_cast<double>(tensOfHz) * 10.0, 'f', 6);
}

}  // namespace

bool RigTogglesVfo(const QString& rig) {
    // The FT-920's and FT-1000MP's toggle always selects the same VFO and notes VFO A.
    return IsAckFamily(rig) || rig == RigFT450;
}

bool HamlibModeOf(const QString& mode, HamlibMode* out) {
    for (const ModeTerm& term : kModeTerms) {
        if (mode != QLatin1String(term.mode)) continue;
        *out = {term.hamlib, term.passband};
        return true;
    }
    return false;
}

QString ModeForHamlib(const Core& c, const QString& name, int passband) {
    // The row of that name whose passband is nearest; a tie or no passband takes the first.
    const ModeTerm* chosen = nullptr;
    int distance = std::numeric_limits<int>::max();
    for (const ModeTerm& term : kModeTerms) {
        if (name != QLatin1String(term.hamlib)) continue;
        const int d = passband > 0 ? std::abs(term.passband - passband) : 0;
        if (!chosen || d < distance) {
            chosen = &term;
            distance = d;
        }
    }
    if (!chosen) return {};
    const QString& rig = c.s.RigType;
    for (const char* mode : {chosen->mode, chosen->plain}) {
        const QString nearest = ModeForRig(c, mode);
        if (ModeHasCommand(rig, nearest)) return nearest;
    }
    return {};
}

int StrengthOfMeter(int value) {
    constexpr int kS9 = 18;
    return value <= kS9 ? (value - kS9) * 3 : (value - kS9) * 5;
}

QString VfoLetterOf(const Core& c, const QString& name) {
    static const QStringList a = {"VFOA", "Main", "MainA", "A"};
    static const QStringList b = {"VFOB", "Sub", "SubA", "MainB", "B"};
    static const QStringList current = {"currVFO", "VFO", "RX", "TX"};
    if (a.contains(name)) return "A";
    if (b.contains(name)) return "B";
    if (current.contains(name)) return c.s.VfoAActive ? "A" : "B";
    return {};
}

QString DumpState(const Core& c) {
    const QString& rig = c.s.RigType;
    const RigInfo* info = FindRig(rig);
    const bool transmits = info && !info->receiver;
    uint32_t modes = 0;
    for (const ModeTerm& term : kModeTerms) modes |= term.bit;
    const QString end = "0 0 0 0 0 0 0\n";

    QString out = "1\n2\n0\n";  // protocol version, the NET rigctl model, region
    // Receive ranges, then transmit ranges: start, end, modes, low and high power, VFOs,
    // antennas.
    QString ranges;
    if (info) {
        for (const FrequencyRange& r : info->ranges)
            ranges += Hz(r.low) + " " + Hz(r.high) + " " + Hex(modes) + " -1 -1 0x1 0x0\n";
    }
    out += ranges + end;
    if (transmits) out += ranges;
    out += end;
    // Tuning step: the program's unit of 10 Hz in every mode.
    out += Hex(modes) + " 10\n0 0\n";
    // Passbands by mode, the usual one first: Hamlib takes a mode's first as its normal.
    QList<std::pair<uint32_t, int>> filters;
    for (const ModeTerm& term : kModeTerms) {
        const std::pair<uint32_t, int> filter{term.bit, term.passband};
        if (filters.contains(filter)) continue;
        filters.append(filter);
        out += Hex(term.bit) + " " + QString::number(term.passband) + "\n";
    }
    out += "0 0\n";
    out += "0\n0\n0\n0\n";  // largest RIT, XIT and IF shift; announcements
    out += "\n\n";          // no preamplifier, no attenuator steps
    // Functions, levels and parameters, read and set: only the signal strength and the raw
    // meter reading are read.
    constexpr uint64_t kRawStr = 1ULL << 26, kStrength = 1ULL << 30;
    out += "0x0\n0x0\n" + Hex(kRawStr | kStrength) + "\n0x0\n0x0\n0x0\n";
    out += "vfo_ops=0x0\n";
    out += QString("ptt_type=") + (transmits ? "0x1" : "0x0") + "\n";
    out += "targetable_vfo=0x0\n";
    // VFO A alone, and no VFO choice: a Hamlib client that may choose the VFO reads both at
    // every connection by switching the rig to VFO B and back, which on the FT-8 family
    // rewrites the rig's memory. A client that wants the other VFO sends "V" all the same.
    out += "has_set_vfo=0\n";
    out += "has_get_vfo=1\nhas_set_freq=1\nhas_get_freq=1\n";
    out += "has_set_conf=0\nhas_get_conf=0\nhas_power2mW=0\nhas_mW2power=0\n";
    out += "timeout=0\nrig_model=2\n";
    out += "rigctld_version=VELDOR " + c.s.ProgramVersion + " " + rig + "\n";
    out += "done\n";
    return out;
}

}  // namespace veldor
