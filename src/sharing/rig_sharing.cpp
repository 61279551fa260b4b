#include "sharing/rig_sharing.h"

namespace veldor {

namespace {

QString Where(const QString& address, int port) {
    // An IPv6 address is bracketed so that its port stands apart.
    const QString host = address.contains(':') ? "[" + address + "]" : address;
    return host + ":" + QString::number(port);
}

bool Listen(Core& c, const QString& address, int port, QString* reason) {
    RigServer* server = c.p.rigServer;
    if (!server) {
        *reason = "this program was built without it";
        return false;
    }
    return server->listen(address, port, reason);
}

}  // namespace

bool IsLoopbackAddress(const QString& address) {
    const QString a = address.trimmed().toLower();
    return a == "localhost" || a == "::1" || a.startsWith("127.");
}

bool StartRigSharing(Core& c) {
    const State& s = c.s;
    if (s.RigctldEnabled != "Y") {
        if (c.p.rigServer) c.p.rigServer->stop();
        return true;
    }
    QString reason;
    if (Listen(c, s.RigctldAddress, s.RigctldPort, &reason)) return true;
    ReportMessage(c, "Rig sharing could not listen on " + Where(s.RigctldAddress, s.RigctldPort) +
                         ": " + reason);
    return false;
}

void frmRigSharing_Load(Core& c) {
    FrmRigSharing& d = c.frmRigSharing;
    const State& s = c.s;
    d.chkRigctldEnabled.value = s.RigctldEnabled == "Y" ? 1 : 0;
    d.txtRigctldAddress.text = s.RigctldAddress;
    d.txtRigctldPort.text = QString::number(s.RigctldPort);
    const RigServer* server = c.p.rigServer;
    if (server && server->listening()) {
        const int clients = server->clientCount();
        d.lblRigctldState.caption = "Listening on " + Where(s.RigctldAddress, s.RigctldPort) +
                                    ", " + QString::number(clients) +
                                    (clients == 1 ? " client" : " clients");
    } else {
        d.lblRigctldState.caption = "Not sharing";
    }
}

bool frmRigSharing_cmdOK_Click(Core& c) {
    FrmRigSharing& d = c.frmRigSharing;
    State& s = c.s;
    Dialogs& dialogs = *c.p.dialogs;
    const QString portText = d.txtRigctldPort.text.trimmed();
    bool isNumber = false;
    const int port = portText.toInt(&isNumber);
    if (!isNumber || port < 1 || port > 65535) {
        dialogs.messageBox("The port must be a whole number from 1 to 65535 - please retry",
                           "Invalid number", MsgButtons::OK, MsgIcon::Exclamation);
        return false;
    }
    const QString address = d.txtRigctldAddress.text.trimmed();
    if (address.isEmpty() || address.contains(' ')) {
        dialogs.messageBox("Please enter the address to listen on, such as 127.0.0.1",
                           "Invalid address", MsgButtons::OK, MsgIcon::Exclamation);
        return false;
    }
    const bool enabled = d.chkRigctldEnabled.value == 1;
    if (enabled && !IsLoopbackAddress(address) &&
        dialogs.messageBox("Programs on other computers will be able to tune the rig and put "
                           "it on the air through " +
                               Where(address, port) + ". Share the rig on this address?",
                           "Rig sharing", MsgButtons::YesNo, MsgIcon::Question) != MsgResult::Yes)
        return false;

    if (enabled) {
        QString reason;
        if (!Listen(c, address, port, &reason)) {
            dialogs.messageBox(
                "VELDOR could not listen on " + Where(address, port) + "\r\n" + reason,
                "Rig sharing", MsgButtons::OK, MsgIcon::Exclamation);
            return false;
        }
    } else if (c.p.rigServer) {
        c.p.rigServer->stop();
    }
    s.RigctldEnabled = enabled ? "Y" : "N";
    s.RigctldAddress = address;
    s.RigctldPort = port;
    SaveSetting(c, s.AppName, "Settings", "RigctldEnabled", s.RigctldEnabled);
    SaveSetting(c, s.AppName, "Settings", "RigctldAddress", s.RigctldAddress);
    SaveSetting(c, s.AppName, "Settings", "RigctldPort", QString::number(s.RigctldPort));
    return true;
}

}  // namespace veldor
