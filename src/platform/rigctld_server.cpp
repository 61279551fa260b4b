#include "platform/rigctld_server.h"

#include <QHostAddress>
#include <QPointer>
#include <QTcpSocket>

namespace veldor {

RigctldServer::RigctldServer(Core& c) : c_(c) {
    connect(&server_, &QTcpServer::newConnection, this, &RigctldServer::accept);
    // A write waits for a tick; if the link stops meanwhile, this answers it.
    watch_.setInterval(200);
    connect(&watch_, &QTimer::timeout, this, &RigctldServer::checkWaiting);
}

RigctldServer::~RigctldServer() {
    stop();
}

bool RigctldServer::listen(const QString& address, int port, QString* reason) {
    stop();
    QHostAddress host;
    if (address.compare("localhost", Qt::CaseInsensitive) == 0)
        host = QHostAddress(QHostAddress::LocalHost);
    else if (!host.setAddress(address)) {
        *reason = "\"" + address + "\" is not an IP address";
        return false;
    }
    if (!server_.listen(host, static_cast<quint16>(port))) {
        *reason = server_.errorString();
        return false;
    }
    return true;
}

void RigctldServer::stop() {
    watch_.stop();
    server_.close();
    while (!clients_.empty()) leave(clients_.front().get());
}

void RigctldServer::accept() {
    while (QTcpSocket* socket = server_.nextPendingConnection()) {
        auto client = std::make_unique<Client>();
        client->socket = socket;
        // The system's own buffer for the replies is kept small, so that what a client leaves
        // unread waits here, where the limit on it is kept, and not in a buffer of megabytes.
        socket->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 64 * 1024);
        client->name = socket->peerAddress().toString() + ":" + QString::number(socket->peerPort());
        Client* raw = client.get();
        clients_.push_back(std::move(client));
        watch_.start();
        // In pieces: a client that sends thousands of reads at once is answered piece by
        // piece, and once it is let go for leaving its replies unread, the rest costs nothing.
        connect(socket, &QTcpSocket::readyRead, this, [this, raw] {
            while (!raw->dropped && raw->socket->bytesAvailable() > 0)
                send(*raw, RigctlReceive(c_, raw->session, raw->socket->read(4096)));
        });
        connect(socket, &QTcpSocket::disconnected, this, [this, raw] { leave(raw); });
        ReportMessage(c_, "Rig sharing: " + raw->name + " connected");
    }
}

void RigctldServer::send(Client& client, const QByteArray& bytes) {
    if (client.dropped) return;
    if (!bytes.isEmpty()) client.socket->write(bytes);
    // A client that sends and never reads would have its replies kept without end. It is let
    // go; queued, since the caller may be walking the list of clients.
    if (client.socket->bytesToWrite() > RigctlUnreadLimit) {
        client.dropped = true;
        ReportMessage(c_, "Rig sharing: " + client.name + " does not read its replies");
        const QPointer<QTcpSocket> socket = client.socket;
        QMetaObject::invokeMethod(
            this,
            [this, socket] {
                for (auto& c : clients_)
                    if (socket && c->socket == socket) return leave(c.get());
            },
            Qt::QueuedConnection);
        return;
    }
    // Goodbye once the reply is out; disconnectFromHost lets the written bytes go first. It
    // is queued, since it may tell of the leaving at once, and the client is then gone from
    // the list that a caller may be walking.
    if (client.session.closing && client.socket->state() == QAbstractSocket::ConnectedState)
        QMetaObject::invokeMethod(client.socket, &QAbstractSocket::disconnectFromHost,
                                  Qt::QueuedConnection);
}

void RigctldServer::leave(Client* client) {
    const auto it = std::find_if(clients_.begin(), clients_.end(),
                                 [client](const auto& c) { return c.get() == client; });
    if (it == clients_.end()) return;
    std::unique_ptr<Client> gone = std::move(*it);
    clients_.erase(it);
    // The watch is for clients' waiting writes: with no client the program sleeps.
    if (clients_.empty()) watch_.stop();
    gone->socket->disconnect(this);
    gone->socket->abort();
    gone->socket->deleteLater();
    ReportMessage(c_, "Rig sharing: " + gone->name + " left");
}

void RigctldServer::requestsServed() {
    for (auto& client : clients_) send(*client, RigctlRequestsServed(c_, client->session));
}

bool RigctldServer::writeWaiting() const {
    return std::any_of(clients_.begin(), clients_.end(), [this](const auto& client) {
        return RigctlWriteWaiting(c_, client->session);
    });
}

void RigctldServer::checkWaiting() {
    for (auto& client : clients_) send(*client, RigctlCheckWaiting(c_, client->session));
}

}  // namespace veldor
