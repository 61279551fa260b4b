// Rig sharing on a TCP socket: Hamlib's network rig protocol for any number of clients,
// served on the user-interface thread between the ticks of the poll.
#pragma once

#include "link/core.h"
#include "sharing/rigctl_session.h"

#include <QObject>
#include <QTcpServer>
#include <QTimer>

#include <list>
#include <memory>

class QTcpSocket;

namespace veldor {

class RigctldServer : public QObject, public RigServer {
  public:
    explicit RigctldServer(Core& c);
    ~RigctldServer() override;

    bool listen(const QString& address, int port, QString* reason) override;
    void stop() override;
    bool listening() const override { return server_.isListening(); }
    int clientCount() const override { return static_cast<int>(clients_.size()); }
    // The port listened on; useful when 0 asked for any free one.
    int port() const { return server_.serverPort(); }

    void requestsServed() override;
    bool writeWaiting() const override;

  private:
    struct Client {
        QTcpSocket* socket;
        QString name;
        RigctlSession session;
        bool dropped = false;  // let go for not reading; leaves at the next event
    };
    void accept();
    void send(Client& client, const QByteArray& bytes);
    void leave(Client* client);
    void checkWaiting();

    Core& c_;
    QTcpServer server_;
    QTimer watch_;
    std::list<std::unique_ptr<Client>> clients_;
};

}  // namespace veldor
