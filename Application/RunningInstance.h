#pragma once

#include <QtCore/QObject>
#include <QtNetwork/QLocalServer>

/// The process that runs the windows of a profile, as other processes of the same user find it: a
/// local socket in the user's runtime folder, which only the user can use. Main thread only.
class RunningInstance : public QObject {
    Q_OBJECT
public:
    /// Listens for other starts. The process must hold the lock of the profile in the folder
    /// `profile`. Without a runtime folder it does nothing.
    explicit RunningInstance(const QString &profile, QObject *parent = nullptr);

    /// Asks the process that runs the windows of the profile in the folder `profile` to raise them.
    /// Returns whether it has confirmed; blocks for at most a second.
    static bool raise(const QString &profile);

Q_SIGNALS:
    /// Emitted when another process has called raise().
    void raiseRequested();

private:
    void answer();

    QLocalServer m_server;
};
