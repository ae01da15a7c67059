// SPDX-License-Identifier: GPL-3.0-or-later
#include "SingleInstanceChannel.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QLocalServer>
#include <QLocalSocket>
#include <utility>

namespace lorvane {

namespace {

constexpr int serverReadMs = 2000;

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

bool SingleInstanceChannel::send(const QString& name, const QString& command, int timeoutMs)
{
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(timeoutMs))
        return false;
    QDataStream out(&socket);
    out << command;
    if (!socket.waitForBytesWritten(timeoutMs))
        return false;
    // The answer says that a copy took the command; its refusal still counts as delivered.
    if (!socket.waitForReadyRead(timeoutMs))
        return false;
    socket.disconnectFromServer();
    return true;
}

bool SingleInstanceChannel::listen()
{
    if (m_server)
        return true;
    if (send(m_name, QString(), 500))
        return false;
    auto* server = new QLocalServer(this);
    server->setSocketOptions(QLocalServer::UserAccessOption);
    if (!server->listen(m_name)) {
        // Nobody answered: the socket file is a crashed copy's leftover.
        QLocalServer::removeServer(m_name);
        if (!server->listen(m_name)) {
            delete server;
            return false;
        }
    }
    m_server = server;
    connect(m_server, &QLocalServer::newConnection, this, &SingleInstanceChannel::readConnection);
    return true;
}

void SingleInstanceChannel::readConnection()
{
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        QDataStream in(socket);
        QString command;
        // A command is small; a sender that stalls is dropped without an answer.
        while (true) {
            in.startTransaction();
            in >> command;
            if (in.commitTransaction())
                break;
            if (!socket->waitForReadyRead(serverReadMs)) {
                socket->abort();
                command.clear();
                break;
            }
        }
        if (socket->state() != QLocalSocket::ConnectedState)
            continue;
        bool accepted = false;
        if (!command.isEmpty())
            emit commandReceived(command, accepted);
        QDataStream out(socket);
        out << accepted;
        socket->flush();
    }
}

} // namespace lorvane
