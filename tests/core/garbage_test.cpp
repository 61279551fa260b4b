// Replies of any bytes from every rig while every control asks at once: the tick survives.
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "protocol/write_frequency.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

#include <random>

namespace veldor::test {
namespace {

class AnyReply : public ::testing::TestWithParam<const QString*> {};

// Every request of every control at once, tick after tick, against a rig that answers
// garbage: the tick never fails, and the program keeps running.
TEST_P(AnyReply, NeverBreaksAWrite) {
    ScriptedRig h(*GetParam());
    h.c.s.PollingDelay = 99;
    std::mt19937 random(4242);
    h.scriptedPort->answer = [&](const QByteArray&) {
        QByteArray reply;
        const int length = static_cast<int>(random() % 12);
        for (int i = 0; i < length; ++i) reply.append(static_cast<char>(random() % 256));
        if (*GetParam() == RigFT450) reply.replace('?', '!').append(';');
        return reply;
    };
    State& s = h.c.s;
    // Every request a control can raise, all at once.
    const auto raise = [](auto&... requests) { ((requests = true), ...); };
    for (int tick = 0; tick < 40; ++tick) {
        raise(s.PendingFT920Tuner, s.PendingFT920StartTune, s.PttOffPending, s.PttOnPending,
              s.PendingFT817AGC, s.PendingVfoSelect, s.PendingFT1000Filter82,
              s.PendingFT1000Filter455, s.PendingVfoToggle, s.PendingSplit, s.PendingProcessor,
              s.PendingFT450Tune, s.PendingFT450Tuner, s.PendingFT450Att, s.PendingFT450AGC,
              s.PendingFT450Ipo, s.PendingFT450SqlRf, s.PendingFT450VM, s.PendingNoiseBlanker,
              s.PendingFT450NR, s.PendingFT450Notch, s.PendingFT450NRLevel, s.PendingFT450AFGain,
              s.PendingFT450RFGain, s.PendingFT450NotchFreq, s.PendingFT450Filter,
              s.PendingFT450Contour, s.PendingFT450ContourFreq, s.PendingDNF, s.PendingDNR,
              s.PendingDBF, s.PendingLock, s.PendingFast, s.ShiftPending, s.ModeButtonPending,
              s.PendingVfoEqual, s.PendingVfoBOff, s.FrequencyChangePending);
        s.ModeButtonIndex = static_cast<int>(random() % 14) - 1;
        s.Ft1000Filter455Index = static_cast<int>(random() % 7) - 1;
        s.Ft450AgcIndex = static_cast<int>(random() % 6) - 1;
        s.TargetFrequency = static_cast<int32_t>(random() % 50000000);
        s.TargetMode = QString(ModeNames).split('|', Qt::SkipEmptyParts)[random() % 21];
        s.TargetShift = QString("0-+x")[static_cast<int>(random() % 4)];
        s.ToneCode = QString::number(random() % 39);
        s.ToneEncode = QString::number(random() % 2);
        s.ToneDecode = QString::number(random() % 2);
        s.VfoRequest = random() % 2 ? "A" : "B";
        h.c.f.txtVfoA.text = random() % 2 ? "14.250.00" : "";
        h.c.f.chkSplit.value = static_cast<int>(random() % 2);
        h.c.f.chkOnOff.value = 1;
        tmrPollInterval_Timer(h.c);
        ASSERT_TRUE(h.dialogs.messages.empty() ||
                    !h.dialogs.messages.back().text.startsWith("Error "))
            << h.dialogs.messages.back().text.toStdString();
        ASSERT_FALSE(s.SendBusy || s.ReceiveBusy);
    }
    // With the port closed nothing is written, and nothing fails.
    h.scriptedPort->close();
    h.scriptedPort->written.clear();
    int32_t frequency = 1425000;
    QString mode = "FM";
    s.ToneEncode = "1";
    s.LastToneState.clear();
    ASSERT_NO_THROW(SetFrequencyAndMode(h.c, frequency, mode));
    EXPECT_TRUE(h.scriptedPort->written.empty());
}

const QString* const kEveryRig[] = {&RigFT817,  &RigFT817ND,  &RigFT847,  &RigFT857,
                                    &RigFT857D, &RigFT897,    &RigFT897D, &RigFT450,
                                    &RigFT920,  &RigFT1000MP, &RigFRG100, &RigVR5000};

INSTANTIATE_TEST_SUITE_P(EveryRig, AnyReply, ::testing::ValuesIn(kEveryRig),
                         [](const auto& info) { return info.param->toStdString(); });

}  // namespace
}  // namespace veldor::test
