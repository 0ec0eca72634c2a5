#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <optional>

#include "Support/TestAuthority.h"

/// Apache's WebDAV module on a port of this computer, with a configuration of the test's own. Ready
/// when it was made; ends with the object, and with the process. What fails raises
/// std::runtime_error with a sentence, also where Apache is not installed.
///
/// Below "/dav" are `folder()`'s files. Whatever the authentication, "/dav/read-only" can only be
/// read, and "/dav/forbidden" not even that.
class WebDAVServer {
public:
    enum class Authentication { None, Basic, Digest };
    struct Options {
        Authentication authentication = Authentication::Basic;
        /// With TLS where there is one.
        std::optional<TestAuthority::Identity> identity = {};
        /// Where the files are; a folder of the server's own unless set. Made where it is not
        /// there.
        QString folder = {};
        /// A free one unless set.
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
    /// "SCHEME://USER@localhost:PORT/dav/PATH", `path` being percent-encoded already.
    QString URLText(const QString &path, const QString &user = User) const;

    /// Stores the user's password for this run, as the editor of a location does.
    void storePassword(const QString &password = Password) const;

    /// As when the computer goes down. `start` brings it back at the same port.
    void stop();
    void start();

private:
    void writeConfiguration() const;
    QString configuration() const;
    QString authenticationConfiguration() const;
    bool isReady();

    Options m_options;
    QTemporaryDir m_ownFolder;
    QProcess m_process;
};
