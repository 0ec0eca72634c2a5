#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

#include "Platform/PlatformExport.h"

/// An absolute URL according to RFC 3986, or nil. A value; thread-safe like QString. It keeps its
/// exact text, including the case of scheme and host; two URLs are equal if their texts are.
/// Parsing is strict: text that the grammar does not allow, such as a space or a second port, and a
/// port above 65535 give a nil URL. Parsing takes O(n) for a text of any length. All parts of a nil
/// URL are empty.
class PLATFORM_EXPORT Url {
public:
    /// Creates a nil URL.
    Url() = default;
    /// Returns the URL with this text, or nil if it is not an absolute URL. Does not normalize:
    /// compare parts, not texts, if "HTTP" and "http" are to be equal. Text from outside of any
    /// length may be passed.
    static Url fromString(const QString &text);
    /// Returns the "file" URL of an absolute path, or nil if `path` is not absolute. The path may
    /// contain any characters; they are percent-encoded. path() returns it without slashes at its
    /// end.
    static Url fileURL(const QString &path);

    /// Returns `host` as a URL writes it: an IPv6 address in brackets, any other text unchanged.
    static QString hostInURL(const QString &host);

    /// Returns whether there is no URL.
    bool isNil() const { return m_text.isEmpty(); }
    /// Returns whether the scheme is exactly "file", in lower case.
    bool isFileURL() const;

    /// Returns the complete text, including a password. Never show or log it; use
    /// stringWithoutPassword() for that.
    QString absoluteString() const { return m_text; }
    /// Returns the text without the password.
    QString stringWithoutPassword() const;
    /// Returns the scheme as it is written, without the colon.
    QString scheme() const { return m_scheme; }
    /// Returns the user, percent-decoded: an empty text if there is nothing before the "@", a null
    /// text if there is no "@".
    QString user() const { return m_user; }
    /// Returns the host, percent-decoded, and without the brackets of an IP address; an empty text
    /// if there is none.
    QString host() const { return m_host; }
    /// Returns the port, or std::nullopt if the URL does not state one.
    std::optional<quint16> port() const { return m_port; }
    /// Returns the path, percent-decoded and without slashes at its end, except for the root "/";
    /// an empty text if there is none.
    QString path() const { return m_path; }

    /// Two nil URLs are equal.
    bool operator==(const Url &other) const { return m_text == other.m_text; }

private:
    bool parse(const QString &text);
    bool parseAuthority(QStringView authority);
    bool parseHostAndPort(QStringView text);
    bool parsePort(QStringView text);
    bool parsePath(QStringView text);

    QString m_text;
    QString m_scheme;
    QString m_user;
    QString m_host;
    std::optional<quint16> m_port;
    QString m_path;
};

Q_DECLARE_METATYPE(Url)
