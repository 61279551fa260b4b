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

// A scripted rig with the window fitted to it.
struct Fitted : Wire {
    explicit Fitted(const QString& rig, const QByteArray& reply = {}) : Wire(rig, reply) {
        CustomiseForms(c);
    }
};

struct ToneCase {
    const char* rig;
    const char* code;
    const char* encode;
    const char* decode;
    const char* sent;
};

TEST(SendToneSettings, SendsEachRigsToneAndMode) {
    const ToneCase cases[] = {
        // The FT-857 family carries the tone twice, the FT-817 once.
        {"FT817", "8", "1", "0", "08 85 00 00 0b 4a 85 00 00 0a"},
        {"FT857", "8", "1", "0", "08 85 08 85 0b 4a 85 08 85 0a"},
        {"FT897D", "49", "1", "1", "25 41 25 41 0b 4a 41 25 41 0a"},
        {"FT847", "0", "0", "1", "3f 00 00 00 0b 2a 00 00 00 0a"},
        {"FT847", "38", "1", "0", "00 00 00 00 0b 4a 00 00 00 0a"},
        {"FT920", "8", "1", "0", "00 00 00 09 90"},
        {"FT920", "8", "0", "1", "00 00 09 09 90"},
        {"FT1000MP", "8", "1", "0", ""},
    };
    for (const ToneCase& t : cases) {
        Fitted w(t.rig, Bytes({0}));
        w.c.s.ToneCode = t.code;
        w.c.s.ToneEncode = t.encode;
        w.c.s.ToneDecode = t.decode;
        ToneValues(w.c, t.code, t.encode, t.decode);
        SendToneSettings(w.c);
        EXPECT_EQ(w.hex(), t.sent) << t.rig << " " << t.code;
    }
}

TEST(SendToneSettings, Ft450SendsTheToneNumberWithoutASemicolon) {
    Fitted w(RigFT450);
    w.c.s.ToneCode = "12";
    w.c.s.ToneEncode = "1";
    ToneValues(w.c, "12", "1", "0");
    SendToneSettings(w.c);
    EXPECT_EQ(w.text(), "CN012CT02;");
    EXPECT_EQ(w.c.f.lblCTCSSFreq.caption, "100.0");
    EXPECT_EQ(w.c.f.lblEnc.backColour, Green);
    EXPECT_EQ(w.c.f.lblDec.backColour, White);
    Fitted squelch(RigFT450);
    squelch.c.s.ToneDecode = "1";
    ToneValues(squelch.c, "3", "0", "1");
    SendToneSettings(squelch.c);
    EXPECT_EQ(squelch.text(), "CN003CT01;");
    EXPECT_EQ(squelch.c.f.lblEnc.backColour, Green);
    EXPECT_EQ(squelch.c.f.lblDec.backColour, Green);
}

TEST(ToneValues, AnIndexBeyondTheListIsARunTimeError) {
    for (const QString& rig : {RigFT817, RigFT847, RigFT450, RigFT920}) {
        Fitted w(rig);
        EXPECT_THROW(ToneValues(w.c, "50", "1", "0"), std::out_of_range) << rig.toStdString();
        EXPECT_THROW(ToneValues(w.c, "-1", "1", "0"), std::out_of_range);
    }
}

TEST(ToneValues, ABadToneInTheTickShowsTheErrorBoxAndStopsPolling) {
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
              "Error 9 (Subscript out of range) in procedure tmrPollInterval_Timer of Form Form1");
    EXPECT_FALSE(st.pollTimer.on);
}

TEST(ToneOff, SwitchesEachRigsToneOffAndClearsTheLights) {
    const std::pair<const char*, const char*> cases[] = {
        {"FT817", "8a 00 00 00 0a"}, {"FT847", "8a 00 00 00 0a"}, {"FT920", "00 00 00 00 90"}};
    for (const auto& [rig, sent] : cases) {
        Fitted w(rig, Bytes({0}));
        w.c.s.ToneEncode = "1";
        w.c.f.lblEnc.backColour = Green;
        w.c.f.lblCTCSSFreq.caption = "88.5";
        ToneOff(w.c);
        EXPECT_EQ(w.hex(), sent);
        EXPECT_EQ(w.c.s.ToneEncode, "0");
        EXPECT_EQ(w.c.f.lblEnc.backColour, White);
        EXPECT_EQ(w.c.f.lblCTCSSFreq.caption, "Freq");
    }
    Fitted ft450(RigFT450);
    ToneOff(ft450.c);
    EXPECT_EQ(ft450.text(), "CT00;");
    Fitted mp(RigFT1000MP);
    mp.c.s.ToneEncode = "1";
    ToneOff(mp.c);
    EXPECT_TRUE(mp.hex().isEmpty());
    EXPECT_EQ(mp.c.s.ToneEncode, "1");  // it ends before anything is touched
}

struct ShiftCase {
    const char* rig;
    const char* mode;
    const char* shift;
    const char* sent;
};

TEST(ApplyRepeaterShift, SendsShiftThenOffset) {
    const ShiftCase cases[] = {
        {"FT817", "FM", "-", "09 00 00 00 09 00 06 00 00 f9"},
        {"FT857", "FM", "+", "49 00 00 00 09 00 06 00 00 f9"},
        {"FT847", "FM", "0", "89 00 00 00 09"},  // simplex never sends an offset
        {"FT920", "FM", "-", "00 00 00 01 84"},  // no offset command
        {"FT920", "USB", "-", ""},
        {"FT1000MP", "FM", "+", ""},
        {"VR5000", "FM", "+", ""},
        {"FRG100", "FM", "+", ""},
    };
    for (const ShiftCase& t : cases) {
        Fitted w(t.rig, Bytes({0}));
        w.c.f.txtMode.text = t.mode;
        w.c.s.TargetShift = t.shift;
        w.c.s.TargetOffset = "600";
        w.c.s.ShiftPending = true;
        ApplyRepeaterShift(w.c);
        EXPECT_EQ(w.hex(), t.sent) << t.rig << " " << t.shift;
        EXPECT_FALSE(w.c.s.ShiftPending);
    }
}

TEST(ApplyRepeaterShift, Ft450TextsAndOnlyInFm) {
    Fitted w(RigFT450);
    w.c.f.txtMode.text = "FMN";
    w.c.s.TargetShift = "-";
    w.c.s.TargetOffset = "600";
    ApplyRepeaterShift(w.c);
    EXPECT_EQ(w.text(), "OS02;EX050006;");
    EXPECT_EQ(w.c.f.cmdShiftMinus.backColour, PaleGreen);
    EXPECT_EQ(w.c.f.cmdShiftPlus.backColour, ButtonFace);
    Fitted usb(RigFT450);
    usb.c.f.txtMode.text = "USB";
    usb.c.s.TargetShift = "+";
    ApplyRepeaterShift(usb.c);
    EXPECT_TRUE(usb.text().isEmpty());
}

TEST(ApplyRepeaterShift, SendsNothingTwice) {
    Fitted w(RigFT817, Bytes({0}));
    w.c.f.txtMode.text = "FM";
    w.c.s.TargetShift = "+";
    w.c.s.TargetOffset = "600";
    ApplyRepeaterShift(w.c);
    w.clear();
    ApplyRepeaterShift(w.c);
    EXPECT_TRUE(w.hex().isEmpty());
    w.c.s.TargetOffset = "1600";  // 1.6 MHz
    ApplyRepeaterShift(w.c);
    EXPECT_EQ(w.hex(), "00 16 00 00 f9");
}

TEST(ShiftButtons, AskOnlyWhenConnectedAndReceiving) {
    Harness h;
    cmdShiftPlus_Click(h.c);
    EXPECT_FALSE(h.c.s.ShiftPending);
    h.c.f.chkOnOff.value = 1;
    h.c.s.Transmitting = true;
    cmdShiftPlus_Click(h.c);
    EXPECT_FALSE(h.c.s.ShiftPending);
    h.c.s.Transmitting = false;
    h.c.s.ScanRunning = true;
    cmdShiftMinus_Click(h.c);
    EXPECT_FALSE(h.c.s.ShiftPending);
    h.c.s.ScanRunning = false;
    cmdShiftMinus_Click(h.c);
    EXPECT_TRUE(h.c.s.ShiftPending);
    EXPECT_EQ(h.c.s.TargetShift, "-");
    cmdShiftSimplex_Click(h.c);
    EXPECT_EQ(h.c.s.TargetShift, "0");
}

TEST(RepeaterChannel, TheSimulatedRigTakesToneShiftAndOffset) {
    // VHF on the rigs that have it, the 10 m FM band on the HF rigs.
    const std::pair<QString, int32_t> cases[] = {{RigFT817, 14500000},
                                                 {RigFT857D, 14500000},
                                                 {RigFT847, 14500000},
                                                 {RigFT450, 2962000},
                                                 {RigFT920, 2962000}};
    for (const auto& [rig, frequency] : cases) {
        Station st(rig);
        st.load();
        st.switchOn();
        st.c.s.PollingDelay = 99;
        State& s = st.c.s;
        s.TargetFrequency = frequency;
        s.TargetMode = "FM";
        s.TargetShift = "-";
        s.TargetOffset = "600";
        s.ToneCode = "8";
        s.ToneEncode = "1";
        s.FrequencyChangePending = true;
        tmrPollInterval_Timer(st.c);
        const sim::RigState& r = st.rig().state();
        EXPECT_EQ(r.frequencyHz, frequency * 10LL) << rig.toStdString();
        EXPECT_EQ(r.toneMode, "encode") << rig.toStdString();
        EXPECT_EQ(r.shift, "-") << rig.toStdString();
        if (rig != RigFT920) {
            EXPECT_EQ(r.offsetHz, 600000) << rig.toStdString();
        }
        if (IsAckFamily(rig)) {
            EXPECT_EQ(r.toneDeciHz, 885);
        }
        if (rig == RigFT847) {
            EXPECT_EQ(r.toneNumber, 14);
        }
        if (rig == RigFT450) {
            EXPECT_EQ(r.toneNumber, 8);
        }
        if (rig == RigFT920) {
            EXPECT_EQ(r.toneNumber, 9);
        }
    }
}

// Transmit switching.

struct PttCase {
    const char* rig;
    const char* on;
    const char* off;
};

TEST(Ptt, SendsEachRigsSwitch) {
    const PttCase cases[] = {
        {"FT817", "00 00 00 00 08", "00 00 00 00 88"},
        {"FT897", "00 00 00 00 08", "00 00 00 00 88"},
        {"FT847", "00 00 00 00 08", "00 00 00 00 88"},
        {"FT920", "00 00 00 01 0f", "00 00 00 00 0f"},
        {"FT1000MP", "00 00 00 01 0f", "00 00 00 00 0f"},
        {"FRG100", "", ""},
        {"VR5000", "", ""},
    };
    for (const PttCase& t : cases) {
        Fitted w(t.rig, Bytes({0}));
        w.c.s.PttOnPending = true;
        PttOn(w.c);
        EXPECT_EQ(w.hex(), t.on) << t.rig;
        EXPECT_TRUE(w.c.s.Transmitting);
        EXPECT_FALSE(w.c.s.PttOnPending);
        w.clear();
        w.c.s.PttOffPending = true;
        PttOff(w.c);
        EXPECT_EQ(w.hex(), t.off) << t.rig;
        EXPECT_FALSE(w.c.s.Transmitting);
        EXPECT_FALSE(w.c.s.PttOffPending);
        EXPECT_EQ(w.c.s.IgnoreNextTxStatus, IsAckFamily(t.rig));
    }
    Fitted ft450(RigFT450);
    PttOn(ft450.c);
    PttOff(ft450.c);
    EXPECT_EQ(ft450.text(), "TX1;TX0;");
}

TEST(Ptt, TheFt847MovesToTheSplitFrequenciesAroundTheSwitch) {
    Fitted w(RigFT847);
    w.c.s.LastModeSent = "FM";
    w.c.s.LastToneState = w.c.s.ToneCode + w.c.s.ToneEncode + w.c.s.ToneDecode;
    w.c.f.chkSplit.value = 1;
    w.c.s.SplitTxFrequency = 14560000;
    w.c.s.SplitTxMode = "FM";
    w.c.s.SplitRxFrequency = 43400000;
    w.c.s.SplitRxMode = "FM";
    PttOn(w.c);
    EXPECT_EQ(w.hex(), "14 56 00 00 01 00 00 00 00 08");
    w.clear();
    PttOff(w.c);
    EXPECT_EQ(w.hex(), "43 40 00 00 01 00 00 00 00 88");
}

struct Keying : Fitted {
    Keying() : Fitted(RigFT817, Bytes({0})) {
        c.f.chkTransmitEnable.value = 1;
        chkTransmitEnable_Click(c);
        c.s.PttOffPending = false;
    }
};

TEST(TxRxButton, RaisesTheSwitchForTheNextTickAndShowsIt) {
    Keying k;
    cmdTxRx_Click(k.c);
    EXPECT_TRUE(k.c.s.PttOnPending);
    EXPECT_EQ(k.c.f.cmdTxRx.caption, "TX/rx");
    EXPECT_EQ(k.c.f.cmdTxRx.backColour, Red);
    EXPECT_TRUE(k.c.f.cmdTxRx.pressed);
    EXPECT_TRUE(k.hex().isEmpty());
    PttOn(k.c);
    cmdTxRx_Click(k.c);
    EXPECT_TRUE(k.c.s.PttOffPending);
    EXPECT_EQ(k.c.f.cmdTxRx.caption, "tx/RX");
    EXPECT_EQ(k.c.f.cmdTxRx.backColour, White);
    EXPECT_FALSE(k.c.f.cmdTxRx.pressed);
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

TEST(TxRxButton, WithOnlyRtsTheLineKeysAndTransmittingStaysFalse) {
    Keying k;
    k.c.s.TXRXcontrolsRTS = "Y";
    cmdTxRx_Click(k.c);
    EXPECT_TRUE(k.scriptedPort->rtsLine);
    EXPECT_FALSE(k.c.s.PttOnPending);
    EXPECT_FALSE(k.c.s.Transmitting);
    EXPECT_EQ(k.c.f.cmdTxRx.caption, "TX/rx");
    cmdTxRx_Click(k.c);
    EXPECT_FALSE(k.scriptedPort->rtsLine);
    EXPECT_EQ(k.c.f.cmdTxRx.caption, "tx/RX");
    EXPECT_TRUE(k.hex().isEmpty());
}

TEST(TxRxButton, TheExtraPortSwitchesAtOnce) {
    Keying k;
    k.c.s.ExtraPttPortEnabled = true;
    k.c.s.ExtraPttPortPins = 0;  // DTR
    cmdTxRx_Click(k.c);
    EXPECT_TRUE(k.pttPort.dtrLine);
    EXPECT_FALSE(k.pttPort.rtsLine);
    EXPECT_TRUE(k.c.s.PttOnPending);
    // With only RTS to key, the extra port takes the place of the rig's line.
    Keying r;
    r.c.s.ExtraPttPortEnabled = true;
    r.c.s.ExtraPttPortPins = 2;
    r.c.s.TXRXcontrolsRTS = "Y";
    cmdTxRx_Click(r.c);
    EXPECT_TRUE(r.pttPort.dtrLine);
    EXPECT_TRUE(r.pttPort.rtsLine);
    EXPECT_FALSE(r.scriptedPort->rtsLine);
}

// Each route keys, unkeys and keys again, one click each, and keys nothing else; a change of
// TX enable unkeys it. Keyed, as three digits: the rig by CAT, RTS of the rig's port, the
// extra PTT port's RTS.
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

TEST(TxRxButton, AReceiverGetsNoBytesThoughTheButtonChanges) {
    Station st(RigVR5000);
    st.load();
    st.switchOn();
    st.c.s.PollingDelay = 99;
    tmrPollInterval_Timer(st.c);         // the first tick takes the receiver to its stored channel
    st.c.f.chkTransmitEnable.value = 1;  // as a stored choice would leave it
    cmdTxRx_Click(st.c);
    EXPECT_EQ(st.c.f.cmdTxRx.caption, "TX/rx");
    st.rig().clearTrace();
    tmrPollInterval_Timer(st.c);
    EXPECT_TRUE(st.rigReceived().isEmpty());
    EXPECT_TRUE(st.c.s.Transmitting);
}

TEST(FollowTxState, TheLinesFollowTheRigsOwnTransmitLight) {
    Fitted w(RigFT817);
    w.c.s.ExtraPttPortPins = 1;
    w.c.f.lblTX.backColour = Red;
    FollowTxState(w.c);
    EXPECT_TRUE(w.scriptedPort->rtsLine);
    EXPECT_TRUE(w.pttPort.rtsLine);
    w.c.f.lblTX.backColour = White;
    FollowTxState(w.c);
    EXPECT_FALSE(w.scriptedPort->rtsLine);
    EXPECT_FALSE(w.pttPort.rtsLine);
}

TEST(LineMenus, TheRtsItemsExcludeEachOtherAndAreSaved) {
    Fitted w(RigFT817);
    mnuRaiseRTS_Click(w.c);
    EXPECT_TRUE(w.c.f.mnuRaiseRTS.checked);
    EXPECT_TRUE(w.scriptedPort->rtsLine);
    mnuLinkRTS_Click(w.c);
    EXPECT_TRUE(w.c.f.mnuLinkRTS.checked);
    EXPECT_FALSE(w.c.f.mnuRaiseRTS.checked);
    EXPECT_EQ(w.stored("Settings", "RaiseRTS"), "N");
    EXPECT_EQ(w.stored("Settings", "LinkRTS"), "Y");
    mnuTXRXcontrolsRTS_Click(w.c);
    EXPECT_FALSE(w.c.f.mnuLinkRTS.checked);
    EXPECT_EQ(w.stored("Settings", "TXRXcontrolsRTS"), "Y");
    mnuTXRXcontrolsRTS_Click(w.c);  // off again: nothing else comes on
    EXPECT_FALSE(w.c.f.mnuTXRXcontrolsRTS.checked);
    EXPECT_FALSE(w.c.f.mnuRaiseRTS.checked);
    mnuRaiseDTR_Click(w.c);
    EXPECT_TRUE(w.scriptedPort->dtrLine);
    EXPECT_EQ(w.stored("Settings", "RaiseDTR"), "Y");
}

TEST(PollTick, KeysAndUnkeysTheSimulatedRig) {
    for (const QString& rig : {RigFT817, RigFT847, RigFT450, RigFT920, RigFT1000MP}) {
        Station st(rig);
        st.load();
        st.switchOn();
        st.c.f.chkTransmitEnable.value = 1;
        chkTransmitEnable_Click(st.c);
        tmrPollInterval_Timer(st.c);
        cmdTxRx_Click(st.c);
        EXPECT_FALSE(st.rig().state().ptt);
        tmrPollInterval_Timer(st.c);
        EXPECT_TRUE(st.rig().state().ptt) << rig.toStdString();
        EXPECT_EQ(st.c.f.lblTX.backColour, Red) << rig.toStdString();
        cmdTxRx_Click(st.c);
        tmrPollInterval_Timer(st.c);
        EXPECT_FALSE(st.rig().state().ptt) << rig.toStdString();
    }
}

}  // namespace
}  // namespace veldor::test
