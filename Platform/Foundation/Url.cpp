#include "Platform/Foundation/Url.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QUrl>
#include <QtNetwork/QHostAddress>

// The grammar is RFC 3986, appendix A.
#define UNRESERVED "A-Za-z0-9\\-._~"
#define SUB_DELIMS "!$&'()*+,;="
#define ESCAPE "%[0-9A-Fa-f]{2}"
#define PCHAR "(?:[" UNRESERVED SUB_DELIMS ":@]|" ESCAPE ")"

namespace {

const QRegularExpression &urlGrammar() {
    static const QRegularExpression grammar(
        QStringLiteral("\\A(?<scheme>[A-Za-z][A-Za-z0-9+\\-.]*):"
                       "(?://(?<authority>[^/?#]*)(?<path>(?:/" PCHAR "*)*)"
                       "|(?<bare>/?(?:" PCHAR "+(?:/" PCHAR "*)*)?))"
                       "(?:\\?(?:" PCHAR "|[/?])*)?(?:#(?:" PCHAR "|[/?])*)?\\z"));
    return grammar;
}

const QRegularExpression &authorityGrammar() {
    static const QRegularExpression grammar(QStringLiteral(
        "\\A(?:(?<user>(?:[" UNRESERVED SUB_DELIMS "]|" ESCAPE
        ")*)(?<password>:(?:[" UNRESERVED SUB_DELIMS ":]|" ESCAPE
        ")*)?@)?(?:\\[(?<address>[0-9A-Fa-f:.]+)\\]|(?<name>(?:[" UNRESERVED SUB_DELIMS "]|" ESCAPE
        ")*))(?::(?<port>[0-9]*))?\\z"));
    return grammar;
}

QString decoded(QStringView text) {
    return QUrl::fromPercentEncoding(text.toUtf8());
}

}  // namespace

Url Url::fromString(const QString &text) {
    Url url;
    return url.parse(text) ? url : Url();
}

Url Url::fileURL(const QString &path) {
    if (!path.startsWith(u'/')) {
        return {};
    }
    return fromString(QLatin1StringView("file://") +
                      QString::fromLatin1(QUrl::toPercentEncoding(path, "/" SUB_DELIMS ":@")));
}

bool Url::isFileURL() const {
    return m_scheme == QLatin1StringView("file");
}

QString Url::stringWithoutPassword() const {
    const auto start = m_text.indexOf(QLatin1StringView("//"));
    const auto end = m_text.indexOf(u'/', start + 2);
    const auto at = start < 0 ? start : m_text.left(end).indexOf(u'@', start);
    const auto colon = at < 0 ? at : m_text.left(at).indexOf(u':', start);
    return colon < 0 ? m_text : m_text.left(colon) + m_text.mid(at);
}

bool Url::parse(const QString &text) {
    const QRegularExpressionMatch match = urlGrammar().match(text);
    if (!match.hasMatch() || !parseAuthority(match.captured(QStringLiteral("authority")))) {
        return false;
    }
    m_text = text;
    m_scheme = match.captured(QStringLiteral("scheme"));
    m_path =
        decoded(match.captured(QStringLiteral("path")) + match.captured(QStringLiteral("bare")));
    while (m_path.size() > 1 && m_path.endsWith(u'/')) {
        m_path.chop(1);
    }
    return true;
}

bool Url::parseAuthority(const QString &authority) {
    const QRegularExpressionMatch match = authorityGrammar().match(authority);
    if (!match.hasMatch()) {
        return false;
    }
    m_user = decoded(match.captured(QStringLiteral("user")));
    m_host = decoded(match.captured(QStringLiteral("name")));
    if (const QString address = match.captured(QStringLiteral("address")); !address.isEmpty()) {
        if (QHostAddress(address).protocol() != QHostAddress::IPv6Protocol) {
            return false;
        }
        m_host = address;
    }
    if (const QString port = match.captured(QStringLiteral("port")); !port.isEmpty()) {
        bool isInRange = false;
        m_port = port.toUShort(&isInRange);
        return isInRange;
    }
    return true;
}
