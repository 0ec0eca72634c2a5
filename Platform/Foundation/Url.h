#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <optional>

#include "Platform/PlatformExport.h"

/// An absolute URL as RFC 3986 has it, or nil. A value. It keeps its exact text, the case of scheme
/// and host included, and two are equal when their texts are. Parsing is strict: what the grammar
/// does not allow, a bare blank or a second port for example, gives a nil URL; so does a port above
/// 65535. A text of any length is parsed, in time proportional to it.
class PLATFORM_EXPORT Url {
public:
    /// nil
    Url() = default;
    /// nil where `text` does not parse; a scheme is required.
    static Url fromString(const QString &text);
    /// The "file" URL of an absolute path; nil for any other.
    static Url fileURL(const QString &path);

    bool isNil() const { return m_text.isEmpty(); }
    /// Whether the scheme is exactly "file".
    bool isFileURL() const;

    QString absoluteString() const { return m_text; }
    /// The text for others to read.
    QString stringWithoutPassword() const;
    QString scheme() const { return m_scheme; }
    /// Percent escapes decoded; empty where there is none before the "@", null where there is no
    /// "@".
    QString user() const { return m_user; }
    /// Percent escapes decoded; an IP address in brackets without them; empty where there is none.
    QString host() const { return m_host; }
    std::optional<quint16> port() const { return m_port; }
    /// Percent escapes decoded, without a "/" at the end (but for the root); empty where there is
    /// none.
    QString path() const { return m_path; }

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
