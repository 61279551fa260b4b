// A client's write that comes while the tick is reading the rig is carried out at once, not
// after the rest of the reading and a tick period.
#include "cycle/start_stop.h"
#include "link/catalogue.h"
#include "sharing/rigctl_session.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

class OneClient : public RigServer {
  public:
    explicit OneClient(Station& st) : st_(st) {}
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

TEST(ClientWrite, CutsTheReadingShortAndIsCarriedOutAtOnce) {
    // Into the tick: during the frequency read, during the S-meter pause.
    for (const uint32_t into : {1u, 50u}) {
        SCOPED_TRACE(into);
        Station st(RigFT817);
        st.load();
        st.switchOn();
        OneClient client(st);
        st.c.p.rigServer = &client;
        const uint32_t said = st.clock.now + into;
        st.pump.at(said,
                   [&] { EXPECT_EQ(RigctlReceive(st.c, client.session, "F 7074000\n"), ""); });
        tmrPollInterval_Timer(st.c);
        EXPECT_EQ(client.replies, "RPRT 0\n");
        EXPECT_EQ(st.rig().state().frequencyHz, 7074000);
        // Nothing of the reading went out between the write's coming and its answer: only the
        // write (the mode, the frequency, tone off and simplex) and the frequency read back.
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

}  // namespace
}  // namespace veldor::test
