// The rig catalogue: rig type names, link families, frequency ranges, delay keys, mode names
// and the tone and code lists. Everything here is constant data.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace veldor {

// The values of RigType. Every rig decision compares RigType with one of these.
inline const QString RigFT817 = QStringLiteral("FT817");
inline const QString RigFT817ND = QStringLiteral("FT817ND");
inline const QString RigFT847 = QStringLiteral("FT847");
inline const QString RigFT857 = QStringLiteral("FT857");
inline const QString RigFT857D = QStringLiteral("FT857D");
inline const QString RigFT897 = QStringLiteral("FT897");
inline const QString RigFT897D = QStringLiteral("FT897D");
inline const QString RigFT450 = QStringLiteral("FT450");
inline const QString RigFT920 = QStringLiteral("FT920");
inline const QString RigFT1000MP = QStringLiteral("FT1000MP");
inline const QString RigFRG100 = QStringLiteral("FRG100");
inline const QString RigVR5000 = QStringLiteral("VR5000");
inline const QString RigNotSet = QStringLiteral("Not set");

// The rig classes that many commands share.
inline bool IsFt817(const QString& rig) {
    return rig == RigFT817 || rig == RigFT817ND;
}
inline bool IsFt857(const QString& rig) {
    return rig == RigFT857 || rig == RigFT857D;
}
inline bool IsFt897(const QString& rig) {
    return rig == RigFT897 || rig == RigFT897D;
}
// The FT-817, FT-857 and FT-897 families: they answer every write with one byte.
inline bool IsAckFamily(const QString& rig) {
    return IsFt817(rig) || IsFt857(rig) || IsFt897(rig);
}

enum class LinkFamily {
    None,         // "Not set"
    Bcd,          // five-byte frames, BCD frequency, most significant pair first
    ReversedBcd,  // five-byte frames, BCD frequency, least significant pair first
    Binary,       // five-byte frames, big-endian binary frequency (VR-5000)
    Text,         // ";"-ended text (FT-450)
};

enum class ToneList { None, Tones50, Tones39 };

// A closed frequency range in the program's unit of 10 Hz.
struct FrequencyRange {
    int32_t low;
    int32_t high;
};

struct RigInfo {
    std::u16string_view type;         // the RigType text
    std::u16string_view delayPrefix;  // prefix of the three delay keys
    LinkFamily family;
    std::span<const FrequencyRange> ranges;
    ToneList tones;
    bool receiver;
};

// The catalogue row of a rig type; nullptr for "Not set" and any unknown text.
const RigInfo* FindRig(const QString& rigType);
// Every rig the program serves, in catalogue order.
std::span<const RigInfo> AllRigs();

// Frequency 0 passes for every rig, and a rig with no ranges passes everything.
bool InRigRanges(const QString& rigType, int32_t frequency);

// The whole list of mode names; a name is known when "|" + name + "|" stands in it.
inline const QString ModeNames = QStringLiteral(
    "|FM|FMN|WFM|AM|AMN|WAM|USB|LSB|CW|CWR|PKT|DIG|CWRN|CWN|AMS|PKTF|PKTL|RTYL|"
    "RTYU|USRU|USRL|");
bool IsKnownMode(const QString& mode);
// The 21 mode names in the order the mode lists of the windows offer them.
const QStringList& ModeList();

// Tone and code lists, each item in the form the operator sees ("67.0", "023").
std::span<const char* const> Tones50();
std::span<const char* const> Tones39();
std::span<const char* const> ShortTones();
std::span<const char* const> DcsCodes();
// The tones the lists of the rig's windows offer: the short tones for the FT-1000MP, otherwise
// the rig's own 50 or 39; none for "Not set".
QStringList RigToneList(const QString& rigType);

// Each of the 50 tones as a pair of BCD bytes of tenths of hertz: 67.0 Hz is 06 70.
const std::array<uint8_t, 100>& ToneBCD();
// The FT-847's own code for each of the 39 tones, in the order of that list.
const std::array<uint8_t, 39>& FT847ToneCodes();

// Column headings of the memory grid, in column order.
const std::array<QString, 13>& ColumnHeadings();

// Delay keys and their start-up defaults.
struct DelayDefaults {
    QString cmd;
    QString smeter;
    QString extra;
};
DelayDefaults DelayDefaultsFor(const QString& rigType);

}  // namespace veldor
