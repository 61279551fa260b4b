// Rig sharing: a client's lines in, Hamlib's replies out, on virtual time and the simulated
// rig. Reads must cost the rig nothing; writes go through the tick and are answered after it.
#include "sharing/rigctl_session.h"
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "sharing/hamlib_terms.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A connected station with one client of rig sharing.
struct Shared : OnAir {
    explicit Shared(const QString& rig) : OnAir(rig) {}
    QByteArray say(const QByteArray& lines) { return RigctlReceive(c, session, lines); }
    QByteArray afterTick() {
        tick();
        return RigctlRequestsServed(c, session);
    }
    QString received() { return QString::fromLatin1(rigReceived().toHex(' ')); }
    RigctlSession session;
};

TEST(RigctlReads, AreAnsweredFromTheKeptStateWithoutAByteToTheRig) {
    Shared st(RigFT817);
    st.rig().clearTrace();
    EXPECT_EQ(st.say("\\chk_vfo\nv\nf\ns\nm\n\\get_powerstat\nt\n\\get_lock_mode\n"),
              "0\nVFOA\n14250000\n0\nVFOA\nUSB\n2400\n1\n0\n0\n");
    EXPECT_TRUE(st.rigReceived().isEmpty());
}

TEST(RigctlReads, GiveEachModeInHamlibsWords) {
    struct Case {
        const char* shown;
        const char* reply;
    };
    const Case cases[] = {
        {"DIG", "PKTUSB\n2400\n"}, {"PKT", "PKTFM\n12000\n"},  {"RTYL", "RTTY\n500\n"},
        {"RTYU", "RTTYR\n500\n"},  {"USRL", "PKTLSB\n2400\n"}, {"FMN", "FM\n6000\n"},
        {"CWN", "CW\n250\n"},      {"WFM", "WFM\n230000\n"},   {"AMS", "AMS\n6000\n"},
        {"???", "RPRT -11\n"},     {"", "RPRT -11\n"},
    };
    Shared st(RigFT817);
    for (const Case& t : cases) {
        st.c.f.txtMode.text = t.shown;
        EXPECT_EQ(st.say("m\n"), t.reply) << t.shown;
    }
}

TEST(RigctlReads, StrengthFollowsTheScalePrintedOverTheMeter) {
    // "..1...3...5...7...9   20  40 60": S1 at 2, S9 at 18, +20 at 22, +40 at 26, +60 at 30.
    const std::pair<int, int> cases[] = {{0, -54}, {2, -48}, {18, 0}, {22, 20},
                                         {26, 40}, {30, 60}, {31, 65}};
    Shared st(RigFT857);
    for (const auto& [bar, db] : cases) {
        st.c.f.pbarSmeter.value = bar;
        EXPECT_EQ(st.say("l STRENGTH\n"), QByteArray::number(db) + "\n") << bar;
        EXPECT_EQ(st.say("l RAWSTR\n"), QByteArray::number(bar) + "\n");
    }
    EXPECT_EQ(st.say("l SWR\n"), "RPRT -11\n");
}

// A server that answers its one client when the tick says so, and notes when it first did.
class AnsweringServer : public RigServer {
  public:
    explicit AnsweringServer(Station& st) : st_(st) {}
    RigctlSession session;
    QByteArray replies;
    uint32_t answeredAt = 0;
    bool listen(const QString&, int, QString*) override { return true; }
    void stop() override {}
    bool listening() const override { return true; }
    int clientCount() const override { return 1; }
    void requestsServed() override {
        replies += RigctlRequestsServed(st_.c, session);
        if (!replies.isEmpty() && answeredAt == 0) answeredAt = st_.clock.now;
    }
    bool writeWaiting() const override { return RigctlWriteWaiting(st_.c, session); }

  private:
    Station& st_;
};

// A frequency goes out at the next tick, before its reading; one that comes during a reading
// cuts it short (after the command in progress, or at once in the S-meter pause) and the next
// tick follows at once. Either way the line behind it waits its turn and reads the new
// frequency.
TEST(RigctlWrites, AreCarriedOutBeforeAnyMoreOfAReadingAndAnsweredOnceReadBack) {
    // When the write comes: before the tick, during its frequency read, in its S-meter pause.
    for (const int into : {-1, 1, 50}) {
        SCOPED_TRACE(into);
        Station st(RigFT817);
        st.load();
        st.switchOn();
        AnsweringServer client(st);
        st.c.p.rigServer = &client;
        st.rig().clearTrace();
        const QByteArray lines = "F 7074000.000000\nf\n";
        const uint32_t said = st.clock.now + static_cast<uint32_t>(std::max(into, 0));
        if (into < 0) {
            EXPECT_EQ(RigctlReceive(st.c, client.session, lines), "");
            EXPECT_EQ(RigctlRequestsServed(st.c, client.session), "");  // no tick, no answer
        } else {
            st.pump.at(said, [&] { EXPECT_EQ(RigctlReceive(st.c, client.session, lines), ""); });
        }
        tmrPollInterval_Timer(st.c);
        EXPECT_EQ(client.replies, "RPRT 0\n7074000\n");
        EXPECT_EQ(st.rig().state().mode, "USB");  // the mode stays
        // Between the write's coming and its answer only the write went out (the mode shown,
        // as with any first change after the start, the frequency, tone off, simplex) and the
        // frequency read back: nothing of a reading.
        QByteArray opcodes;
        for (const sim::TraceEntry& e : st.rig().trace())
            if (e.dir == sim::Dir::HostToRig && e.atMs >= said && e.atMs < client.answeredAt)
                opcodes += e.bytes.right(1);
        EXPECT_EQ(opcodes.toHex(' '), "07 01 0a 09 03");
        // The tick that carried it out made its whole reading, which shows the new frequency.
        EXPECT_EQ(st.c.f.txtVfoA.text, "7.074.00");
        EXPECT_TRUE(st.c.p.tmrPollInterval->enabled());
    }
}

TEST(RigctlWrites, RoundToTheProgramsTenHertzAndTakeAnyNumberForm) {
    const std::pair<const char*, int64_t> cases[] = {
        {"F 14074004", 14074000},          {"F 14074006", 14074010},
        {"F 1.4074e7", 14074000},          {"F VFOA 3573000", 3573000},
        {"\\set_freq 10136000", 10136000}, {"set_freq 18100000", 18100000}};
    for (const auto& [line, hz] : cases) {
        Shared st(RigFT857);
        EXPECT_EQ(st.say(QByteArray(line) + "\n"), "");
        EXPECT_EQ(st.afterTick(), "RPRT 0\n") << line;
        EXPECT_EQ(st.rig().state().frequencyHz, hz) << line;
    }
}

TEST(RigctlWrites, AModeGoesToTheRigsNearestMode) {
    // The rig, the line, and the mode the rig reports after the change.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"FT817", "M LSB 0", "LSB"},
        {"FT817", "M PKTUSB 2400", "USB"},  // USER-U is USB on the FT-8 family
        {"FT817", "M CW 250", "CW"},        // no narrow command on the FT-817
        {"FT857", "M FM 6000", "FMN"},
        {"FT857", "M FM 15000", "FM"},
        {"FT857", "M PKTFM -1", "PKT"},
        {"FT857", "M RTTY 0", "LSB"},
        {"FT450", "M PKTUSB 0", "USRU"},
        {"FT450", "M RTTYR 0", "RTYU"},
        {"FT1000MP", "M PKTUSB 0", "USB"},  // no USER-U: the plain sideband
        {"FT1000MP", "M PKTLSB 0", "PKTL"},
        {"FT920", "M AM 0", "AM"},
        {"FRG100", "M WFM 0", "FM"},
    };
    for (const auto& [rig, line, shown] : cases) {
        SCOPED_TRACE(std::string(rig) + " " + line);
        Shared st(rig);
        EXPECT_EQ(st.say(QByteArray(line) + "\n"), "");
        EXPECT_EQ(st.afterTick(), "RPRT 0\n");
        EXPECT_EQ(st.c.f.txtMode.text, shown);
    }
}

struct Refusal {
    const char* rig;
    const char* line;
    int code;
    std::function<void(Shared&)> before;
};

TEST(RigctlWrites, AreRefusedWhereTheProgramRefusesAClick) {
    auto transmitting = [](Shared& st) { st.c.s.Transmitting = true; };
    // Held, so that the tick steps neither.
    auto scanning = [](Shared& st) { st.c.s.ScanRunning = st.c.s.ScanHold = true; };
    auto sweeping = [](Shared& st) {
        st.c.s.SpectrumRunning = st.c.s.SpectrumPaused = st.c.s.SpectrumMouseHeld = true;
    };
    auto off = [](Shared& st) { st.switchOff(); };
    auto enabled = [](Shared& st) { st.c.f.chkTransmitEnable.value = 1; };
    const Refusal cases[] = {
        {"FT817", "F 7074000", RigctlLinkDown, off},
        {"FT817", "M USB 0", RigctlLinkDown, off},
        {"FT817", "T 1", RigctlLinkDown, off},
        {"FT817", "S 1 VFOB", RigctlLinkDown, off},
        {"FT817", "F 7074000", RigctlRefused, transmitting},
        {"FT817", "M USB 0", RigctlRefused, scanning},
        {"FT817", "V VFOB", RigctlRefused, sweeping},
        {"FT817", "T 1", RigctlRefused, nullptr},  // "Transmit enable" unticked
        {"FT817", "T 9", RigctlInvalid, enabled},
        {"FT817", "T 1", RigctlRefused,
         [](Shared& st) {
             st.c.f.chkTransmitEnable.value = 1;
             st.c.s.ScanRunning = st.c.s.ScanHold = true;
         }},
        {"VR5000", "T 1", RigctlNotAvailable, enabled},
        {"FRG100", "T 1", RigctlNotAvailable, enabled},
        {"FT450", "S 1 VFOB", RigctlNotAvailable, nullptr},  // no split on the FT-450 here
        {"FT847", "V VFOB", RigctlNotAvailable, nullptr},
        {"FT1000MP", "V VFOB", RigctlNotAvailable, nullptr},  // its toggle cannot come back
        {"FT920", "V VFOB", RigctlNotAvailable, nullptr},
        {"FT817", "I 7074000", RigctlNotAvailable, nullptr},
        {"FT817", "\\set_powerstat 0", RigctlNotAvailable, nullptr},
    };
    // Lines a client may get wrong; 60 MHz lies between the FT-817's ranges.
    std::vector<Refusal> all(std::begin(cases), std::end(cases));
    for (const char* line :
         {"F 60000000", "F 0", "F -7074000", "F 1e30", "F seven", "F", "F 7074000 14074000",
          "M FOO 0", "M USB wide", "V VFOZ", "S 2 VFOB", "xyz", "\\get_everything", "+"})
        all.push_back({"FT817", line, RigctlInvalid, nullptr});
    for (const Refusal& t : all) {
        Shared st(t.rig);
        if (t.before) t.before(st);
        st.rig().clearTrace();
        EXPECT_EQ(st.say(QByteArray(t.line) + "\n"), "RPRT " + QByteArray::number(t.code) + "\n")
            << t.rig << " " << t.line;
        st.tick();
        EXPECT_TRUE(st.rigReceived().isEmpty()) << t.rig << " " << t.line;
    }
}

TEST(RigctlWrites, PttKeysAndUnkeysAsTheTxRxButtonDoes) {
    Shared st(RigFT857);
    st.c.f.chkTransmitEnable.value = 1;
    EXPECT_EQ(st.say("T 1\n"), "");
    EXPECT_EQ(st.c.f.cmdTxRx.caption, "TX/rx");  // the button shows it at once
    EXPECT_EQ(st.afterTick(), "RPRT 0\n");
    EXPECT_TRUE(st.rig().state().ptt);
    EXPECT_EQ(st.say("t\n"), "1\n");
    // Already on the air: nothing to do, and nothing goes to the rig.
    st.rig().clearTrace();
    EXPECT_EQ(st.say("T 1\n"), "RPRT 0\n");
    // A frequency change is refused while the rig transmits.
    EXPECT_EQ(st.say("F 7074000\n"), "RPRT -9\n");
    EXPECT_EQ(st.say("T 0\n"), "");
    EXPECT_EQ(st.afterTick(), "RPRT 0\n");
    EXPECT_FALSE(st.rig().state().ptt);
    EXPECT_EQ(st.say("t\n"), "0\n");
    // Keyed by the RTS line, it is answered at once.
    st.c.s.TXRXcontrolsRTS = "Y";
    EXPECT_EQ(st.say("T 1\nt\n"), "RPRT 0\n1\n");
    EXPECT_TRUE(st.c.p.MSComm1->rts());
    EXPECT_EQ(st.say("T 0\n"), "RPRT 0\n");
    EXPECT_FALSE(st.c.p.MSComm1->rts());
}

TEST(RigctlWrites, SplitAndVfoFollowTheirControls) {
    Shared st(RigFT817);
    EXPECT_EQ(st.say("S 1 VFOB\n"), "");
    EXPECT_EQ(st.afterTick(), "RPRT 0\n");
    EXPECT_TRUE(st.rig().state().split);
    EXPECT_EQ(st.c.f.chkSplit.value, 1);
    EXPECT_EQ(st.say("s\n"), "1\nVFOB\n");
    EXPECT_EQ(st.say("S 1 VFOB\n"), "RPRT 0\n");  // as it is: answered at once

    // The other VFO is answered once a reading has shown its frequency.
    Shared ft450(RigFT450);
    ft450.c.s.PollingDelay = 0;
    EXPECT_EQ(ft450.say("V VFOB\nf\n"), "");
    EXPECT_EQ(ft450.afterTick(), "");
    EXPECT_TRUE(ft450.rig().state().vfoB);
    EXPECT_EQ(ft450.afterTick(),
              "RPRT 0\n" + QByteArray::number(ft450.rig().state().frequencyHz) + "\n");
    EXPECT_EQ(ft450.rig().state().frequencyHz, 7050000);
    EXPECT_EQ(ft450.say("v\n"), "VFOB\n");
    EXPECT_EQ(ft450.say("V VFOB\n"), "RPRT 0\n");
}

// A client may choose the VFO at every connection: the rig's toggle goes out, never a write
// of the rig's memory.
TEST(RigctlWrites, AClientsVfoChoiceTogglesTheRigAndNeverWritesItsMemory) {
    for (const QString& rig : {RigFT817, RigFT857D, RigFT897}) {
        Shared st(rig);
        st.c.s.PollingDelay = 0;
        for (const char* vfo : {"VFOB", "VFOA"}) {
            st.rig().clearTrace();
            QByteArray replies = st.say(QByteArray("V ") + vfo + "\n");
            replies += st.afterTick();
            EXPECT_EQ(replies + st.afterTick(), "RPRT 0\n");
            EXPECT_EQ(st.rig().state().vfoB, vfo == QByteArray("VFOB")) << rig.toStdString();
            EXPECT_EQ(st.received().count("00 00 00 00 81"), 1) << rig.toStdString();
            EXPECT_FALSE(st.received().contains("bc")) << rig.toStdString();  // a memory write
        }
    }
}

TEST(RigctlWrites, AWriteTheTickCannotServeIsAnsweredWithItsError) {
    Shared st(RigFT817);
    EXPECT_EQ(st.say("F 7074000\nf\n"), "");
    EXPECT_EQ(RigctlCheckWaiting(st.c, st.session), "");
    st.switchOff();
    EXPECT_EQ(RigctlCheckWaiting(st.c, st.session), "RPRT -6\n14250000\n");

    Shared stalled(RigFT817);
    EXPECT_EQ(stalled.say("F 7074000\n"), "");
    stalled.clock.now += RigctlWriteLimitMs - 1;
    EXPECT_EQ(RigctlCheckWaiting(stalled.c, stalled.session), "");
    stalled.clock.now += 1;
    EXPECT_EQ(RigctlCheckWaiting(stalled.c, stalled.session), "RPRT -5\n");
}

TEST(RigctlProtocol, ExtendedRepliesLabelTheirValues) {
    Shared st(RigFT817);
    EXPECT_EQ(st.say("+f\n"), "get_freq:\nFrequency: 14250000\nRPRT 0\n");
    EXPECT_EQ(st.say(";m\n"), "get_mode:;Mode: USB;Passband: 2400;RPRT 0\n");
    EXPECT_EQ(st.say("|s\n"), "get_split_vfo:|Split: 0|TX VFO: VFOA|RPRT 0\n");
    EXPECT_EQ(st.say("+l STRENGTH\n"), "get_level: STRENGTH\n-54\nRPRT 0\n");
    EXPECT_EQ(st.say("+\\chk_vfo\n"), "ChkVFO: 0\n");
    EXPECT_EQ(st.say("+i\n"), "get_split_freq:\nRPRT -11\n");
    EXPECT_EQ(st.say("+F 7074000\n"), "");
    EXPECT_EQ(st.afterTick(), "set_freq: 7074000\nRPRT 0\n");
}

TEST(RigctlProtocol, LinesSplitAnywhereReadAsWhole) {
    const QByteArray lines = "f\r\nm\n\nF 7074000\nv\nq\nf\n";
    for (int cut = 1; cut < lines.size(); ++cut) {
        Shared st(RigFT817);
        QByteArray out = st.say(lines.left(cut));
        out += st.say(lines.mid(cut));
        out += st.afterTick();
        EXPECT_EQ(out, "14250000\nUSB\n2400\nRPRT 0\nVFOA\nRPRT 0\n") << cut;
        EXPECT_TRUE(st.session.closing);
    }
}

// Reads cost the rig nothing: a burst of them is answered, also behind a write. Writes that
// pile up behind a write are what a client is let go for.
TEST(RigctlProtocol, ABurstOfReadsIsAnsweredAndAFloodOfWritesIsLetGo) {
    Shared st(RigFT817);
    QByteArray reads;
    for (int i = 0; i < 1000; ++i) reads += "f\n";
    EXPECT_EQ(st.say(reads).count("14250000\n"), 1000);
    EXPECT_EQ(st.say("F 7074000\n" + reads), "");
    EXPECT_FALSE(st.session.closing);
    EXPECT_EQ(st.afterTick().count("\n"), 1001);
    QByteArray writes;
    for (int i = 0; i < RigctlQueueLimit + 2; ++i) writes += "F 7074000\n";
    EXPECT_EQ(st.say(writes), "");
    EXPECT_TRUE(st.session.closing);
    EXPECT_EQ(st.say("f\n"), "");
}

// Hamlib's own client reads a transmitter's description end to end; a receiver's has no
// transmit range, no PTT and one VFO.
TEST(RigctlDumpState, AReceiverHasNoTransmitRangeNorPtt) {
    Shared vr5000(RigVR5000);
    const QStringList rx = DumpState(vr5000.c).split('\n');
    const qsizetype end = rx.indexOf("0 0 0 0 0 0 0");
    ASSERT_GT(end, 3);
    EXPECT_EQ(rx[end + 1], "0 0 0 0 0 0 0");
    EXPECT_TRUE(rx[3].endsWith("0x1 0x0"));
    EXPECT_TRUE(rx.contains("ptt_type=0x0"));
    // No VFO choice offered: Hamlib's client would switch VFOs at every connection.
    EXPECT_TRUE(rx.contains("has_set_vfo=0"));
    EXPECT_EQ(rx[rx.size() - 2], "done");
}

}  // namespace
}  // namespace veldor::test
