#include "accessories/xband_repeat.h"

#include "basic/basic.h"
#include "link/serial_link.h"
#include "protocol/model_controls.h"
#include "protocol/read_frequency.h"

#include <algorithm>

namespace veldor {

namespace {

// The digit buttons' weights in 10 Hz, from the left digit.
constexpr int32_t kDigitWeight[] = {10000000, 1000000, 100000, 10000, 1000, 100, 10, 1};

// The frames go to the port as they stand: no command delay, no busy flags.
void Write(Core& c, const CatFrame& frame) {
    SerialPort& port = *c.p.MSComm1;
    if (port.isOpen()) port.output(QByteArray(reinterpret_cast<const char*>(frame.data()), 5));
}

int32_t StoredFrequency(Core& c, const QString& key, const QString& defaultValue) {
    return basic::CLng(basic::Val(GetSetting(c, c.s.AppName, "Settings", key, defaultValue)));
}

struct Side {
    const char* key;
    const char* defaultValue;
    int32_t State::*frequency;
    TextBox FrmXBandRepeat::*box;
};
const Side kVhf{"VHFfreq", "14500000", &State::XBandVHF, &FrmXBandRepeat::txtVfoA};
const Side kUhf{"UHFfreq", "43300000", &State::XBandUHF, &FrmXBandRepeat::txtVFOB};

// A digit button: the stored frequency moved by the digit's weight and saved under saveKey,
// or a beep when the result leaves the band on that side.
void StepDigit(Core& c, const Side& side, int index, int sign, bool (*within)(int64_t),
               const QString& saveKey) {
    if (index < 0 || index > 7) return;
    const int64_t value =
        int64_t{StoredFrequency(c, side.key, side.defaultValue)} + sign * kDigitWeight[index];
    if (!within(value)) {
        c.p.system->beep();
        return;
    }
    c.s.*side.frequency = static_cast<int32_t>(value);
    (c.frmXBandRepeat.*side.box).text = FormatFrequency(c, c.s.*side.frequency);
    SaveSetting(c, c.s.AppName, "Settings", saveKey, QString::number(value));
}

// The BCD of a frequency into a frame's parameters, as the FT-847 takes it.
void CodeFrequency(Core& c, int32_t& frequency, CatFrame& frame, uint8_t opcode) {
    PutParameters(c);
    PrepareFrequency(c, frequency);
    std::copy_n(c.s.CommandBytes.begin(), 4, frame.begin());
    frame[4] = opcode;
}

void WhiteBoxes(FrmXBandRepeat& x) {
    x.txtVfoA.backColour = White;
    x.txtVFOB.backColour = White;
}

// The end of a run, with the start button back.
void Stopped(FrmXBandRepeat& x) {
    x.running = false;
    x.cmdStart.enabled = true;
}

}  // namespace

void cmdXBand_Click(Core& c) {
    if (Busy(c.s)) return;
    c.s.PendingXBand = true;
}

void ShowXBandRepeat(Core& c) {
    c.s.PendingXBand = false;
    frmXBandRepeat_Load(c);
    // The poll stands still while the window is open: the timer starts again when this tick
    // ends, as after every tick.
    c.p.windows->show(FormId::frmXBandRepeat, true);
}

void frmXBandRepeat_Load(Core& c) {
    FrmXBandRepeat& x = c.frmXBandRepeat;
    x.loaded = true;
    c.s.XBandVHF = StoredFrequency(c, kVhf.key, kVhf.defaultValue);
    c.s.XBandUHF = StoredFrequency(c, kUhf.key, kUhf.defaultValue);
    x.txtVfoA.text = FormatFrequency(c, c.s.XBandVHF);
    x.txtVFOB.text = FormatFrequency(c, c.s.XBandUHF);
    WhiteBoxes(x);
    Stopped(x);
    x.Label1.caption =
        QStringList{"This form enables you to use your FT-847 as a cross-band repeater.",
                    "First choose your two frequencies, one VHF and the other UHF. Click the "
                    "Start button and follow the ",
                    "on-screen instruction regarding menu item 41. The program halts switching "
                    "when the squelch is lifted ",
                    "by an incoming signal. The program then waits for loss of signal and resumes "
                    "monitoring."}
            .join("\r\n");
}

void frmXBandRepeat_Unload(Core& c) {
    FrmXBandRepeat& x = c.frmXBandRepeat;
    c.s.XBandStop = true;
    x.loaded = false;
    // Written whether a run was going or not: the rig leaves satellite mode.
    Write(c, x.SatOff);
    WhiteBoxes(x);
}

void frmXBandRepeat_cmdFreqAPlus_Click(Core& c, int index) {
    StepDigit(
        c, kVhf, index, 1, [](int64_t v) { return v < 14800001; }, "VHFfreq");
}

void frmXBandRepeat_cmdFreqAMinus_Click(Core& c, int index) {
    StepDigit(
        c, kVhf, index, -1, [](int64_t v) { return v >= 14400000; }, "VHFfreq");
}

void frmXBandRepeat_cmdFreqBPlus_Click(Core& c, int index) {
    // Deliberately spelled so: the store ignores the case of a key, so this is UHFfreq.
    StepDigit(
        c, kUhf, index, 1, [](int64_t v) { return v < 45000001; }, "uHFfreq");
}

void frmXBandRepeat_cmdFreqBMinus_Click(Core& c, int index) {
    StepDigit(
        c, kUhf, index, -1, [](int64_t v) { return v >= 43000000; }, "UHFfreq");
}

void frmXBandRepeat_cmdStart_Click(Core& c) {
    State& s = c.s;
    FrmXBandRepeat& x = c.frmXBandRepeat;
    if (x.running) return;
    // VHF goes to the satellite transmit side (21), UHF to the receive side (11), in FM.
    CodeFrequency(c, s.XBandVHF, x.FreqVHF, 0x21);
    CodeFrequency(c, s.XBandUHF, x.FreqUHF, 0x11);
    x.CatOn = {0, 0, 0, 0, 0x00};
    x.SatOn = {0, 0, 0, 0, 0x4E};
    x.SatOff = {0, 0, 0, 0, 0x8E};
    x.ModeTx = {0x08, 0, 0, 0, 0x27};
    x.ModeRx = {0x08, 0, 0, 0, 0x17};
    x.ReadStatus = {0, 0, 0, 0, 0xE7};
    Write(c, x.CatOn);
    Write(c, x.SatOn);
    // Repeating is a menu setting of the rig that CAT cannot reach.
    c.p.dialogs->messageBox("Set menu 41 X-RPT to ON, then click OK", "VELDOR", MsgButtons::OK,
                            MsgIcon::None);
    if (!x.loaded) return;  // the window was closed meanwhile, and satellite mode with it
    Write(c, x.FreqVHF);
    x.txtVfoA.backColour = Red;
    Write(c, x.FreqUHF);
    x.txtVFOB.backColour = PaleGreen;
    Write(c, x.ModeTx);
    Write(c, x.ModeRx);

    int32_t SwitchCount = 0;
    s.XBandStop = false;
    x.running = true;
    x.cmdStart.enabled = false;
    // Every read lets events run: Stop and the closing of the window come in here. A port
    // gone from under the loop ends it too.
    while (!s.XBandStop && c.p.MSComm1->isOpen()) {
        Write(c, x.ReadStatus);
        ReadResponse(c, 1);
        if (s.ReplyTimedOut) {
            if (s.XBandStop) break;
            // Deliberately without clean-up: satellite mode and the colours stay until Exit.
            Stopped(x);
            return;
        }
        // Bit 7 clear: the squelch is open, and the swapping holds on this band.
        s.XBandSignal = !(ReplyByte(c, 0) & 0x80);
        if (s.XBandSignal) continue;
        // The dwell counts quiet reads: 10 to 30, fewer the higher the slider.
        if (++SwitchCount <= 50 - x.Slider1.value) continue;
        SwitchCount = 0;
        x.Swap[4] = x.FreqVHF[4];
        x.FreqVHF[4] = x.FreqUHF[4];
        x.FreqUHF[4] = x.Swap[4];
        std::swap(x.txtVfoA.backColour, x.txtVFOB.backColour);
        Write(c, x.FreqVHF);
        Write(c, x.FreqUHF);
        Write(c, x.ModeTx);
        Write(c, x.ModeRx);
    }
    Write(c, x.SatOff);
    WhiteBoxes(x);
    Stopped(x);
}

void frmXBandRepeat_cmdStop_Click(Core& c) {
    c.s.XBandStop = true;
}

void frmXBandRepeat_cmdExit_Click(Core& c) {
    frmXBandRepeat_Unload(c);
    c.p.windows->close(FormId::frmXBandRepeat);
}

}  // namespace veldor
