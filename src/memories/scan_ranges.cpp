#include "memories/scan_ranges.h"

#include "basic/basic.h"
#include "protocol/read_frequency.h"

namespace veldor {

namespace {

// The ten fields of a range in the order they are saved, with their defaults.
struct RangeField {
    const char* stem;
    QString ScanRange::*value;
    const char* defaultValue;
};
constexpr RangeField kRangeFields[] = {
    {"Start", &ScanRange::Start, ""},    {"Stop", &ScanRange::Stop, ""},
    {"Step", &ScanRange::Step, ""},      {"Mode", &ScanRange::Mode, ""},
    {"Desc", &ScanRange::Desc, "Empty"}, {"CTCSS", &ScanRange::CTCSS, ""},
    {"Enc", &ScanRange::Enc, "0"},       {"Dec", &ScanRange::Dec, "0"},
    {"Shift", &ScanRange::Shift, "0"},   {"Offset", &ScanRange::Offset, "600"},
};

QString RangeKey(int bank, const char* stem, int index) {
    return QString("Scan%1%2%3").arg(bank).arg(QLatin1String(stem)).arg(index);
}

void Message(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::None);
}

// The list shows the text: the last item that reads so (the names of the latest load stand at
// the end of the list), or the text alone.
void ShowText(ComboBox& box, const QString& text) {
    box.text = text;
    box.listIndex = static_cast<int>(box.list.lastIndexOf(text));
}

}  // namespace

void LoadScanRanges(Core& c, int bank) {
    State& s = c.s;
    for (int i = 0; i < 20; ++i) {
        ScanRange& range = s.ScanRanges[i];
        for (const RangeField& field : kRangeFields)
            range.*field.value = GetSetting(c, s.AppName, "Scanner", RangeKey(bank, field.stem, i),
                                            field.defaultValue);
        // The list is not cleared first: each reload adds twenty names. Deliberately kept.
        c.f.cboScanRange.list << range.Desc;
    }
    // A range stored under the other locale's decimal mark reads in this one.
    for (QString ScanRange::*field : {&ScanRange::Start, &ScanRange::Stop, &ScanRange::Step}) {
        for (ScanRange& range : s.ScanRanges) {
            const qsizetype at = (range.*field).indexOf(s.OtherDecimalSeparator);
            if (at >= 0) (range.*field).replace(at, 1, s.DecimalSeparator);
        }
    }

    s.LastScanRange =
        basic::CLng(basic::Val(GetSetting(c, s.AppName, "Settings", "LastScanRange", "0")));
    int index = s.LastScanRange;
    if (index == 0) {
        while (index < 20 && s.ScanRanges[index].Desc == "Empty") ++index;
    }
    if (index < 0 || index > 19) {
        ShowText(c.f.cboScanRange, "Empty");
        return;
    }
    const ScanRange& range = s.ScanRanges[index];
    ShowText(c.f.cboScanRange, range.Desc);
    const QString number = QString::number(index + 1);
    s.ScanStartFrequency = ParseFrequency(c, range.Start, true);
    if (s.ScanStartFrequency == -1)
        Message(c, "The Scan Start frequency is not valid in scan definition " + number);
    s.ScanStopFrequency = ParseFrequency(c, range.Stop, true);
    if (s.ScanStopFrequency == -1)
        Message(c, "The Scan Stop frequency is not valid in scan definition " + number);
    // "12.5" reads as MHz and "25" as kHz: a step with a decimal mark is scaled to kHz.
    if (range.Step.contains(s.DecimalSeparator))
        s.ScanStepSize = basic::CLng(ParseFrequency(c, range.Step) / 1000.0);
    else
        s.ScanStepSize = ParseFrequency(c, range.Step);
    if (s.ScanStepSize < 1)
        Message(c, "The Scan Step frequency is not valid in scan definition " + number);
    s.ScanRangeModeName = range.Mode;
    s.TargetShift = range.Shift;
    s.TargetOffset = range.Offset;
}

void SaveScanRanges(Core& c, int bank) {
    const State& s = c.s;
    QList<QPair<QString, QString>> keys;
    for (int i = 0; i < 20; ++i)
        for (const RangeField& field : kRangeFields)
            keys.append({RangeKey(bank, field.stem, i), s.ScanRanges[i].*field.value});
    SaveSettings(c, s.AppName, "Scanner", keys);
}

}  // namespace veldor
