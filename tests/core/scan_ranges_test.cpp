// Scan ranges: their keys in section "Scanner", the range in use at start, the dialog that edits
// them, and the button that opens it.
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
    Ranges r;
    r.range(3, "2m FM", "144.0", "12.5");
    r.range(5, "Air", "118.0", "25");
    r.load();
    EXPECT_EQ(ComboText(r.c.f.cboScanRange), "2m FM");
    EXPECT_EQ(r.c.s.ScanStopFrequency, 14600000);
    EXPECT_EQ(r.c.s.ScanStepSize, 1250);  // 12.5 kHz
    r.setting("LastScanRange", "5");
    LoadScanRanges(r.c, 0);
    EXPECT_EQ(ComboText(r.c.f.cboScanRange), "Air");
    EXPECT_EQ(r.c.s.ScanStepSize, 2500);  // 25 kHz, typed without a mark
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
        // A refusal saves nothing.
        f.txtStep.text = "x";
        frmScanner_cmdOK_Click(r.c);
        EXPECT_EQ(r.c.focusRequest, &f.txtStep);
        EXPECT_EQ(r.messages(),
                  QStringList{"Step frequency is not valid - please correct and retry"});
        EXPECT_EQ(r.stored("Scanner", "Scan0Desc4"), "Old");
        f.txtStep.text = "12.5";
        f.optRepeaterShift = {};
        f.optRepeaterShift[2].value = true;
        frmScanner_cmdOK_Click(r.c);
        EXPECT_TRUE(r.windows.shown(FormId::frmScanner));
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
    EXPECT_EQ(ComboText(r.c.f.cboScanRange), "2m FM");
}

}  // namespace
}  // namespace veldor::test
