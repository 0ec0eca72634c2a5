#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>
#include <QtNetwork/QLocalServer>
#include <functional>
#include <optional>

#include "Application/ShellCommand.h"
#include "Platform/Foundation/Expected.h"

class QLocalSocket;

/// The process that shows the windows of a profile, as other processes of the same user find it: a
/// local socket in the user's runtime folder, or in that of the profile if there is no runtime
/// folder that only the user can write, accessible only to the user. Must be used on the main
/// thread.
class RunningInstance : public QObject {
    Q_OBJECT
public:
    /// The profile is in the folder `profile`, which must exist; symbolic links are resolved, so
    /// that each path of a profile finds the same process. Does not listen yet.
    explicit RunningInstance(const QString &profile, QObject *parent = nullptr);

    /// Listens for other starts until this object is destroyed. Must be called once. The process
    /// must hold the lock of the profile, since a socket left by another process is removed.
    /// If it fails, later starts cannot raise these windows; the error is not critical.
    Expected<void> listen();

    /// Asks the process that shows the windows of the profile in the folder `profile` to raise
    /// them. Returns whether it has confirmed; false if there is no such process, also while one is
    /// starting and does not listen yet. Blocks until then, for at most 3 seconds (one each for two
    /// connections and the confirmation).
    static bool raise(const QString &profile);
    /// Asks the process that shows the windows of the profile in the folder `profile` to carry out
    /// `command`. Returns the result; empty if there is no such process. If it ends meanwhile, or
    /// has another version that does not know the command, the result says so. Blocks until the
    /// command has ended, or `deadline` has expired: the result is then empty, too, if there was no
    /// connection yet, and ShellResult::TimedOut otherwise.
    static std::optional<ShellResult> ask(const QString &profile, const ShellCommand &command,
                                          const QDeadlineTimer &deadline);

    using Reply = std::function<void(const ShellResult &result)>;

Q_SIGNALS:
    /// Emitted from the event loop when another process has called raise(), once for each call. The
    /// call is confirmed in any case. The desktop may still refuse to raise a window.
    void raiseRequested();
    /// Emitted from the event loop when another process has called ask(). `reply` is to be called
    /// once with the result, which is dropped if that process has ended meanwhile.
    void commandRequested(const ShellCommand &command, const RunningInstance::Reply &reply);

private:
    /// Accepts the connections that have arrived.
    void accept();
    /// Responds to the request once it is complete. Closes the connection if it is too long.
    void read(QLocalSocket *socket);
    /// Returns what the user learns if one process does not understand the other.
    static QString otherVersion();

    /// The paths that the socket may have, the preferred one first.
    const QStringList m_paths;
    QLocalServer m_server;
};
