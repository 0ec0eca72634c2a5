#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <optional>

#include "Support/TestAuthority.h"

/// Apache's WebDAV module on a port of this computer, with a private configuration. Accepts
/// requests when the constructor returns. Ends with the object or the process. Failures, including
/// a missing Apache, throw std::runtime_error with a sentence.
///
/// Serves the files of `folder()` below "/dav". With every kind of authentication,
/// "/dav/read-only" is read-only and "/dav/forbidden" is not accessible.
class WebDAVServer {
public:
    enum class Authentication { None, Basic, Digest };
    struct Options {
        Authentication authentication = Authentication::Basic;
        /// Uses TLS if set.
        std::optional<TestAuthority::Identity> identity = {};
        /// The folder of the files, created if it does not exist (default: a temporary folder).
        QString folder = {};
        /// The port (default: a free one).
        quint16 port = 0;
    };

    /// The only user.
    static inline const QString User = QStringLiteral("ida");
    static inline const QString Password = QStringLiteral("Öl & Wasser: 1 €");

    explicit WebDAVServer(Options options);
    ~WebDAVServer();
    WebDAVServer(const WebDAVServer &) = delete;
    WebDAVServer &operator=(const WebDAVServer &) = delete;

    quint16 port() const { return m_options.port; }
    QString folder() const { return m_options.folder; }
    /// Returns "SCHEME://USER@localhost:PORT/dav/PATH". `path` must be percent-encoded.
    QString URLText(const QString &path, const QString &user = User) const;

    /// Creates a file with the folders that contain it. `path` is relative to the folder.
    void putFile(const QString &path, const QByteArray &contents) const;

    /// Stores the user's password for this run, as the editor of a location does.
    void storePassword(const QString &password = Password) const;

    /// Ends the server, as a shutdown does. `start` starts it again on the same port.
    void stop();
    void start();

private:
    void writeConfiguration() const;
    QString configuration() const;
    QString authenticationConfiguration() const;
    bool isReady() const;

    Options m_options;
    QTemporaryDir m_ownFolder;
    QProcess m_process;
};
