#pragma once

#include <curl/curl.h>

#include <QtCore/QtGlobal>
#include <vector>

/// Opens and closes the sockets of libcurl, and counts what arrives at them: headers and bodies,
/// but also what libcurl and OpenSSL drop, such as the extensions of chunks, padding and records of
/// TLS without data. Used by one thread at a time. No function blocks.
class CountedSockets {
public:
    CountedSockets() = default;
    CountedSockets(const CountedSockets &) = delete;
    CountedSockets &operator=(const CountedSockets &) = delete;

    /// Returns a new socket for `address`; CURL_SOCKET_BAD if the system has none.
    curl_socket_t open(const curl_sockaddr &address);
    /// Closes `socket`, which open() has returned.
    void close(curl_socket_t socket);
    /// Returns the number of bytes that have arrived at all sockets until now. It never decreases.
    /// A system that does not count them (Linux before 4.1) gives 0.
    qint64 received() const;

private:
    static qint64 receivedAt(curl_socket_t socket);

    std::vector<curl_socket_t> m_open;
    qint64 m_receivedByClosed = 0;
};
