#pragma once

#include <QtCore/QSocketNotifier>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>
#include <memory>
#include <vector>

struct _IceConn;
struct _IceListenObj;
struct _SmsConn;

/// The session manager of an X desktop, with one client at a time. Only one may exist at a time.
/// Works while the event loop runs. Failures throw std::runtime_error.
class SessionManager {
public:
    /// Listens for a client.
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager &) = delete;
    SessionManager &operator=(const SessionManager &) = delete;

    /// The value of SESSION_MANAGER.
    QString address() const { return m_address; }

    /// Announces the end of the session, and waits until the client has saved. Returns whether it
    /// has.
    bool askToSave();
    /// Ends the session, after askToSave().
    void end();

private:
    /// The handlers of the library, which get a SessionManager.
    struct Handlers;

    void accept(_IceListenObj *listener);
    void read(_IceConn *connection);
    /// Closes the connection with the client if there is one.
    void forgetClient();

    QString m_address;
    int m_listenerCount = 0;
    _IceListenObj **m_listeners = nullptr;
    std::vector<std::unique_ptr<QSocketNotifier>> m_notifiers;
    /// Null while there is no client.
    _SmsConn *m_client = nullptr;
    bool m_hasSaved = false;
};
