// Frequency and mode writes: the nearest mode, the bytes of every rig, the
// order of tone and frequency, and the mode buttons.
#include "protocol/write_frequency.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// SetFrequencyAndMode with values, as the tick calls it with the tune target.
void Write(Wire& w, int32_t frequency, const QString& mode) {
    QString m = mode;
    SetFrequencyAndMode(w.c, frequency, m);
}

// A rig that acknowledges each binary command.
QByteArray Acks(const QString& rig) {
    return rig == RigFT450 ? QByteArray() : Bytes({0});
}

TEST(ModeForRig, GivesTheNearestModeOfEachRig) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"FT817", "WAM", "AM"},     {"FT817ND", "FMN", "FM"},   {"FT817", "PKTF", "PKT"},
        {"FT817", "DIG", "DIG"},    {"FT857", "FMN", "FMN"},    {"FT897D", "CWRN", "CWR"},
        {"FT847", "AMN", "AMN"},    {"FT847", "DIG", "LSB"},    {"FT847", "PKT", "FM"},
        {"FT450", "DIG", "RTYL"},   {"FT450", "PKTL", "RTYL"},  {"FT450", "USRL", "USRL"},
        {"FT920", "PKT", "PKTF"},   {"FT920", "AMS", "AM"},     {"FT920", "RTYU", "RTYU"},
        {"FT1000MP", "WFM", "WFM"}, {"FT1000MP", "AMS", "AMS"}, {"FT1000MP", "FMN", "FM"},
        {"FRG100", "CWR", "CW"},    {"FRG100", "CWN", "CWN"},   {"FRG100", "CWRN", "CW"},
        {"VR5000", "FM", "FMN"},    {"VR5000", "PKT", "FMN"},   {"VR5000", "WAM", "WAM"},
        {"VR5000", "RTYU", "USB"},  {"FT817", "AM", "AM"},      {"FT450", "", ""},
        {"FT817", "XYZ", "XYZ"},    {"Not set", "WAM", "WAM"},
    };
    for (const auto& [rig, mode, nearest] : cases) {
        Harness h;
        h.c.s.RigType = rig;
        EXPECT_EQ(ModeForRig(h.c, mode), nearest) << rig << " " << mode;
    }
}

// 14.250.00 in each rig's own form, on VFO A or B, with the mode already sent.
TEST(SetFrequencyAndMode, CodesTheFrequencyInEachRigsForm) {
    const std::tuple<const char*, bool, const char*> cases[] = {
        {"FT817", true, "01 42 50 00 01"},     {"FT847", true, "01 42 50 00 01"},
        {"FT920", true, "00 50 42 01 0a"},     {"FT920", false, "00 50 42 01 8a"},
        {"FT1000MP", false, "00 50 42 01 8a"}, {"FRG100", true, "00 50 42 01 0a"},
        {"VR5000", true, "00 15 be 68 01"},    {"VR5000", false, "00 15 be 68 31"},
        {"FT450", true, "FA14250000;"},        {"FT450", false, "FB14250000;"}};
    for (const auto& [rig, vfoA, sent] : cases) {
        Wire w(rig, Acks(rig));
        w.c.s.VfoAActive = vfoA;
        w.c.s.VfoLetter = vfoA ? "A" : "B";
        w.c.s.LastModeSent = "USB";
        Write(w, 1425000, "USB");
        EXPECT_EQ(w.sent(), sent) << rig << vfoA;
    }
}

// The mode goes only when it changes, and alone when the frequency is outside
// the rig. The FT-817 reads an acknowledgement after each command (a silent
// rig: each times out), the FT-847 none.
TEST(SetFrequencyAndMode, SendsTheModeOnlyWhenItChanges) {
    Wire w(RigFT817, Bytes({0}));
    Write(w, 1425000, "LSB");
    EXPECT_EQ(w.hex(), "00 00 00 00 07 01 42 50 00 01");
    EXPECT_EQ(w.c.s.LastModeSent, "LSB");
    EXPECT_EQ(w.c.f.txtMode.text, "LSB");
    w.clear();
    Write(w, 1425100, "LSB");
    EXPECT_EQ(w.hex(), "01 42 51 00 01");
    w.clear();
    Write(w, 99999999, "AM");
    EXPECT_EQ(w.hex(), "04 00 00 00 07");
    EXPECT_TRUE(w.c.s.FrequencyOutOfRange);
    EXPECT_EQ(w.c.s.CurrentFrequency, 700000);  // as it was
    Wire ft817(RigFT817);
    Write(ft817, 1425000, "CW");
    EXPECT_EQ(ft817.c.f.lblTimeoutCount.caption, "2");
    Wire ft847(RigFT847);
    Write(ft847, 1425000, "CW");
    EXPECT_EQ(ft847.hex(), "02 00 00 00 07 01 42 50 00 01");
    EXPECT_EQ(ft847.c.f.lblTimeoutCount.caption, "0");
    EXPECT_FALSE(ft847.c.s.ReplyTimedOut);
}

// The mode command of each rig; the FT-450's user LSB goes without its
// semicolon.
TEST(SetFrequencyAndMode, SendsEachRigsModeCode) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"FT817", "FMN", "08 00 00 00 07"},     {"FT857", "FMN", "88 00 00 00 07"},
        {"FT847", "CWN", "82 00 00 00 07"},     {"FT847", "DIG", "00 00 00 00 07"},
        {"FT897", "DIG", "0a 00 00 00 07"},     {"FT817", "PKT", "0c 00 00 00 07"},
        {"FT817", "DIG", "0a 00 00 00 07"},     {"FT1000MP", "AMS", "00 00 00 05 0c"},
        {"FT920", "AMS", "00 00 00 04 0c"},     {"FT920", "FMN", "00 00 00 07 0c"},
        {"FT920", "RTYU", "00 00 00 0a 0c"},    {"FRG100", "AMN", "00 00 00 05 0c"},
        {"FRG100", "CWR", "00 00 00 02 0c"},    {"FT1000MP", "WFM", "00 00 00 07 0c"},
        {"FT1000MP", "PKTL", "00 00 00 0a 0c"}, {"FT450", "USRL", "MD08FA14250000;"},
        {"FT450", "DIG", "MD06;FA14250000;"}};
    for (const auto& [rig, mode, sent] : cases) {
        Wire w(rig, Acks(rig));
        Write(w, 1425000, mode);
        EXPECT_TRUE(w.sent().startsWith(sent))
            << rig << " " << mode << ": " << w.sent().toStdString();
    }
}

TEST(Vr5000, SendsModeWithStepAndKeepsFrequencyAndMode) {
    Wire w(RigVR5000);
    w.c.s.StepWAM = 0x63;
    Write(w, 1425000, "WAM");
    EXPECT_EQ(w.hex(), "44 63 00 00 07 00 15 be 68 01");
    EXPECT_EQ(w.c.s.VR5000ModeMain, "a");
    EXPECT_EQ(w.c.s.VR5000FrequencyMain, 1425000);
    EXPECT_EQ(w.c.f.txtVfoA.text, "14.250.00");
    EXPECT_EQ(w.stored("Settings", "VR5000LastFreqMode"), "14.250a00");
    EXPECT_EQ(w.c.s.VR5000Step, 900);
    EXPECT_TRUE(w.c.f.frmVR5000AM.visible);
    EXPECT_FALSE(w.c.f.frmVR5000FMN.visible);
    // "FM" is the narrow FM of the receiver, on its sub receiver.
    w.clear();
    w.c.s.VfoAActive = false;
    Write(w, 14557500, "FM");
    EXPECT_EQ(w.hex(), "88 14 00 00 37 00 de 21 3c 31");
    EXPECT_EQ(w.c.s.VR5000ModeSub, "f");
    EXPECT_EQ(w.c.s.VR5000FrequencySub, 14557500);
    // Its mode buttons send the mode with the step and remember the channel.
    Wire v(RigVR5000);
    v.c.f.txtVfoA.text = "14.250.00";
    v.c.s.StepUSB = 0x02;
    v.c.s.ModeButtonIndex = 7;
    ApplyModeButton(v.c);
    EXPECT_EQ(v.hex(), "01 02 00 00 07");
    EXPECT_EQ(v.c.f.txtMode.text, "USB");
    EXPECT_EQ(v.c.s.VR5000Step, 10);
    EXPECT_EQ(v.stored("Settings", "VR5000LastFreqMode"), "14.250u00");
    // A member the receiver has no button for changes nothing.
    v.clear();
    v.c.s.ModeButtonIndex = 5;
    ApplyModeButton(v.c);
    EXPECT_TRUE(v.hex().isEmpty());
    EXPECT_EQ(v.c.s.LastModeSent, "USB");
}

// Tones: on before the frequency, off after it, and after it when the decoder
// was on; none from the rigs without tones.
TEST(SetFrequencyAndMode, SendsTonesInTheirOrderAroundTheFrequency) {
    const std::tuple<const char*, const char*, const char*, const char*, int32_t, const char*>
        cases[] = {
            {"FT817", "", "8", "10", 14550000, "08 85 00 00 0b 4a 85 00 00 0a 14 55 00 00 01"},
            {"FT817", "810", "0", "00", 14550000, "14 55 00 00 01 8a 00 00 00 0a"},
            // Tone 91.5 Hz is the FT-847's code 59 (3B); decoder only is mode 2A.
            {"FT847", "801", "9", "01", 14550000, "14 55 00 00 01 3b 00 00 00 0b 2a 00 00 00 0a"},
            {"FT1000MP", "", "8", "10", 2910000, "00 00 91 02 0a"},
            {"FRG100", "", "8", "10", 2910000, "00 00 91 02 0a"},
        };
    for (const auto& [rig, last, code, encodeDecode, frequency, sent] : cases) {
        Wire w(rig, Bytes({0}));
        w.c.s.LastModeSent = "FM";
        if (*last) w.c.s.LastToneState = last;
        w.c.s.ToneCode = code;
        w.c.s.ToneEncode = QString(encodeDecode[0]);
        w.c.s.ToneDecode = QString(encodeDecode[1]);
        Write(w, frequency, "FM");
        EXPECT_EQ(w.hex(), sent) << rig << " " << last;
    }
    Wire w(RigFT817, Bytes({0}));
    w.c.s.LastModeSent = "FM";
    w.c.s.ToneCode = "8";  // 88.5 Hz
    w.c.s.ToneEncode = "1";
    Write(w, 14550000, "FM");
    EXPECT_EQ(w.c.s.LastToneState, "810");
    EXPECT_EQ(w.c.f.lblEnc.backColour, Green);
    w.c.s.ToneEncode = "0";
    Write(w, 14550000, "FM");
    EXPECT_TRUE(w.c.s.ExtraDelayNeeded);
}

// Each rig's code for a button; a click while transmitting is lost.
TEST(ModeButtons, SendEachRigsCodeAndShowTheMode) {
    const std::tuple<const char*, int, const char*, const char*> cases[] = {
        {"FT847", 3, "08 00 00 00 07", "FM"},
        {"FT817", 6, "0a 00 00 00 07", "DIG"},
        {"FT857D", 8, "88 00 00 00 07", "FMN"},
        {"FT817", 8, "", "USB"},
        {"FRG100", 5, "00 00 00 03 0c", "CWN"},
        {"FT1000MP", 11, "00 00 00 05 0c", "AMS"},
        {"FT1000MP", 6, "", "USB"},
        {"FT920", 3, "00 00 00 03 0c", "CWR"},
        {"FT920", 6, "00 00 00 02 8c", "USB"},
        {"FT920", 10, "00 00 00 09 0c", "RTYL"},
        {"FT450", 7, "MD08;", "USRL"},  // with its semicolon here
    };
    for (const bool transmitting : {false, true})
        for (const auto& [rig, index, sent, mode] : cases) {
            SCOPED_TRACE(std::string(rig) + " " + std::to_string(index));
            Wire w(rig, Acks(rig));
            w.c.f.txtMode.text = "USB";
            w.c.s.Transmitting = transmitting;
            w.c.s.ModeButtonIndex = index;
            w.c.s.ModeButtonPending = true;
            ApplyModeButton(w.c);
            EXPECT_EQ(w.sent(), transmitting ? "" : sent);
            EXPECT_EQ(w.c.f.txtMode.text, transmitting ? "USB" : mode);
            if (!transmitting) {
                EXPECT_EQ(w.c.s.LastModeSent, mode);
            }
            EXPECT_FALSE(w.c.s.ModeButtonPending);
        }
}

// The FT-847's narrow button narrows the mode shown; there is no narrow USB.
TEST(ModeButtons, TheFt847NarrowButtonNarrowsTheModeShown) {
    const std::pair<const char*, const char*> cases[] = {{"CW", "82 00 00 00 07"},
                                                         {"CWRN", "83 00 00 00 07"},
                                                         {"AM", "84 00 00 00 07"},
                                                         {"FMN", "88 00 00 00 07"},
                                                         {"USB", ""}};
    for (const auto& [shown, sent] : cases) {
        Wire w(RigFT847);
        w.c.f.txtMode.text = shown;
        w.c.s.ModeButtonIndex = 6;
        ApplyModeButton(w.c);
        EXPECT_EQ(w.hex(), sent);
    }
}

TEST(ModeButtons, AClickSendsNothingUntilTheNextTickNorWhileSwitchedOff) {
    Harness off;
    Command2_Click(off.c, 2);
    EXPECT_FALSE(off.c.s.ModeButtonPending);
    OnAir st(RigFT857);
    Command2_Click(st.c, 8);
    Command2_Click(st.c, 8);
    EXPECT_TRUE(st.rigReceived().isEmpty());
    st.tick();
    EXPECT_EQ(st.rigReceived().toHex(' '), "88 00 00 00 07");
    EXPECT_EQ(st.rig().state().mode, "FMN");
    st.rig().clearTrace();
    st.tick();
    EXPECT_TRUE(st.rigReceived().isEmpty());
}

}  // namespace
}  // namespace veldor::test
