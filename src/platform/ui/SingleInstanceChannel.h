// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

class QLocalServer;
class QLocalSocket;

namespace lorvane {

/// The request channel between copies of the program of one user: the first copy listens on
/// a local socket named after the user, a later copy hands it its command text and ends.
class SingleInstanceChannel : public QObject
{
    Q_OBJECT

public:
    /// A channel on the socket `name` (`defaultName` for the program).
    explicit SingleInstanceChannel(QString name, QObject* parent = nullptr);
    ~SingleInstanceChannel() override;

    /// The socket name of this user's copies of the installation in `systemFolder`: copies of
    /// two installations are two programs and do not talk.
    static QString defaultName(const QString& systemFolder);
    /// What became of a command sent to a running copy.
    enum class Delivery
    {
        NoCopy,   ///< no copy listens: the sender runs on its own
        Accepted, ///< the running copy took the command
        Refused,  ///< the running copy answered no (another command is pending or running)
        NoAnswer, ///< a copy took the connection but gave no answer in time
    };
    /// Sends `command` to the copy listening on `name` and waits for its answer.
    static Delivery send(const QString& name, const QString& command, int timeoutMs = 3000);
    /// Starts listening; false when another copy already listens (or the socket cannot be
    /// made). A name left behind by a crashed copy is taken over.
    bool listen();
    const QString& name() const { return m_name; }

signals:
    /// A command text arrived; `accepted` is the answer given back to the sender.
    void commandReceived(const QString& command, bool& accepted);

private:
    void takeConnections();
    void readCommand(QLocalSocket* socket);

    QString m_name;
    QLocalServer* m_server = nullptr;
};

} // namespace lorvane
