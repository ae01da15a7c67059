// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleInstanceChannel.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QLocalServer>
#include <QLocalSocket>
#include <utility>

namespace lorvane {

namespace {

constexpr int probeMs = 500;

} // namespace

SingleInstanceChannel::SingleInstanceChannel(QString name, QObject* parent)
    : QObject(parent), m_name(std::move(name))
{
}

SingleInstanceChannel::~SingleInstanceChannel() = default;

QString SingleInstanceChannel::defaultName(const QString& systemFolder)
{
    QString user = qEnvironmentVariable("USER");
    if (user.isEmpty())
        user = qEnvironmentVariable("USERNAME");
    const QByteArray folder =
        QCryptographicHash::hash(systemFolder.toUtf8(), QCryptographicHash::Sha1).toHex().left(12);
    return QStringLiteral("lorvane-requests-") + user + u'-' + QString::fromLatin1(folder);
}

SingleInstanceChannel::Delivery SingleInstanceChannel::send(const QString& name,
                                                            const QString& command, int timeoutMs)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(timeoutMs))
        return Delivery::NoCopy;
    QDataStream out(&socket);
    out << command;
    if (!socket.waitForBytesWritten(timeoutMs) || !socket.waitForReadyRead(timeoutMs))
        return Delivery::NoAnswer;
    QDataStream in(&socket);
    bool accepted = false;
    in >> accepted;
    socket.disconnectFromServer();
    if (in.status() != QDataStream::Ok)
        return Delivery::NoAnswer;
    return accepted ? Delivery::Accepted : Delivery::Refused;
}

bool SingleInstanceChannel::listen()
{
    if (m_server)
        return true;
    // Any copy that takes the connection counts, even one too busy to answer right now.
    QLocalSocket probe;
    probe.connectToServer(m_name);
    if (probe.waitForConnected(probeMs)) {
        probe.abort();
        return false;
    }
    auto* server = new QLocalServer(this);
    server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!server->listen(m_name)) {
        // Nobody took the connection: the socket file is a crashed copy's leftover.
        QLocalServer::removeServer(m_name);
        if (!server->listen(m_name)) {
            delete server;
            return false;
        }
    }
    m_server = server;
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstanceChannel::takeConnections);
    return true;
}

void SingleInstanceChannel::takeConnections()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { readCommand(socket); });
        readCommand(socket);
    }
}

void SingleInstanceChannel::readCommand(QLocalSocket* socket)
{
    QDataStream in(socket);
    in.startTransaction();
    QString command;
    in >> command;
    // The rest of a command still on its way comes with the next readyRead.
    if (!in.commitTransaction())
        return;
    bool accepted = false;
    if (!command.isEmpty())
        emit commandReceived(command, accepted);
    QDataStream out(socket);
    out << accepted;
    socket->flush();
}

} // namespace lorvane
