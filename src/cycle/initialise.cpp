#include "accessories/timed_events.h"
#include "basic/basic.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "link/serial_link.h"
#include "memories/banks.h"
#include "memories/memory_tag.h"
#include "memories/scan_ranges.h"
#include "scan/scan_engine.h"
#include "shell/customise.h"
#include "tuning/bands.h"
#include "tuning/delays.h"
#include "tuning/steps.h"
#include "tuning/transverter.h"

namespace veldor {

namespace {

int NumberSetting(Core& c, const QString& key, const QString& defaultValue) {
    return basic::CLng(basic::Val(GetSetting(c, c.s.AppName, "Settings", key, defaultValue)));
}

QString TextSetting(Core& c, const QString& key, const QString& defaultValue) {
    return GetSetting(c, c.s.AppName, "Settings", key, defaultValue);
}

bool BoolSetting(Core& c, const QString& key, bool defaultValue) {
    return basic::BooleanText(TextSetting(c, key, defaultValue ? "True" : "False"));
}

void SetLocaleConstants(State& s, QChar systemMark) {
    basic::SetDecimalMark(systemMark);
    // The system's decimal mark is the second character of 1.1 in the pattern "#.0".
    s.DecimalSeparator = basic::Format(1.1, "#.0").mid(1, 1);
    const bool point = s.DecimalSeparator == ".";
    s.ShiftText500 = point ? "5.00000" : "5,00000";
    s.ShiftText060 = point ? ".60000" : ",60000";
    s.ShiftText100 = point ? "1.00000" : "1,00000";
    s.ShiftText010 = point ? ".10000" : ",10000";
    s.ShiftText000 = point ? ".00000" : ",00000";
    s.FieldDelimiter = point ? "," : ";";
    s.OtherDecimalSeparator = point ? "," : ".";
}

}  // namespace

void ShowTalkSpeedTicks(Core& c) {
    for (int i = 0; i < 5; ++i) c.f.mnuTalk[i].checked = c.s.TalkFreq == i + 1;
}

void ShowPollingTicks(Core& c) {
    const int32_t d = c.s.PollingDelay;
    c.f.mnuPollingOff.checked = d == 99;
    c.f.mnuPolling.checked = d == 0;
    c.f.mnuPolling02.checked = d == 200;
    c.f.mnuPolling05.checked = d == 500;
    c.f.mnuPolling1.checked = d == 1000;
    c.f.mnuPolling2.checked = d == 2000;
    c.f.mnuPolling5.checked = d == 5000;
    c.f.mnuPolling10.checked = d == 10000;
}

void ShowRtsTicks(Core& c) {
    c.f.mnuRaiseRTS.checked = c.s.RaiseRTS == "Y";
    c.f.mnuLinkRTS.checked = c.s.LinkRTS == "Y";
    c.f.mnuTXRXcontrolsRTS.checked = c.s.TXRXcontrolsRTS == "Y";
    c.f.mnuRaiseDTR.checked = c.s.RaiseDTR == "Y";
}

void InitialiseVariables(Core& c) {
    State& s = c.s;
    // 1. Band edges of the VHF and UHF band buttons.
    s.VHFfreq = NumberSetting(c, "VHFfreq", "14500000");
    s.UHFfreq = NumberSetting(c, "UHFfreq", "43300000");
    // 2. Locale characters.
    SetLocaleConstants(s, c.p.system->decimalSeparator());
    // 3. ColumnHeadings is constant data (catalogue). Whether the system has a printer.
    s.PrinterAvailable = c.p.printer && c.p.printer->available();
    // 4. Home folder: a stored folder that has gone is treated as unset.
    s.HomeDir = TextSetting(c, "HomeDir", "");
    if (!s.HomeDir.isEmpty() && !c.p.system->directoryExists(s.HomeDir)) s.HomeDir.clear();
    // 5. Start values.
    s.VfoAActive = true;
    s.FrequencyChangePending = false;
    s.PendingRecordStart = false;
    c.f.cmdScanMemOrBank.caption = "Scan Rnge";
    // 6. Link flags and the defaults of the tone and shift state.
    s.SendBusy = false;
    s.ReceiveBusy = false;
    s.BankSection = "Banks";
    s.TargetOffset = "600";
    s.TargetShift = "0";
    s.ToneCode = "0";
    s.ToneEncode = "0";
    s.ToneDecode = "0";
    s.VR5000Step = 20;
    // 7. ModeNames, FT847ToneCodes and ToneBCD are constant data (catalogue).
    // 8. Link keys. The link always runs with two stop bits, whatever was stored.
    s.CommPort = TextSetting(c, "Commport", "1");
    s.ExtraPttPort = TextSetting(c, "ExtraPttPort", "3");
    s.ExtraPttPortEnabled = BoolSetting(c, "ExtraPttPortEnabled", false);
    s.ExtraPttPortPins = NumberSetting(c, "ExtraPttPortPins", "1");
    s.CommSpeed = TextSetting(c, "CommSpeed", "4800,N,8,2");
    if (!s.CommSpeed.isEmpty()) s.CommSpeed[s.CommSpeed.size() - 1] = QLatin1Char('2');
    s.AutoMemoryGrid = BoolSetting(c, "AutoMemoryGrid", false);
    s.AutoStart = TextSetting(c, "AutoStart", "No");
    // 9. Transverter.
    LoadTransverter(c);
    // 10. Talk speed.
    s.TalkFreq = std::clamp(NumberSetting(c, "TalkFreq", "4"), 1, 5);
    ShowTalkSpeedTicks(c);
    // 11. Polling: below 99 counts in seconds, 99 is off, larger values are milliseconds.
    s.PollingDelay = NumberSetting(c, "PollingDelay", "0");
    if (s.PollingDelay < 99) s.PollingDelay *= 1000;
    s.NextPollTime = c.p.clock->milliseconds() +
                     static_cast<uint32_t>(s.PollingDelay == 99 ? 0 : s.PollingDelay);
    ShowPollingTicks(c);
    // 12. Scan speed (its menu joins with the scan engine).
    s.ScanSpeed = NumberSetting(c, "ScanSpeed", "5");
    // 13. Rig and its delays.
    s.RigType = TextSetting(c, "RigType", RigNotSet);
    LoadDelaySliders(c, "250");
    if (s.RigType == RigVR5000)
        s.VR5000LastFreqMode = TextSetting(c, "VR5000LastFreqMode", "145.575f");
    // 14. Switches, hang delay, and the poll timer's period.
    s.AutoPowerOff = TextSetting(c, "AutoPowerOff", "N");
    s.NoCmdRejMessages = BoolSetting(c, "NoCmdRejMessages", false);
    s.ClearBuffer = TextSetting(c, "ClearBuffer", "N");
    s.ClearIPO = TextSetting(c, "ClearIPO", "N");
    s.UseSquelch = BoolSetting(c, "UseSquelch", true);
    s.HangDelay = NumberSetting(c, "HangDelay", "4");
    s.HangDelayOnSignalLoss = BoolSetting(c, "HangDelayOnSignalLoss", true);
    ShowHangDelayTicks(c);
    ShowScanSpeedTicks(c);
    c.p.tmrPollInterval->setInterval((6 - s.TalkFreq) * 26);
    // 15. The signal threshold.
    c.f.pbarGotSignal.value = std::clamp(NumberSetting(c, "GotSignal", "3"), c.f.pbarGotSignal.min,
                                         c.f.pbarGotSignal.max);
    // 16. RTS and DTR: the three RTS choices exclude one another.
    s.RaiseRTS = TextSetting(c, "RaiseRTS", "N");
    s.LinkRTS = TextSetting(c, "LinkRTS", "N");
    s.TXRXcontrolsRTS = TextSetting(c, "TXRXcontrolsRTS", "N");
    s.RaiseDTR = TextSetting(c, "RaiseDTR", "N");
    if (s.LinkRTS == "Y") s.RaiseRTS = s.TXRXcontrolsRTS = "N";
    if (s.TXRXcontrolsRTS == "Y") s.RaiseRTS = s.LinkRTS = "N";
    ShowRtsTicks(c);
    // Rig sharing: off unless the operator turns it on; loopback unless told otherwise.
    s.RigctldEnabled = TextSetting(c, "RigctldEnabled", "N");
    s.RigctldPort = NumberSetting(c, "RigctldPort", "4532");
    if (s.RigctldPort < 1 || s.RigctldPort > 65535) {
        ReportMessage(c, "RigctldPort=" + QString::number(s.RigctldPort) +
                             " in the settings is no TCP port: rig sharing uses 4532");
        s.RigctldPort = 4532;
    }
    s.RigctldAddress = TextSetting(c, "RigctldAddress", "127.0.0.1").trimmed();
    // 17. Memory tag, tuning steps and mouse steps.
    s.ShowMemoryTag = TextSetting(c, "ShowMemoryTag", "N") == "Y";
    ShowMemoryTagFrame(c);
    s.StepLSB = NumberSetting(c, "StepLSB", "33");
    s.StepUSB = NumberSetting(c, "StepUSB", "33");
    s.StepCW = NumberSetting(c, "StepCW", "33");
    s.StepAM = NumberSetting(c, "StepAM", "3");
    s.StepAMN = NumberSetting(c, "StepAMN", "67");
    s.StepWAM = NumberSetting(c, "StepWAM", "99");
    s.StepFMN = NumberSetting(c, "StepFMN", "20");
    s.StepWFM = NumberSetting(c, "StepWFM", "68");
    s.MouseLSB = NumberSetting(c, "MouseLSB", "2");
    s.MouseUSB = NumberSetting(c, "MouseUSB", "2");
    s.MouseCW = NumberSetting(c, "MouseCW", "2");
    s.MouseAM = NumberSetting(c, "MouseAM", "100");
    s.MouseAMN = NumberSetting(c, "MouseAMN", "500");
    s.MouseWAM = NumberSetting(c, "MouseWAM", "900");
    s.MouseFMN = NumberSetting(c, "MouseFMN", "1250");
    s.MouseWFM = NumberSetting(c, "MouseWFM", "5000");
    // 18. Timed events.
    LoadTimedEvents(c);
    CustomiseForms(c);
    // 20. Screen size.
    s.ScreenSize = TextSetting(c, "ScreenSize", "Small");
    s.RescaleFonts = TextSetting(c, "RescaleFonts", "Yes");
    // 21. The band table, the quick memory banks (bank 0 on show), then the scan ranges.
    LoadBands(c);
    LoadBank(c, 0);
    LoadScanRanges(c, 0);
    // 22. The band captions and the tuning steps.
    ShowBandCaptions(c);
    FillTuningSteps(c);
}

}  // namespace veldor
