// Tones, repeater shift, and transmit switching with its lines.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "protocol/tones.h"
#include "protocol/transmit.h"
#include "shell/customise.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace veldor::test {
namespace {

// A scripted rig with the window fitted to it, acknowledging each binary
// command; what it was sent reads as text for the FT-450 and as hex for the
// others.
struct Fitted : Wire {
    explicit Fitted(const QString& rig, const QByteArray& reply = Bytes({0}))
        : Wire(rig, rig == RigFT450 ? QByteArray() : reply) {
        CustomiseForms(c);
    }
};

TEST(SendToneSettings, SendsEachRigsToneAndMode) {
    const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
        // The FT-857 family carries the tone twice, the FT-817 once.
        {"FT817", "8", "1", "0", "08 85 00 00 0b 4a 85 00 00 0a"},
        {"FT857", "8", "1", "0", "08 85 08 85 0b 4a 85 08 85 0a"},
        {"FT897D", "49", "1", "1", "25 41 25 41 0b 4a 41 25 41 0a"},
        {"FT847", "0", "0", "1", "3f 00 00 00 0b 2a 00 00 00 0a"},
        {"FT847", "38", "1", "0", "00 00 00 00 0b 4a 00 00 00 0a"},
        {"FT920", "8", "1", "0", "00 00 00 09 90"},
        {"FT920", "8", "0", "1", "00 00 09 09 90"},
        {"FT1000MP", "8", "1", "0", ""},
        // The FT-450's tone number goes without its semicolon.
        {"FT450", "12", "1", "0", "CN012CT02;"},
        {"FT450", "3", "0", "1", "CN003CT01;"},
    };
    for (const auto& [rig, code, encode, decode, sent] : cases) {
        Fitted w(rig);
        w.c.s.ToneCode = code;
        w.c.s.ToneEncode = encode;
        w.c.s.ToneDecode = decode;
        ToneValues(w.c, code, encode, decode);
        SendToneSettings(w.c);
        EXPECT_EQ(w.sent(), sent) << rig << " " << code;
        if (w.c.s.RigType != RigFT450) continue;
        EXPECT_EQ(w.c.f.lblEnc.backColour, Green) << code;
        EXPECT_EQ(w.c.f.lblDec.backColour, *decode == '1' ? Green : White) << code;
        EXPECT_EQ(w.c.f.lblCTCSSFreq.caption == "100.0", *decode == '0');
    }
}

TEST(ToneValues, AnIndexBeyondTheListIsARunTimeErrorThatStopsPolling) {
    for (const QString& rig : {RigFT817, RigFT847, RigFT450, RigFT920}) {
        Fitted w(rig);
        EXPECT_THROW(ToneValues(w.c, "50", "1", "0"), std::out_of_range) << rig.toStdString();
        EXPECT_THROW(ToneValues(w.c, "-1", "1", "0"), std::out_of_range);
    }
    Station st(RigFT817);
    st.load();
    st.switchOn();
    st.c.s.ToneCode = "77";
    st.c.s.ToneEncode = "1";
    st.c.s.TargetFrequency = 14550000;
    st.c.s.TargetMode = "FM";
    st.c.s.FrequencyChangePending = true;
    tmrPollInterval_Timer(st.c);
    ASSERT_FALSE(st.dialogs.messages.empty());
    EXPECT_EQ(st.dialogs.messages.back().text,
              "Error 9 (Subscript out of range) in procedure "
              "tmrPollInterval_Timer of Form Form1");
    EXPECT_FALSE(st.pollTimer.on);
}

TEST(ToneOff, SwitchesEachRigsToneOffAndClearsTheLights) {
    const std::pair<const char*, const char*> cases[] = {{"FT817", "8a 00 00 00 0a"},
                                                         {"FT847", "8a 00 00 00 0a"},
                                                         {"FT920", "00 00 00 00 90"},
                                                         {"FT450", "CT00;"},
                                                         {"FT1000MP", ""}};
    for (const auto& [rig, sent] : cases) {
        Fitted w(rig);
        w.c.s.ToneEncode = "1";
        w.c.f.lblEnc.backColour = Green;
        ToneOff(w.c);
        EXPECT_EQ(w.sent(), sent);
        // The FT-1000MP has no tone: it ends before anything is touched.
        const bool touched = *sent != '\0';
        EXPECT_EQ(w.c.s.ToneEncode, touched ? "0" : "1") << rig;
        EXPECT_EQ(w.c.f.lblEnc.backColour, touched ? White : Green) << rig;
    }
}

// The shift, then the offset, each sent once only; a new offset goes alone.
TEST(ApplyRepeaterShift, SendsShiftThenOffsetOnce) {
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"FT817", "FM", "-", "09 00 00 00 09 00 06 00 00 f9"},
        {"FT857", "FM", "+", "49 00 00 00 09 00 06 00 00 f9"},
        {"FT847", "FM", "0", "89 00 00 00 09"},  // simplex never sends an offset
        {"FT920", "FM", "-", "00 00 00 01 84"},  // no offset command
        {"FT920", "USB", "-", ""},
        {"FT450", "FMN", "-", "OS02;EX050006;"},
        {"FT450", "USB", "+", ""},
        {"FT1000MP", "FM", "+", ""},
        {"VR5000", "FM", "+", ""},
        {"FRG100", "FM", "+", ""},
    };
    for (const auto& [rig, mode, shift, sent] : cases) {
        SCOPED_TRACE(std::string(rig) + " " + mode + " " + shift);
        Fitted w(rig);
        w.c.f.txtMode.text = mode;
        w.c.s.TargetShift = shift;
        w.c.s.TargetOffset = "600";
        w.c.s.ShiftPending = true;
        ApplyRepeaterShift(w.c);
        EXPECT_EQ(w.sent(), sent);
        EXPECT_FALSE(w.c.s.ShiftPending);
        if (!*sent) continue;
        w.clear();
        ApplyRepeaterShift(w.c);
        EXPECT_TRUE(w.sent().isEmpty());
    }
    Fitted w(RigFT817);
    w.c.f.txtMode.text = "FM";
    w.c.s.TargetShift = "+";
    w.c.s.TargetOffset = "600";
    ApplyRepeaterShift(w.c);
    w.clear();
    w.c.s.TargetOffset = "1600";  // 1.6 MHz
    ApplyRepeaterShift(w.c);
    EXPECT_EQ(w.hex(), "00 16 00 00 f9");
    Fitted ft450(RigFT450);
    ft450.c.f.txtMode.text = "FM";
    ft450.c.s.TargetShift = "-";
    ApplyRepeaterShift(ft450.c);
    EXPECT_EQ(ft450.c.f.cmdShiftMinus.backColour, PaleGreen);
    EXPECT_EQ(ft450.c.f.cmdShiftPlus.backColour, ButtonFace);
}

TEST(ShiftButtons, AskOnlyWhenConnectedAndReceiving) {
    Harness h;
    cmdShiftPlus_Click(h.c);
    EXPECT_FALSE(h.c.s.ShiftPending);
    h.c.f.chkOnOff.value = 1;
    for (bool State::*busy : {&State::Transmitting, &State::ScanRunning}) {
        h.c.s.*busy = true;
        cmdShiftMinus_Click(h.c);
        EXPECT_FALSE(h.c.s.ShiftPending);
        h.c.s.*busy = false;
    }
    cmdShiftMinus_Click(h.c);
    EXPECT_TRUE(h.c.s.ShiftPending);
    EXPECT_EQ(h.c.s.TargetShift, "-");
    cmdShiftSimplex_Click(h.c);
    EXPECT_EQ(h.c.s.TargetShift, "0");
}

// Transmit switching.

// Each rig's switch; the FT-847 moves to the split frequencies around it.
TEST(Ptt, SendsEachRigsSwitch) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"FT817", "00 00 00 00 08", "00 00 00 00 88"},
        {"FT897", "00 00 00 00 08", "00 00 00 00 88"},
        {"FT847", "00 00 00 00 08", "00 00 00 00 88"},
        {"FT920", "00 00 00 01 0f", "00 00 00 00 0f"},
        {"FT1000MP", "00 00 00 01 0f", "00 00 00 00 0f"},
        {"FT450", "TX1;", "TX0;"},
        {"FRG100", "", ""},
        {"VR5000", "", ""},
    };
    for (const auto& [rig, on, off] : cases) {
        SCOPED_TRACE(rig);
        Fitted w(rig);
        State& s = w.c.s;
        s.PttOnPending = s.PttOffPending = true;
        PttOn(w.c);
        EXPECT_EQ(w.sent(), on);
        EXPECT_TRUE(s.Transmitting && !s.PttOnPending);
        w.clear();
        PttOff(w.c);
        EXPECT_EQ(w.sent(), off);
        EXPECT_FALSE(s.Transmitting || s.PttOffPending);
        EXPECT_EQ(s.IgnoreNextTxStatus, IsAckFamily(rig));
    }
    Fitted w(RigFT847, {});
    w.c.s.LastModeSent = w.c.s.SplitTxMode = w.c.s.SplitRxMode = "FM";
    w.c.f.chkSplit.value = 1;
    w.c.s.SplitTxFrequency = 14560000;
    w.c.s.SplitRxFrequency = 43400000;
    PttOn(w.c);
    EXPECT_EQ(w.hex(), "14 56 00 00 01 00 00 00 00 08");
    w.clear();
    PttOff(w.c);
    EXPECT_EQ(w.hex(), "43 40 00 00 01 00 00 00 00 88");
}

struct Keying : Fitted {
    Keying() : Fitted(RigFT817) {
        c.f.chkTransmitEnable.value = 1;
        chkTransmitEnable_Click(c);
        c.s.PttOffPending = false;
    }
};

// A click raises the switch for the next tick and shows it; an extra PTT port
// switches at once (DTR, or both lines), and with only RTS to key it takes the
// place of the rig's switch.
TEST(TxRxButton, RaisesTheSwitchForTheNextTickAndShowsIt) {
    const std::tuple<bool, int, const char*, bool, bool> cases[] = {
        {false, 0, "N", false, false}, {true, 0, "N", true, false}, {true, 2, "Y", true, true}};
    for (const auto& [extraPort, pins, rtsOnly, dtr, rts] : cases) {
        SCOPED_TRACE(pins);
        Keying k;
        k.c.s.ExtraPttPortEnabled = extraPort;
        k.c.s.ExtraPttPortPins = pins;
        k.c.s.TXRXcontrolsRTS = rtsOnly;
        const CommandButton& button = k.c.f.cmdTxRx;
        cmdTxRx_Click(k.c);
        const bool viaRig = QString(rtsOnly) == "N";
        EXPECT_EQ(k.c.s.PttOnPending, viaRig);
        EXPECT_TRUE(button.caption == "TX/rx" && button.backColour == Red && button.pressed);
        EXPECT_TRUE(k.hex().isEmpty());
        EXPECT_EQ(k.pttPort.dtrLine, dtr);
        EXPECT_EQ(k.pttPort.rtsLine, rts);
        EXPECT_FALSE(k.scriptedPort->rtsLine);
        EXPECT_FALSE(k.c.s.Transmitting);
        PttOn(k.c);
        cmdTxRx_Click(k.c);
        EXPECT_EQ(k.c.s.PttOffPending, viaRig);
        EXPECT_TRUE(button.caption == "tx/RX" && button.backColour == White && !button.pressed);
    }
}

TEST(TxRxButton, IsDeadWithoutTransmitEnableOrDuringAScan) {
    Keying k;
    k.c.f.chkTransmitEnable.value = 0;
    chkTransmitEnable_Click(k.c);
    EXPECT_FALSE(k.c.f.cmdTxRx.enabled);
    EXPECT_TRUE(k.c.s.PttOffPending);  // any change of the box drops a transmission
    k.c.s.PttOffPending = false;
    cmdTxRx_Click(k.c);
    EXPECT_FALSE(k.c.s.PttOnPending);
    k.c.f.chkTransmitEnable.value = 1;
    k.c.s.ScanRunning = true;
    cmdTxRx_Click(k.c);
    EXPECT_FALSE(k.c.s.PttOnPending);
}

// Each route keys, unkeys and keys again, one click each, and keys nothing
// else; a change of TX enable unkeys it. Keyed, as three digits: the rig by
// CAT, RTS of the rig's port, the extra PTT port's RTS.
TEST(TxRxButton, UnkeysWhatItKeyedOnEachRoute) {
    const std::tuple<const char*, bool, const char*> routes[] = {
        {"N", false, "100"}, {"Y", false, "010"}, {"Y", true, "001"}};
    for (const auto& [rtsOnly, extraPort, keyed] : routes) {
        OnAir st(RigFT817);
        st.c.s.TXRXcontrolsRTS = rtsOnly;
        st.c.s.ExtraPttPortEnabled = extraPort;
        auto now = [&st] {
            return QString("%1%2%3")
                .arg(st.rig().state().ptt)
                .arg(st.c.p.MSComm1->rts())
                .arg(st.pttPort.rtsLine);
        };
        st.c.f.chkTransmitEnable.value = 1;
        chkTransmitEnable_Click(st.c);
        for (const char* expected : {keyed, "000", keyed}) {
            cmdTxRx_Click(st.c);
            st.tick();
            EXPECT_EQ(now(), expected) << keyed;
        }
        st.c.f.chkTransmitEnable.value = 0;
        chkTransmitEnable_Click(st.c);
        st.tick();
        EXPECT_EQ(now(), "000") << keyed << ", TX enable off";
    }
}

TEST(Lines, TheRtsItemsExcludeEachOtherAndTheLinesFollowTheTransmitLight) {
    Fitted w(RigFT817);
    const Form1& f = w.c.f;
    // The items ticked, as Raise, Link, TX/RX; and the three keys stored.
    auto ticked = [&] {
        return QString("%1%2%3 ")
                   .arg(f.mnuRaiseRTS.checked)
                   .arg(f.mnuLinkRTS.checked)
                   .arg(f.mnuTXRXcontrolsRTS.checked) +
               w.stored("Settings", "RaiseRTS") + w.stored("Settings", "LinkRTS") +
               w.stored("Settings", "TXRXcontrolsRTS");
    };
    mnuRaiseRTS_Click(w.c);
    EXPECT_TRUE(w.scriptedPort->rtsLine);
    EXPECT_EQ(ticked(), "100 YNN");
    mnuLinkRTS_Click(w.c);
    EXPECT_EQ(ticked(), "010 NYN");
    mnuTXRXcontrolsRTS_Click(w.c);
    EXPECT_EQ(ticked(), "001 NNY");
    mnuTXRXcontrolsRTS_Click(w.c);  // off again: nothing else comes on
    EXPECT_EQ(ticked(), "000 NNN");
    mnuRaiseDTR_Click(w.c);
    EXPECT_TRUE(w.scriptedPort->dtrLine);
    EXPECT_EQ(w.stored("Settings", "RaiseDTR"), "Y");
    // Both RTS lines follow the rig's own transmit light.
    w.c.s.ExtraPttPortPins = 1;
    for (const bool on : {true, false}) {
        w.c.f.lblTX.backColour = on ? Red : White;
        FollowTxState(w.c);
        EXPECT_EQ(w.scriptedPort->rtsLine, on);
        EXPECT_EQ(w.pttPort.rtsLine, on);
    }
}

}  // namespace
}  // namespace veldor::test
