// Rig sharing as the operator sets it: the stored keys at start, and the
// dialog's change at once.
#include "sharing/rig_sharing.h"
#include "link/catalogue.h"
#include "support/fakes.h"

#include <gtest/gtest.h>

namespace veldor::test {
namespace {

// A server that records what it was told; it fails on an address it is given to
// refuse.
class FakeRigServer : public RigServer {
  public:
    QString refused, address;
    int port = 0, stops = 0;
    bool on = false;
    bool listen(const QString& a, int p, QString* reason) override {
        if (a == refused) {
            *reason = "The address is not available";
            return on = false;
        }
        address = a;
        port = p;
        return on = true;
    }
    void stop() override {
        on = false;
        ++stops;
    }
    bool listening() const override { return on; }
    int clientCount() const override { return on ? 2 : 0; }
    void requestsServed() override {}
};

struct Sharing : Station {
    Sharing() : Station(RigFT817) { c.p.rigServer = &server; }
    // The dialog opened on the stored settings, with sharing ticked.
    FrmRigSharing& shareOn() {
        load();
        frmRigSharing_Load(c);
        c.frmRigSharing.chkRigctldEnabled.value = 1;
        return c.frmRigSharing;
    }
    FakeRigServer server;
};

// The stored keys take effect at start; an address that cannot be had is
// logged.
TEST(RigSharingSettings, StoredKeysTakeEffectAtStartAndShowInTheDialog) {
    Sharing st;
    st.setting("RigctldEnabled", "Y");
    st.setting("RigctldAddress", " 192.168.1.20 ");
    st.setting("RigctldPort", "4600");
    st.load();
    EXPECT_TRUE(StartRigSharing(st.c));
    EXPECT_TRUE(st.server.on);
    EXPECT_EQ(st.server.address, "192.168.1.20");
    EXPECT_EQ(st.server.port, 4600);
    st.server.refused = "10.9.9.9";
    st.c.s.RigctldAddress = "10.9.9.9";
    EXPECT_FALSE(StartRigSharing(st.c));
    EXPECT_TRUE(st.c.frmErrorList.txtErrors.text.contains(
        "Rig sharing could not listen on 10.9.9.9:4600: The address is not "
        "available"));
    // Off, on loopback and port 4532, until stored; the dialog shows the settings
    // in force and the server's state.
    Sharing off;
    off.load();
    EXPECT_TRUE(StartRigSharing(off.c));
    EXPECT_FALSE(off.server.on);
    EXPECT_EQ(off.server.stops, 1);
    Sharing fresh;
    fresh.setting("RigctldEnabled", "Y");
    fresh.load();
    StartRigSharing(fresh.c);
    frmRigSharing_Load(fresh.c);
    const FrmRigSharing& d = fresh.c.frmRigSharing;
    EXPECT_EQ(d.chkRigctldEnabled.value, 1);
    EXPECT_EQ(d.txtRigctldAddress.text, "127.0.0.1");
    EXPECT_EQ(d.txtRigctldPort.text, "4532");
    EXPECT_EQ(d.lblRigctldState.caption, "Listening on 127.0.0.1:4532, 2 clients");
}

// OK applies at once and saves; a loopback address asks nothing, any other
// address asks first.
TEST(RigSharingDialog, OkAppliesAtOnceAndSaves) {
    Sharing st;
    FrmRigSharing& d = st.shareOn();
    d.txtRigctldPort.text = " 4533 ";
    EXPECT_TRUE(frmRigSharing_cmdOK_Click(st.c));
    EXPECT_TRUE(st.server.on);
    EXPECT_EQ(st.server.port, 4533);
    EXPECT_EQ(st.stored("Settings", "RigctldEnabled"), "Y");
    EXPECT_EQ(st.stored("Settings", "RigctldPort"), "4533");
    EXPECT_EQ(st.stored("Settings", "RigctldAddress"), "127.0.0.1");
    EXPECT_TRUE(st.dialogs.messages.empty());
    d.txtRigctldAddress.text = "0.0.0.0";
    st.dialogs.answers.push_back(MsgResult::Yes);
    EXPECT_TRUE(frmRigSharing_cmdOK_Click(st.c));
    EXPECT_EQ(st.dialogs.messages.back().title, "Rig sharing");
    EXPECT_EQ(st.server.address, "0.0.0.0");
    EXPECT_EQ(st.stored("Settings", "RigctldAddress"), "0.0.0.0");
    d.chkRigctldEnabled.value = 0;
    EXPECT_TRUE(frmRigSharing_cmdOK_Click(st.c));
    EXPECT_FALSE(st.server.on);
    EXPECT_EQ(st.stored("Settings", "RigctldEnabled"), "N");
}

// Bad boxes, an address the server cannot have, and a no to sharing on the
// network are refused and change nothing.
TEST(RigSharingDialog, BadBoxesAreRefusedAndNothingChanges) {
    const std::tuple<const char*, const char*, const char*, MsgResult> cases[] = {
        {"0", "127.0.0.1", "Invalid number", MsgResult::Yes},
        {"65536", "127.0.0.1", "Invalid number", MsgResult::Yes},
        {"45x", "127.0.0.1", "Invalid number", MsgResult::Yes},
        {"", "127.0.0.1", "Invalid number", MsgResult::Yes},
        {"4532", "", "Invalid address", MsgResult::Yes},
        {"4532", "127.0.0.1 8", "Invalid address", MsgResult::Yes},
        {"4532", "10.9.9.9", "Rig sharing", MsgResult::Yes},  // the server cannot have it
        {"4532", "0.0.0.0", "Rig sharing", MsgResult::No}};
    for (const auto& [port, address, title, answer] : cases) {
        SCOPED_TRACE(std::string(port) + " " + address);
        Sharing st;
        st.server.refused = "10.9.9.9";
        st.dialogs.answers.push_back(answer);  // to sharing it on the network
        FrmRigSharing& d = st.shareOn();
        d.txtRigctldPort.text = port;
        d.txtRigctldAddress.text = address;
        EXPECT_FALSE(frmRigSharing_cmdOK_Click(st.c));
        ASSERT_FALSE(st.dialogs.messages.empty());
        EXPECT_EQ(st.dialogs.messages.back().title, title);
        EXPECT_FALSE(st.server.on);
        EXPECT_EQ(st.stored("Settings", "RigctldEnabled"), "<missing>");
        EXPECT_EQ(st.c.s.RigctldEnabled, "N");
    }
}

TEST(RigSharingDialog, LoopbackAddressesAskNothing) {
    for (const auto& [a, loopback] : {std::pair{"127.0.0.1", true},
                                      {"127.1.2.3", true},
                                      {"::1", true},
                                      {"LocalHost", true},
                                      {"0.0.0.0", false},
                                      {"192.168.1.2", false},
                                      {"::", false},
                                      {"10.127.0.1", false}})
        EXPECT_EQ(IsLoopbackAddress(a), loopback) << a;
}

}  // namespace
}  // namespace veldor::test
