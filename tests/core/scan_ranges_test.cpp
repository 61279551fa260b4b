// Scan ranges: their keys in section "Scanner", the range in use at start and when chosen, the
// dialog that edits them, and the button that opens it.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "memories/scanner_dialog.h"
#include "scan/range_choice.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A station whose store holds range `index` before it loads.
struct Ranges : Station {
    explicit Ranges(QChar mark = '.') : Station(RigFT817) { system.decimalMark = mark; }
    void range(int index, const QString& desc, const QString& start, const QString& stop,
               const QString& step) {
        const std::pair<const char*, QString> fields[] = {
            {"Desc", desc}, {"Start", start}, {"Stop", stop}, {"Step", step}, {"Mode", "FM"}};
        for (const auto& [stem, value] : fields)
            store->save(c.s.AppName, "Scanner", QString("Scan0%1%2").arg(stem).arg(index), value);
    }
    QStringList messages() const {
        QStringList texts;
        for (const ShownMessage& m : dialogs.messages) texts << m.text;
        return texts;
    }
};

TEST(ScanRanges, AnEmptyStoreShowsEmptyWithoutAMessage) {
    Ranges r;
    r.load();
    EXPECT_EQ(ComboText(r.c.f.cboScanRange), "Empty");
    EXPECT_EQ(r.c.f.cboScanRange.list.size(), 20);
    EXPECT_TRUE(r.dialogs.messages.empty());
}

TEST(ScanRanges, WithNoneChosenTheFirstNamedRangeIsInUse) {
    Ranges r;
    r.range(3, "2m FM", "144.0", "146.0", "12.5");
    r.range(5, "Air", "118.0", "137.0", "25");
    r.load();
    EXPECT_EQ(ComboText(r.c.f.cboScanRange), "2m FM");
    EXPECT_EQ(r.c.s.LastScanRange, 0);  // stays as stored
    EXPECT_EQ(r.c.s.ScanStartFrequency, 14400000);
    EXPECT_EQ(r.c.s.ScanStopFrequency, 14600000);
    EXPECT_EQ(r.c.s.ScanStepSize, 1250);  // 12.5 kHz
    EXPECT_EQ(r.c.s.ScanRangeModeName, "FM");

    Ranges chosen;
    chosen.range(5, "Air", "118.0", "137.0", "25");
    chosen.setting("LastScanRange", "5");
    chosen.load();
    EXPECT_EQ(ComboText(chosen.c.f.cboScanRange), "Air");
    EXPECT_EQ(chosen.c.s.ScanStepSize, 2500);  // 25 kHz, typed without a mark
}

TEST(ScanRanges, AStoredRangeReadsInEitherLocale) {
    const struct {
        QChar mark;
        const char* start;
        const char* loaded;
    } rows[] = {{'.', "144,5", "144.5"}, {',', "144.5", "144,5"}};
    for (const auto& row : rows) {
        Ranges r(row.mark);
        r.range(0, "2m", row.start, row.start, "5");
        r.load();
        EXPECT_EQ(r.c.s.ScanRanges[0].Start, row.loaded);
        EXPECT_EQ(r.c.s.ScanStartFrequency, 14450000);
        EXPECT_TRUE(r.dialogs.messages.empty());
    }
}

TEST(ScanRanges, BadStoredValuesAreNamedAndLoadingGoesOn) {
    Ranges r;
    r.range(0, "Broken", "abc", "", "0");
    r.setting("LastScanRange", "0");
    r.load();
    EXPECT_EQ(r.messages(),
              QStringList({"The Scan Start frequency is not valid in scan definition 1",
                           "The Scan Stop frequency is not valid in scan definition 1",
                           "The Scan Step frequency is not valid in scan definition 1"}));
    EXPECT_EQ(r.c.s.ScanRangeModeName, "FM");

    Ranges beyond;
    beyond.range(0, "2m", "144.0", "146.0", "5");
    beyond.setting("LastScanRange", "20");
    beyond.load();
    EXPECT_EQ(ComboText(beyond.c.f.cboScanRange), "Empty");
}

TEST(ScanRanges, UnloadSavesAllTwentyUnderBank0Keys) {
    Ranges r;
    r.range(7, "Marine", "156.0", "162.0", "25");
    r.load();
    Form_Unload(r.c);
    EXPECT_EQ(r.stored("Scanner", "Scan0Start0"), "");
    EXPECT_EQ(r.stored("Scanner", "Scan0Desc7"), "Marine");
    EXPECT_EQ(r.stored("Scanner", "Scan0Offset19"), "600");
    EXPECT_EQ(r.store->getAll(r.c.s.AppName, "Scanner").size(), 200);
}

TEST(ScanRangeChoice, ChoosingARangePutsItInUseAndRemembersIt) {
    Ranges r;
    r.range(2, "Air", "118.0", "137.0", "25");
    r.store->save(r.c.s.AppName, "Scanner", "Scan0CTCSS2", "4");
    r.load();
    r.c.f.cboScanRange.listIndex = 2;
    r.c.f.cmdStartStopScan.enabled = true;
    EXPECT_TRUE(cboScanRange_Click(r.c));
    EXPECT_EQ(r.stored("Settings", "LastScanRange"), "2");
    EXPECT_EQ(r.c.s.ScanStartFrequency, 11800000);
    EXPECT_EQ(r.c.s.ToneCode, "4");
    // A step without a decimal mark is divided all the same here: 25 kHz comes out 2.5, even.
    EXPECT_EQ(r.c.s.ScanStepSize, 2);

    r.c.f.cboScanRange.listIndex = 3;  // an empty entry
    EXPECT_FALSE(cboScanRange_Click(r.c));
    EXPECT_EQ(r.stored("Settings", "LastScanRange"), "2");

    r.c.f.cboScanRange.listIndex = 22;  // a name added by a reload
    EXPECT_FALSE(cboScanRange_Click(r.c));
    EXPECT_EQ(r.messages().back(),
              "Error 9 (Subscript out of range) in procedure cboScanRange_Click of Form Form1");
}

TEST(ScanRangeChoice, SetScanNeedsARigAndNoLongJob) {
    Ranges r;
    r.load();
    r.c.s.Transmitting = true;
    cmdShowScanSettings_Click(r.c);
    r.c.s.Transmitting = false;
    EXPECT_EQ(r.windows.timesShown(FormId::frmScanner), 0);
    cmdShowScanSettings_Click(r.c);
    EXPECT_EQ(r.windows.timesShown(FormId::frmScanner), 1);

    r.c.s.RigType = RigNotSet;
    cmdShowScanSettings_Click(r.c);
    EXPECT_EQ(r.windows.timesShown(FormId::frmScanner), 1);
    EXPECT_EQ(r.messages().back(), "You must choose a rig type before you can set Scan ranges");
}

// The dialog open on the stored ranges; the test plays the operator.
struct Scanner : Ranges {
    explicit Scanner(QChar mark = '.', const QString& rig = RigFT817) : Ranges(mark) {
        setting("RigType", rig);
    }
    FrmScanner& open() {
        load();
        frmScanner_Load(c);
        return c.frmScanner;
    }
};

TEST(ScannerDialog, TheStepIsCheckedOnLeavingItsBox) {
    const struct {
        const char* typed;
        bool back;
        const char* shown;
        const char* message;
    } rows[] = {
        {"", false, "", nullptr},
        {"0", false, "Empty", nullptr},
        {"100", false, "100", nullptr},
        {"12.5", false, "12.5", nullptr},
        {"100.1", true, "100.1",
         "You have entered a Scanner Step increment > 100 KHz - please retry"},
        {"fast", true, "fast",
         "You have entered a non numeric value for Scanner Step - please retry"},
    };
    for (const auto& row : rows) {
        Scanner s;
        s.open().txtStep.text = row.typed;
        EXPECT_EQ(frmScanner_txtStep_LostFocus(s.c), row.back) << row.typed;
        EXPECT_EQ(s.c.frmScanner.txtStep.text, row.shown);
        EXPECT_EQ(s.messages(), row.message ? QStringList{row.message} : QStringList{});
    }
}

TEST(ScannerDialog, StartAndStopAreCheckedAgainstTheRig) {
    const struct {
        QChar mark;
        bool (*leave)(Core&);
        TextBox FrmScanner::*box;
        const char* typed;
        const char* shown;
        const char* message;
    } rows[] = {
        {'.', frmScanner_txtStart_LostFocus, &FrmScanner::txtStart, "144.5", "144.50000", nullptr},
        {',', frmScanner_txtStart_LostFocus, &FrmScanner::txtStart, "144,5", "144,50000", nullptr},
        {',', frmScanner_txtStop_LostFocus, &FrmScanner::txtStop, "146,0", "146,00000", nullptr},
        {'.', frmScanner_txtStart_LostFocus, &FrmScanner::txtStart, "0", "Empty", nullptr},
        {'.', frmScanner_txtStart_LostFocus, &FrmScanner::txtStart, "2m", "2m",
         "You have entered a non numeric value for Scanner Start frequency - please retry"},
        {'.', frmScanner_txtStop_LostFocus, &FrmScanner::txtStop, "200.0", "200.0",
         "You have entered a Scanner Stop frequency outside the range of the rig - please retry"},
    };
    for (const auto& row : rows) {
        Scanner s(row.mark);
        TextBox& box = s.open().*row.box;
        box.text = row.typed;
        EXPECT_EQ(row.leave(s.c), row.message != nullptr) << row.typed;
        EXPECT_EQ(box.text, row.shown);
        EXPECT_EQ(s.messages(), row.message ? QStringList{row.message} : QStringList{});
        if (row.message) {
            EXPECT_EQ(s.dialogs.messages[0].title, "Invalid number");
        }
    }
}

TEST(ScannerDialog, ABlankOffsetBecomes600) {
    Scanner s;
    FrmScanner& f = s.open();
    for (const char* blank : {"", " "}) {
        f.txtOffset.text = blank;
        EXPECT_FALSE(frmScanner_txtOffset_LostFocus(s.c));
        EXPECT_EQ(f.txtOffset.text, "600");
    }
    f.txtOffset.text = "abc";
    EXPECT_TRUE(frmScanner_txtOffset_LostFocus(s.c));
    EXPECT_EQ(s.messages(), QStringList{"Repeater offset is not numeric"});
}

TEST(ScannerDialog, DecodeShowsAloneAndOnlyItsTickClearsTheOther) {
    Scanner s;
    s.range(0, "2m", "144.0", "146.0", "12.5");
    for (const char* key : {"Scan0Enc0", "Scan0Dec0"})
        s.store->save(s.c.s.AppName, "Scanner", key, "1");
    FrmScanner& f = s.open();
    EXPECT_EQ(f.chkDec.value, 1);
    EXPECT_EQ(f.chkEnc.value, 0);
    f.chkEnc.value = 1;
    frmScanner_chkDec_Click(s.c);
    EXPECT_EQ(f.chkEnc.value, 0);
}

TEST(ScannerDialog, OffersTheRigsTonesAndItsRepeaterFrameOnlyWhereThereIsShift) {
    const struct {
        const QString& rig;
        const char* secondTone;
        int tones;
        bool repeater;
    } rows[] = {{RigFT817, "69.3", 50, true},
                {RigFT847, "69.3", 39, true},
                {RigFT1000MP, "71.9", 33, false},  // the short tones
                {RigFRG100, "69.3", 39, false}};
    for (const auto& row : rows) {
        Scanner s('.', row.rig);
        FrmScanner& f = s.open();
        EXPECT_EQ(f.cboCTCSS.list.size(), row.tones) << row.rig.toStdString();
        EXPECT_EQ(f.cboCTCSS.list.value(1), row.secondTone);
        EXPECT_EQ(f.Frame4.enabled, row.repeater) << row.rig.toStdString();
        EXPECT_EQ(f.cboMode.list.size(), 21);
    }
}

TEST(ScannerDialog, ApplyRefusesStartStepAndStopInThatOrder) {
    Scanner s;
    FrmScanner& f = s.open();
    f.txtDescription.text = "2m";
    f.txtStart.text = "";
    f.txtStep.text = "x";
    EXPECT_EQ(frmScanner_cmdOK_Click(s.c), &f.txtStart);
    f.txtStart.text = "144.0";
    EXPECT_EQ(frmScanner_cmdOK_Click(s.c), &f.txtStep);
    f.txtStep.text = "12.5";
    EXPECT_EQ(frmScanner_cmdOK_Click(s.c), &f.txtStop);
    EXPECT_EQ(s.messages(),
              QStringList({"Start frequency is not valid - please correct and retry",
                           "Step frequency is not valid - please correct and retry",
                           "Stop frequency is not valid - please correct and retry"}));
    EXPECT_EQ(s.stored("Scanner", "Scan0Desc0"), "<missing>");  // nothing saved
}

TEST(ScannerDialog, ApplySavesTheEntryReloadsTheRangesAndStaysOpen) {
    Scanner s;
    s.range(4, "Old", "144.0", "146.0", "12.5");
    s.load();
    FrmScanner& f = s.c.frmScanner;
    s.windows.operators[FormId::frmScanner] = [&] {
        f.cboMemoryNumber.listIndex = 4;
        frmScanner_cboMemoryNumber_Click(s.c);
        f.txtDescription.text = "2m FM";
        f.cboCTCSS.listIndex = 8;
        f.chkEnc.value = 1;
        f.optRepeaterShift = {};
        f.optRepeaterShift[2].value = true;
        EXPECT_EQ(frmScanner_cmdOK_Click(s.c), nullptr);
        EXPECT_TRUE(s.windows.shown(FormId::frmScanner));
        frmScanner_cmdCancel_Click(s.c);
        EXPECT_FALSE(s.windows.shown(FormId::frmScanner));
    };
    cmdShowScanSettings_Click(s.c);
    const std::pair<const char*, const char*> keys[] = {
        {"Scan0Desc4", "2m FM"}, {"Scan0Start4", "144.0"}, {"Scan0Step4", "12.5"},
        {"Scan0Mode4", "FM"},    {"Scan0CTCSS4", "8"},     {"Scan0Enc4", "1"},
        {"Scan0Dec4", "0"},      {"Scan0Shift4", "+"},     {"Scan0Offset4", "600"}};
    for (auto [key, value] : keys) EXPECT_EQ(s.stored("Scanner", key), value) << key;
    EXPECT_EQ(f.cboMemoryNumber.list[4], "2m FM");
    // The main window's list takes twenty more names at each reload, and shows the new one.
    EXPECT_EQ(s.c.f.cboScanRange.list.size(), 40);
    EXPECT_EQ(ComboText(s.c.f.cboScanRange), "2m FM");
}

TEST(ScannerDialog, ClearEmptiesTheEntryShownAndStoresNothing) {
    Scanner s;
    s.range(0, "2m", "144.0", "146.0", "12.5");
    FrmScanner& f = s.open();
    frmScanner_cmdClear_Click(s.c);
    EXPECT_EQ(f.txtDescription.text, "Empty");
    EXPECT_EQ(f.txtStart.text, "");
    EXPECT_EQ(ComboText(f.cboMode), "USB");
    EXPECT_EQ(f.cboCTCSS.listIndex, 0);
    EXPECT_EQ(f.txtOffset.text, "600");
    EXPECT_EQ(f.cboMemoryNumber.list[0], "Empty");
    EXPECT_EQ(s.stored("Scanner", "Scan0Desc0"), "2m");
}

}  // namespace
}  // namespace veldor::test
