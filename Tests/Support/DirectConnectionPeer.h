#pragma once

#include <QtCore/QByteArrayList>
#include <future>
#include <memory>
#include <thread>

struct DirectConnectionIdentity;

/// A computer that responds to the first messages of a direct connection with given bytes, on a
/// thread of its own. It ends when the client has closed the connection.
class DirectConnectionPeer {
public:
    /// `step` is the number of bytes that are sent at a time, followed by a pause if it is 1. If
    /// `port` is 0, it listens on any.
    DirectConnectionPeer(const DirectConnectionIdentity &identity, const QByteArrayList &responses,
                         qsizetype step, quint16 port = 0);
    /// Returns one that never completes its response within the deadline of an exchange, although
    /// it always sends something.
    static std::unique_ptr<DirectConnectionPeer> dripping(const DirectConnectionIdentity &identity);
    ~DirectConnectionPeer();
    DirectConnectionPeer(const DirectConnectionPeer &) = delete;
    DirectConnectionPeer &operator=(const DirectConnectionPeer &) = delete;

    quint16 port() const { return m_port; }

private:
    static void serve(const DirectConnectionIdentity &identity, const QByteArrayList &responses,
                      qsizetype step, quint16 port, std::promise<quint16> promise);

    quint16 m_port = 0;
    std::thread m_thread;
};
