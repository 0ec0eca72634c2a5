#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <optional>

#include "Support/TestAuthority.h"

/// A WebDAV server other than Apache, as users have them, on a port of this computer and with a
/// private configuration. Accepts requests when the constructor returns. Ends with the object.
/// Failures, including a missing program, throw std::runtime_error with a sentence.
class ForeignServer {
public:
    enum class Kind {
        /// nginx with its module dav-ext.
        Nginx,
        /// The same with TLS.
        NginxTLS,
        Lighttpd,
        /// lighttpd with the authentication scheme Digest.
        LighttpdDigest,
        /// "rclone serve webdav" for a folder.
        Rclone,
        /// The same with TLS.
        RcloneTLS,
        /// The same for its backend "memory", which has buckets like an object store.
        RcloneMemory,
        /// The same for its backend "crypt", which encrypts names and contents.
        RcloneCrypt,
        /// SabreDAV, the base of common private clouds, with the authentication scheme Digest.
        SabreDAV
    };

    explicit ForeignServer(Kind kind);
    ~ForeignServer();
    ForeignServer(const ForeignServer &) = delete;
    ForeignServer &operator=(const ForeignServer &) = delete;

    /// Returns the address of `path`, which must be percent-encoded, with the only user.
    QString URLText(const QString &path) const;

private:
    /// Write the configuration, and return the command that starts the server.
    QStringList nginx();
    QStringList lighttpd();
    QStringList rclone() const;
    QStringList sabreDAV();
    QStringList command();
    TestAuthority::Identity newIdentity() const;
    void writePasswords() const;
    void write(const QString &name, const QString &text) const;
    QString path(const QString &name) const { return m_folder.filePath(name); }
    bool isListening() const;
    void storePassword() const;

    const Kind m_kind;
    const quint16 m_port;
    QTemporaryDir m_folder;
    /// Of the server with TLS; trusted while this object exists.
    std::optional<TestAuthority> m_authority;
    std::optional<TrustedAuthority> m_trust;
    QProcess m_process;
};
