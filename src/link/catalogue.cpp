#include "link/catalogue.h"

#include <algorithm>

namespace veldor {

namespace {

// Frequency ranges in 10 Hz, closed at both ends.
constexpr FrequencyRange kFT847Ranges[] = {
    {10000, 7600000}, {10800000, 17400000}, {41000000, 51200000}};
constexpr FrequencyRange kFT817Ranges[] = {
    {10000, 5600000}, {7600000, 15400000}, {41000000, 47000000}};
constexpr FrequencyRange kFT857Ranges[] = {
    {10000, 5600000}, {7600000, 10800000}, {11800000, 16400000}, {42000000, 47000000}};
constexpr FrequencyRange kFT450Ranges[] = {{3000, 6000000}};
constexpr FrequencyRange kFRG100Ranges[] = {{5000, 3000000}};
constexpr FrequencyRange kVR5000Ranges[] = {{10000, 259999998}};
constexpr FrequencyRange kFT1000MPRanges[] = {{10000, 3000000}};
constexpr FrequencyRange kFT920Ranges[] = {{10000, 3000000}, {4800000, 5600000}};

constexpr RigInfo kRigs[] = {
    // type, delay key prefix, link family, ranges, tone list, receiver
    {u"FT817", u"FT817", LinkFamily::Bcd, kFT817Ranges, ToneList::Tones50, false},
    {u"FT817ND", u"FT817", LinkFamily::Bcd, kFT817Ranges, ToneList::Tones50, false},
    {u"FT847", u"FT847", LinkFamily::Bcd, kFT847Ranges, ToneList::Tones39, false},
    {u"FT857", u"FT857", LinkFamily::Bcd, kFT857Ranges, ToneList::Tones50, false},
    {u"FT857D", u"FT857", LinkFamily::Bcd, kFT857Ranges, ToneList::Tones50, false},
    {u"FT897", u"FT897", LinkFamily::Bcd, kFT857Ranges, ToneList::Tones50, false},
    {u"FT897D", u"FT897", LinkFamily::Bcd, kFT857Ranges, ToneList::Tones50, false},
    {u"FT450", u"FT450", LinkFamily::Text, kFT450Ranges, ToneList::Tones50, false},
    {u"FT920", u"FT920", LinkFamily::ReversedBcd, kFT920Ranges, ToneList::Tones39, false},
    {u"FT1000MP", u"FT1000MP", LinkFamily::ReversedBcd, kFT1000MPRanges, ToneList::None, false},
    {u"FRG100", u"FRG100", LinkFamily::ReversedBcd, kFRG100Ranges, ToneList::Tones39, true},
    {u"VR5000", u"VR5000", LinkFamily::Binary, kVR5000Ranges, ToneList::Tones39, true},
};

constexpr const char* kTones50[] = {
    "67.0",  "69.3",  "71.9",  "74.4",  "77.0",  "79.7",  "82.5",  "85.4",  "88.5",  "91.5",
    "94.8",  "97.4",  "100.0", "103.5", "107.2", "110.9", "114.8", "118.8", "123.0", "127.3",
    "131.8", "136.5", "141.3", "146.2", "151.4", "156.7", "159.8", "162.2", "165.5", "167.9",
    "171.3", "173.8", "177.3", "179.9", "183.5", "186.2", "189.9", "192.8", "196.6", "199.5",
    "203.5", "206.5", "210.7", "218.1", "225.7", "229.1", "233.6", "241.8", "250.3", "254.1"};

constexpr const char* kTones39[] = {
    "67.0",  "69.3",  "71.9",  "74.4",  "77.0",  "79.7",  "82.5",  "85.4",  "88.5",  "91.5",
    "94.8",  "97.4",  "100.0", "103.5", "107.2", "110.9", "114.8", "118.8", "123.0", "127.3",
    "131.8", "136.5", "141.3", "146.2", "151.4", "156.7", "162.2", "167.9", "173.8", "179.9",
    "186.2", "192.8", "203.5", "210.7", "218.1", "225.7", "233.6", "241.8", "250.3"};

// The short list: six low tones, then the 39 tones from 100.0 on.
constexpr int kShortLead = 6;
constexpr int kTones39From100 = 12;
constexpr const char* kShortLeadTones[kShortLead] = {"67.0", "71.9", "77.0",
                                                     "82.5", "88.5", "94.8"};

constexpr const char* kDcsCodes[] = {
    "023", "025", "026", "031", "032", "036", "043", "047", "051", "053", "054", "065", "071",
    "072", "073", "074", "114", "115", "116", "122", "125", "131", "132", "134", "143", "145",
    "152", "155", "156", "162", "165", "172", "174", "205", "212", "223", "225", "226", "243",
    "244", "245", "246", "251", "252", "255", "261", "263", "265", "266", "271", "274", "306",
    "311", "315", "325", "331", "332", "343", "346", "351", "356", "364", "365", "371", "411",
    "412", "413", "423", "431", "432", "445", "446", "452", "454", "455", "462", "464", "465",
    "466", "503", "506", "516", "523", "526", "532", "546", "565", "606", "612", "624", "627",
    "631", "632", "654", "662", "664", "703", "712", "723", "731", "732", "734", "743", "754"};

static_assert(std::size(kTones50) == 50);
static_assert(std::size(kTones39) == 39);
static_assert(std::size(kDcsCodes) == 104);

// Tenths of hertz of a tone text such as "254.1".
constexpr int ToneTenths(const char* text) {
    int tenths = 0;
    for (const char* p = text; *p; ++p)
        if (*p >= '0' && *p <= '9') tenths = tenths * 10 + (*p - '0');
    return tenths;
}

constexpr uint8_t BcdPair(int twoDigits) {
    return static_cast<uint8_t>((twoDigits / 10) << 4 | (twoDigits % 10));
}

constexpr std::array<uint8_t, 100> MakeToneBCD() {
    std::array<uint8_t, 100> bcd{};
    for (int i = 0; i < 50; ++i) {
        const int tenths = ToneTenths(kTones50[i]);
        bcd[2 * i] = BcdPair(tenths / 100);
        bcd[2 * i + 1] = BcdPair(tenths % 100);
    }
    return bcd;
}

constexpr std::array<uint8_t, 100> kToneBCD = MakeToneBCD();
static_assert(kToneBCD[0] == 0x06 && kToneBCD[1] == 0x70);    // 67.0 Hz
static_assert(kToneBCD[98] == 0x25 && kToneBCD[99] == 0x41);  // 254.1 Hz

// The FT-847's tone codes, decimal, in the order of the 39 tones.
constexpr std::array<uint8_t, 39> kFT847ToneCodes = {
    63, 57, 31, 62, 15, 61, 30, 60, 14, 59, 29, 58, 13, 28, 12, 27, 11, 26, 10, 25,
    9,  24, 8,  23, 7,  22, 6,  21, 5,  20, 4,  19, 3,  18, 2,  17, 1,  16, 0};

std::array<const char*, kShortLead + 39 - kTones39From100> MakeShortTones() {
    std::array<const char*, kShortLead + 39 - kTones39From100> list{};
    std::copy(std::begin(kShortLeadTones), std::end(kShortLeadTones), list.begin());
    std::copy(std::begin(kTones39) + kTones39From100, std::end(kTones39),
              list.begin() + kShortLead);
    return list;
}

}  // namespace

std::span<const RigInfo> AllRigs() {
    return kRigs;
}

const RigInfo* FindRig(const QString& rigType) {
    for (const RigInfo& rig : kRigs)
        if (QStringView(rig.type) == rigType) return &rig;
    return nullptr;
}

bool InRigRanges(const QString& rigType, int32_t frequency) {
    if (frequency == 0) return true;
    const RigInfo* rig = FindRig(rigType);
    if (!rig) return true;
    return std::any_of(rig->ranges.begin(), rig->ranges.end(), [&](const FrequencyRange& r) {
        return frequency >= r.low && frequency <= r.high;
    });
}

bool IsKnownMode(const QString& mode) {
    return !mode.isEmpty() && ModeNames.contains(QLatin1Char('|') + mode + QLatin1Char('|'));
}

const QStringList& ModeList() {
    static const QStringList list = {"AMN",  "AM",   "WAM",  "AMS",  "CW",   "CWN",  "CWR",
                                     "CWRN", "FMN",  "FM",   "WFM",  "LSB",  "USB",  "DIG",
                                     "PKT",  "PKTF", "PKTL", "RTYL", "RTYU", "USRU", "USRL"};
    return list;
}

std::span<const char* const> Tones50() {
    return kTones50;
}
std::span<const char* const> Tones39() {
    return kTones39;
}
std::span<const char* const> ShortTones() {
    static const auto list = MakeShortTones();
    return list;
}

QStringList RigToneList(const QString& rigType) {
    QStringList tones;
    const RigInfo* rig = FindRig(rigType);
    std::span<const char* const> list;
    if (rigType == RigFT1000MP)
        list = ShortTones();
    else if (rig && rig->tones == ToneList::Tones50)
        list = Tones50();
    else if (rig && rig->tones == ToneList::Tones39)
        list = Tones39();
    for (const char* tone : list) tones << tone;
    return tones;
}

std::span<const char* const> DcsCodes() {
    return kDcsCodes;
}

const std::array<uint8_t, 100>& ToneBCD() {
    return kToneBCD;
}
const std::array<uint8_t, 39>& FT847ToneCodes() {
    return kFT847ToneCodes;
}

const std::array<QString, 13>& ColumnHeadings() {
    static const std::array<QString, 13> headings = {
        "Memory",    "RX Freq", "RX Mode", "Shift", "TX Shift/Freq", "TX Mode",    "CTCSS/DCS",
        "Tone/Code", "Show",    "Name",    "Scan",  "Group",         "Description"};
    return headings;
}

DelayDefaults DelayDefaultsFor(const QString& rigType) {
    return {rigType == RigVR5000 ? "25" : "0", "50", "250"};
}

}  // namespace veldor
