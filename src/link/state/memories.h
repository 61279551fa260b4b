// The state of the quick memory banks, the frequency notes and the scan ranges.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace veldor {

// One scan range, every field kept as the text stored for it.
struct ScanRange {
    QString Start;  // MHz
    QString Stop;   // MHz
    QString Step;   // kHz
    QString Mode;
    QString Desc = "Empty";  // "Empty" marks a free entry
    QString CTCSS;           // index into the rig's tone list
    QString Enc = "0";       // "1": encode the tone
    QString Dec = "0";       // "1": encode and decode it
    QString Shift = "0";     // "0", "-" or "+"
    QString Offset = "600";  // kHz
};

struct MemoriesState {
    // The twelve memories of the bank on show, as last loaded from section "Banks".
    int CurrentBank = 0;                    // 0 to 5
    std::array<QString, 12> MemClickToSet;  // "N": defined in the dialog, safe from a click
    std::array<QString, 12> MemName;
    std::array<QString, 12> MemFreq;  // MHz with no second separator, or "Empty"
    std::array<QString, 12> MemMode;
    std::array<QString, 12> MemCTCSS;
    std::array<QString, 12> MemEncDec;  // encoder flag, decoder flag
    std::array<QString, 12> MemShift;
    std::array<QString, 12> MemScan;  // "Y": walked by bank scans
    std::array<QString, 12> MemOffset;
    bool SkipNextSetClick = false;  // a right click on a store box swallows its own click
    int EditMemoryIndex = 0;        // the memory the dialog edits
    QString BankSection = "Banks";
    bool ShowMemoryTag = false;

    // The twenty scan ranges of section "Scanner", the one last chosen, and the range in use in
    // working form (10 Hz), for the scan engine.
    std::array<ScanRange, 20> ScanRanges;
    int LastScanRange = 0;
    int32_t ScanStartFrequency = 0;
    int32_t ScanStopFrequency = 0;
    int32_t ScanStepSize = 0;
    QString ScanRangeModeName;
};

}  // namespace veldor
