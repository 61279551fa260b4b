// Scan ranges: their keys in section "Scanner", the range in use at start and when chosen, the
// dialog that edits them, and the button that opens it.
#include "memories/scan_ranges.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "memories/scanner_dialog.h"
#include "scan/range_choice.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A station whose store holds the ranges a test gives before it loads.
struct Ranges : Station {
    explicit Ranges(QChar mark = '.') : Station(RigFT817) { system.decimalMark = mark; }
    void range(int i, const QString& desc, const QString& start, const QString& step) {
        for (auto [stem, value] : {std::pair<const char*, QString>{"Desc", desc},
                                   {"Start", start},
                                   {"Stop", "146.0"},
                                   {"Step", step},
                                   {"Mode", "FM"}})
            store->save(c.s.AppName, "Scanner", QString("Scan0%1%2").arg(stem).arg(i), value);
    }
    FrmScanner& open() {
        load();
        frmScanner_Load(c);
        return c.frmScanner;
    }
    QStringList messages() const {
        QStringList texts;
        for (const ShownMessage& m : dialogs.messages) texts << m.text;
        return texts;
    }
};

TEST(ScanRanges, WithNoneChosenTheFirstNamedRangeIsInUse) {
    Ranges empty;
    empty.load();
    EXPECT_EQ(ComboText(empty.c.f.cboScanRange), "Empty");
    EXPECT_TRUE(empty.dialogs.messages.empty());

    Ranges r;
    r.range(3, "2m FM", "144.0", "12.5");
    r.range(5, "Air", "118.0", "25");
    r.load();
    EXPECT_EQ(ComboText(r.c.f.cboScanRange), "2m FM");
    EXPECT_EQ(r.c.s.LastScanRange, 0);  // stays as stored
    EXPECT_EQ(r.c.s.ScanStartFrequency, 14400000);
    EXPECT_EQ(r.c.s.ScanStopFrequency, 14600000);
    EXPECT_EQ(r.c.s.ScanStepSize, 1250);  // 12.5 kHz
    r.setting("LastScanRange", "5");
    LoadScanRanges(r.c, 0);
    EXPECT_EQ(ComboText(r.c.f.cboScanRange), "Air");
    EXPECT_EQ(r.c.s.ScanStepSize, 2500);  // 25 kHz, typed without a mark
}

TEST(ScanRanges, AStoredRangeReadsInEitherLocale) {
    for (auto [mark, start] : {std::pair{QChar('.'), "144,5"}, {QChar(','), "144.5"}}) {
        Ranges r(mark);
        r.range(0, "2m", start, "5");
        r.load();
        EXPECT_EQ(r.c.s.ScanRanges[0].Start, QString("144") + mark + "5");
        EXPECT_EQ(r.c.s.ScanStartFrequency, 14450000);
    }
}

TEST(ScanRanges, BadStoredValuesAreNamedLoadingGoesOnAndAllAreSavedAtTheEnd) {
    Ranges r;
    r.range(1, "Broken", "abc", "0");
    r.setting("LastScanRange", "1");
    r.load();
    EXPECT_EQ(r.messages(),
              QStringList({"The Scan Start frequency is not valid in scan definition 2",
                           "The Scan Step frequency is not valid in scan definition 2"}));
    EXPECT_EQ(r.c.s.ScanRangeModeName, "FM");
    Form_Unload(r.c);
    EXPECT_EQ(r.stored("Scanner", "Scan0Offset19"), "600");
    EXPECT_EQ(r.store->getAll(r.c.s.AppName, "Scanner").size(), 200);
}

TEST(ScanRangeChoice, ChoosingARangePutsItInUseAndRemembersIt) {
    Ranges r;
    r.range(2, "Air", "118.0", "25");
    r.load();
    r.c.f.cboScanRange.listIndex = 2;
    r.c.f.cmdStartStopScan.enabled = true;
    cboScanRange_Click(r.c);
    EXPECT_EQ(r.c.focusRequest, &r.c.f.cmdStartStopScan);
    EXPECT_EQ(r.stored("Settings", "LastScanRange"), "2");
    EXPECT_EQ(r.c.s.ScanStartFrequency, 11800000);
    // A step without a decimal mark is divided all the same here: 25 kHz comes out 2.5, even.
    EXPECT_EQ(r.c.s.ScanStepSize, 2);
    r.c.f.cboScanRange.listIndex = 22;  // a name added by a reload
    cboScanRange_Click(r.c);
    EXPECT_EQ(r.messages().back(),
              "Error 9 (Subscript out of range) in procedure cboScanRange_Click of Form Form1");
}

TEST(ScannerDialog, BoxesAreCheckedOnLeavingThem) {
    const struct {
        QChar mark;
        bool (*leave)(Core&);
        TextBox FrmScanner::*box;
        const char* typed;
        const char* shown;
        const char* message;
    } rows[] = {
        {'.', frmScanner_txtStep_LostFocus, &FrmScanner::txtStep, "100", "100", nullptr},
        {'.', frmScanner_txtStep_LostFocus, &FrmScanner::txtStep, "100.1", "100.1",
         "You have entered a Scanner Step increment > 100 KHz - please retry"},
        {'.', frmScanner_txtStep_LostFocus, &FrmScanner::txtStep, "0", "Empty", nullptr},
        {'.', frmScanner_txtStart_LostFocus, &FrmScanner::txtStart, "144.5", "144.50000", nullptr},
        {',', frmScanner_txtStop_LostFocus, &FrmScanner::txtStop, "146,0", "146,00000", nullptr},
        {'.', frmScanner_txtStart_LostFocus, &FrmScanner::txtStart, "2m", "2m",
         "You have entered a non numeric value for Scanner Start frequency - please retry"},
        {'.', frmScanner_txtStop_LostFocus, &FrmScanner::txtStop, "200.0", "200.0",
         "You have entered a Scanner Stop frequency outside the range of the rig - please retry"},
        {'.', frmScanner_txtOffset_LostFocus, &FrmScanner::txtOffset, " ", "600", nullptr},
        {'.', frmScanner_txtOffset_LostFocus, &FrmScanner::txtOffset, "six", "six",
         "Repeater offset is not numeric"},
    };
    for (const auto& row : rows) {
        Ranges r(row.mark);
        TextBox& box = r.open().*row.box;
        box.text = row.typed;
        EXPECT_EQ(row.leave(r.c), row.message != nullptr) << row.typed;
        EXPECT_EQ(box.text, row.shown);
        EXPECT_EQ(r.messages(), row.message ? QStringList{row.message} : QStringList{});
    }
}

TEST(ScannerDialog, ApplySavesTheEntryShownAsDecodeOnlyAndStaysOpen) {
    Ranges r;
    r.range(4, "Old", "144.0", "12.5");
    for (const char* key : {"Scan0Enc4", "Scan0Dec4"})
        r.store->save(r.c.s.AppName, "Scanner", key, "1");
    r.load();
    FrmScanner& f = r.c.frmScanner;
    r.windows.operators[FormId::frmScanner] = [&] {
        f.cboMemoryNumber.listIndex = 4;
        frmScanner_cboMemoryNumber_Click(r.c);
        EXPECT_EQ(f.chkEnc.value, 0);  // stored with both, shown as decode
        f.txtDescription.text = "2m FM";
        // Start, step and stop are tested in that order; a refusal saves nothing.
        f.txtStep.text = "x";
        f.txtStop.text.clear();
        frmScanner_cmdOK_Click(r.c);
        EXPECT_EQ(r.c.focusRequest, &f.txtStep);
        f.txtStep.text = "12.5";
        frmScanner_cmdOK_Click(r.c);
        EXPECT_EQ(r.c.focusRequest, &f.txtStop);
        EXPECT_EQ(r.messages(),
                  QStringList({"Step frequency is not valid - please correct and retry",
                               "Stop frequency is not valid - please correct and retry"}));
        EXPECT_EQ(r.stored("Scanner", "Scan0Desc4"), "Old");
        f.txtStop.text = "146.0";
        f.optRepeaterShift = {};
        f.optRepeaterShift[2].value = true;
        frmScanner_cmdOK_Click(r.c);
        EXPECT_TRUE(r.windows.shown(FormId::frmScanner));
        frmScanner_cmdClear_Click(r.c);  // in the boxes, not in the store
        frmScanner_cmdCancel_Click(r.c);
    };
    r.c.s.Transmitting = true;
    cmdShowScanSettings_Click(r.c);  // refused, without a word
    r.c.s.Transmitting = false;
    cmdShowScanSettings_Click(r.c);
    EXPECT_EQ(r.windows.timesShown(FormId::frmScanner), 1);
    for (auto [key, value] :
         {std::pair{"Desc", "2m FM"}, {"Enc", "0"}, {"Dec", "1"}, {"Shift", "+"}})
        EXPECT_EQ(r.stored("Scanner", QString("Scan0") + key + "4"), value);
    // The main window's list takes twenty more names at each reload, and shows the new one.
    EXPECT_EQ(r.c.f.cboScanRange.list.size(), 40);
    EXPECT_EQ(ComboText(r.c.f.cboScanRange), "2m FM");
    r.c.s.RigType = RigNotSet;
    cmdShowScanSettings_Click(r.c);
    EXPECT_EQ(r.windows.timesShown(FormId::frmScanner), 1);
    EXPECT_EQ(r.messages().back(), "You must choose a rig type before you can set Scan ranges");
}

}  // namespace
}  // namespace veldor::test
