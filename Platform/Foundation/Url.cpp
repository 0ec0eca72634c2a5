#include "Platform/Foundation/Url.h"

#include <arpa/inet.h>

#include <algorithm>
#include <array>

#include "Platform/Foundation/PercentEscapes.h"

// Names of grammar rules are those of RFC 3986, appendix A. Every function here is O(n).

namespace {

bool isOneOf(QChar c, const char *characters) {
    return QLatin1StringView(characters).contains(c);
}

bool isAlpha(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool isHexDigit(QChar c) {
    return isDigit(c) || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

bool isUnreserved(QChar c) {
    return isAlpha(c) || isDigit(c) || isOneOf(c, "-._~");
}

/// Returns whether `text` consists of unreserved characters, sub-delims, percent escapes and
/// characters of `others`.
bool isEscapedText(QStringView text, const char *others) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'%') {
            if (i + 2 >= text.size() || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2])) {
                return false;
            }
            i += 2;
        } else if (!isUnreserved(c) && !isOneOf(c, PercentEscapes::SubDelimiters) &&
                   !isOneOf(c, others)) {
            return false;
        }
    }
    return true;
}

bool isScheme(QStringView text) {
    return !text.isEmpty() && isAlpha(text.front()) &&
           std::all_of(text.begin(), text.end(),
                       [](QChar c) { return isAlpha(c) || isDigit(c) || isOneOf(c, "+-."); });
}

bool isIPv6Address(QStringView text) {
    std::array<unsigned char, sizeof(in6_addr)> address{};
    // inet_pton would stop at a null character.
    return !text.contains(QChar::Null) &&
           inet_pton(AF_INET6, text.toLatin1().constData(), address.data()) == 1;
}

bool isIPvFuture(QStringView text) {
    const auto point = text.indexOf(u'.');
    if (point < 2 || point + 1 == text.size() || text.front().toLower() != u'v') {
        return false;
    }
    const QStringView version = text.first(point).sliced(1);
    const QStringView address = text.sliced(point + 1);
    return std::all_of(version.begin(), version.end(), isHexDigit) && !address.contains(u'%') &&
           isEscapedText(address, ":");
}

/// Truncates `text` before the first `separator` and returns what follows the separator, or a null
/// view if there is none.
QStringView cutAfter(QStringView &text, QChar separator) {
    const auto at = text.indexOf(separator);
    if (at < 0) {
        return {};
    }
    const QStringView rest = text.sliced(at + 1);
    text.truncate(at);
    return rest;
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
    return fromString(QLatin1StringView("file://") + PercentEscapes::encodingPath(path));
}

QString Url::hostInURL(const QString &host) {
    return isIPv6Address(host) ? u'[' + host + u']' : host;
}

bool Url::isFileURL() const {
    return m_scheme == QLatin1StringView("file");
}

QString Url::stringWithoutPassword() const {
    if (!QStringView(m_text).sliced(m_scheme.size()).startsWith(QLatin1StringView("://"))) {
        return m_text;
    }
    const qsizetype start = m_scheme.size() + 3;
    const auto end = std::find_if(m_text.begin() + start, m_text.end(),
                                  [](QChar c) { return c == u'/' || c == u'?' || c == u'#'; });
    const QStringView authority = QStringView(m_text).sliced(start, end - m_text.begin() - start);
    const qsizetype at = authority.lastIndexOf(u'@');
    const qsizetype colon = authority.indexOf(u':');
    return colon < 0 || colon > at ? m_text
                                   : m_text.left(start + colon) + m_text.sliced(start + at);
}

bool Url::parse(const QString &text) {
    QStringView rest = text;
    const QStringView fragment = cutAfter(rest, u'#');
    const QStringView query = cutAfter(rest, u'?');
    QStringView scheme = rest;
    const QStringView hierarchy = cutAfter(scheme, u':');
    if (hierarchy.isNull() || !isScheme(scheme) || !isEscapedText(query, ":@/?") ||
        !isEscapedText(fragment, ":@/?")) {
        return false;
    }
    m_text = text;
    m_scheme = scheme.toString();
    if (!hierarchy.startsWith(QLatin1StringView("//"))) {
        return parsePath(hierarchy);
    }
    const auto end = hierarchy.indexOf(u'/', 2);
    const QStringView authority = hierarchy.sliced(2, (end < 0 ? hierarchy.size() : end) - 2);
    return parseAuthority(authority) && parsePath(hierarchy.sliced(2 + authority.size()));
}

bool Url::parseAuthority(QStringView authority) {
    QStringView hostAndPort = authority;
    if (const auto at = authority.indexOf(u'@'); at >= 0) {
        QStringView user = authority.first(at);
        const QStringView password = cutAfter(user, u':');
        if (!isEscapedText(user, "") || !isEscapedText(password, ":")) {
            return false;
        }
        m_user = user.isEmpty() ? QLatin1StringView("") : PercentEscapes::decoding(user);
        hostAndPort = authority.sliced(at + 1);
    }
    return parseHostAndPort(hostAndPort);
}

bool Url::parseHostAndPort(QStringView text) {
    if (!text.startsWith(u'[')) {
        const QStringView port = cutAfter(text, u':');
        m_host = PercentEscapes::decoding(text);
        return isEscapedText(text, "") && parsePort(port);
    }
    QStringView address = text.sliced(1);
    const QStringView afterBracket = cutAfter(address, u']');
    if (!isIPv6Address(address) && !isIPvFuture(address)) {
        return false;
    }
    m_host = address.toString();
    if (afterBracket.isEmpty()) {
        return text.endsWith(u']');
    }
    return afterBracket.startsWith(u':') && parsePort(afterBracket.sliced(1));
}

bool Url::parsePort(QStringView text) {
    if (text.isEmpty()) {
        return true;
    }
    bool isInRange = false;
    m_port = text.toUShort(&isInRange);
    return isInRange && std::all_of(text.begin(), text.end(), isDigit);
}

bool Url::parsePath(QStringView text) {
    m_path = PercentEscapes::decoding(text);
    while (m_path.size() > 1 && m_path.endsWith(u'/')) {
        m_path.chop(1);
    }
    return isEscapedText(text, ":@/");
}
