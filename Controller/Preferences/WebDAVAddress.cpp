#include "Controller/Preferences/WebDAVAddress.h"

#include <QtCore/QUrl>
#include <algorithm>
#include <cstdlib>

#include "Host/LocationSchemes.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/PathComponents.h"
#include "Platform/Foundation/PercentEscapes.h"

namespace {

/// Both ' and ’ are included on purpose.
const QString EscapedInUser = QLatin1StringView(PercentEscapes::GeneralDelimiters) +
                              QLatin1StringView(PercentEscapes::SubDelimiters) + QChar(u'\u2019');

/// Returns the integer at the start of `text`, or 0 if there is none.
qint64 integerValue(const QString &text) {
    return std::strtoll(text.toUtf8().constData(), nullptr, 10);
}

quint16 portWithFields(const WebDAVAddress::Fields &fields) {
    const qint64 port = integerValue(fields.port);
    return port == 0 ? WebDAVAddress::defaultPort(fields.isHTTPS) : static_cast<quint16>(port);
}

bool isOneOf(const QString &scheme, const QStringList &schemes) {
    return schemes.contains(scheme, Qt::CaseInsensitive);
}

/// Returns whether `character` can be part of a server, with its port and path if the user has
/// entered these in the same field.
bool isOfServer(char32_t character) {
    const QChar ascii(static_cast<char16_t>(character));
    return character < 0x80 &&
           (ascii.isLetterOrNumber() || QLatin1StringView("-._~:[]%/").contains(ascii) ||
            QLatin1StringView(PercentEscapes::SubDelimiters).contains(ascii));
}

QString problemOfServer(const QString &server) {
    const QList<uint> characters = server.toUcs4();
    const auto found = std::find_if(characters.begin(), characters.end(),
                                    [](char32_t each) { return !isOfServer(each); });
    if (found == characters.end()) {
        return localizedSyncString(
                   "“%1” is not a valid server name. Enter a name such as “dav.example.org”.")
            .arg(server);
    }
    const char32_t character = *found;
    if (QChar::isSpace(character)) {
        return localizedSyncString("A server name contains no blanks. Remove the blank from “%1”.")
            .arg(server);
    }
    const QString ascii = QString::fromLatin1(QUrl::toAce(server));
    const QString problem = localizedSyncString("A server name cannot contain “%1”.")
                                .arg(QString::fromUcs4(&character, 1));
    return ascii.isEmpty() || ascii == server
               ? problem
               : problem + u' ' + localizedSyncString("Enter “%1” instead.").arg(ascii);
}

bool isPort(const QString &text) {
    bool isNumber = false;
    const int port = text.toInt(&isNumber);
    return isNumber && port > 0 && port <= 0xffff;
}

/// Returns `URL` as text without the user, whose name ends at the first "@".
QString withoutUser(const Url &URL) {
    QString text = URL.absoluteString();
    const qsizetype authority = text.indexOf(QLatin1StringView("//")) + 2;
    return text.remove(authority, text.indexOf(u'@') + 1 - authority);
}

}  // namespace

quint16 WebDAVAddress::defaultPort(bool isHTTPS) {
    return isHTTPS ? LocationSchemes::HttpsPort : LocationSchemes::HttpPort;
}

QString WebDAVAddress::sanitizedHost(const QString &host) {
    QStringView rest = host;
    for (const QString &scheme : {LocationSchemes::Http, LocationSchemes::Https}) {
        const QString prefix = scheme + u':';
        if (host.startsWith(prefix)) {
            rest = rest.sliced(prefix.size());
        }
    }
    const auto isTrimmed = [](QChar c) { return c == u'/' || c == u':' || c == u'@'; };
    while (!rest.isEmpty() && isTrimmed(rest.front())) {
        rest = rest.sliced(1);
    }
    while (!rest.isEmpty() && isTrimmed(rest.back())) {
        rest.chop(1);
    }
    return rest.toString();
}

Url WebDAVAddress::URL(const Fields &fields) {
    const QString scheme = fields.isHTTPS ? LocationSchemes::Https : LocationSchemes::Http;
    const quint16 port = portWithFields(fields);
    // First, because sanitizing takes the colons at the ends of an address.
    QString hostPart = sanitizedHost(Url::hostInURL(fields.server));
    if (port != 0 && port != defaultPort(fields.isHTTPS)) {
        hostPart += QStringLiteral(":%1").arg(port);
    }
    const QString path = PercentEscapes::adding(fields.path);
    const QString store = PercentEscapes::adding(
        PathComponents::appendingExtension(fields.store, SyncStoreLayout::Extension));
    const QString fullPath = PathComponents::standardizingRelative(
        PathComponents::appending(PathComponents::appending(hostPart, path), store));
    const QString user = PercentEscapes::adding(fields.user, EscapedInUser);
    return Url::fromString(scheme + QLatin1StringView("://") + user + u'@' + fullPath);
}

WebDAVAddress::Fields WebDAVAddress::fields(const Url &URL) {
    Fields fields;
    fields.isHTTPS = URL.scheme() == LocationSchemes::Https;
    fields.server = URL.host();
    const quint16 port = URL.port().value_or(0);
    if (port != 0 && port != defaultPort(fields.isHTTPS)) {
        fields.port = QString::number(port);
    }
    fields.path = PathComponents::withoutLast(URL.path());
    if (fields.path.startsWith(u'/')) {
        fields.path.remove(0, 1);
    }
    fields.store = PathComponents::withoutExtension(PathComponents::last(URL.path()));
    return fields;
}

std::optional<WebDAVAddress::Complete> WebDAVAddress::complete(const QString &text) {
    const QString trimmed = text.trimmed();
    if (!trimmed.contains(QLatin1StringView("://"))) {
        return {};
    }
    const QUrl URL(trimmed);
    const QString host = URL.host(QUrl::EncodeUnicode);
    const bool isHTTPS = isOneOf(
        URL.scheme(), {LocationSchemes::Https, QStringLiteral("davs"), QStringLiteral("webdavs")});
    if (!URL.isValid() || host.isEmpty() ||
        (!isHTTPS && !isOneOf(URL.scheme(), {LocationSchemes::Http, QStringLiteral("dav"),
                                             QStringLiteral("webdav")}))) {
        return {};
    }
    Complete address{
        .fields = {.isHTTPS = isHTTPS, .server = host, .user = URL.userName(QUrl::FullyDecoded)},
        .password = URL.password(QUrl::FullyDecoded)};
    const int port = URL.port(0);
    if (port != 0 && port != defaultPort(isHTTPS)) {
        address.fields.port = QString::number(port);
    }
    QString path = URL.path(QUrl::FullyDecoded);
    while (path.endsWith(u'/')) {
        path.chop(1);
    }
    if (path.endsWith(u'.' + SyncStoreLayout::Extension)) {
        address.fields.store = PathComponents::withoutExtension(PathComponents::last(path));
        path = PathComponents::withoutLast(path);
    }
    while (path.startsWith(u'/')) {
        path.remove(0, 1);
    }
    address.fields.path = path;
    return address;
}

QString WebDAVAddress::problem(const Fields &fields) {
    if (complete(fields.server)) {
        return localizedSyncString(
            "The server field contains a complete address. Click “Fill In the Fields”.");
    }
    if (!fields.port.isEmpty() && !isPort(fields.port)) {
        return localizedSyncString(
            "The port is a number from 1 to 65535. Correct it or leave it empty.");
    }
    // The server is checked before the store is entered.
    Fields checked = fields;
    if (checked.store.isEmpty()) {
        checked.store = QStringLiteral("store");
    }
    const Url URL = WebDAVAddress::URL(checked);
    if (!fields.server.isEmpty() && (URL.isNil() || sanitizedHost(fields.server).isEmpty())) {
        return problemOfServer(fields.server);
    }
    if (fields.server.isEmpty() || fields.store.isEmpty()) {
        return localizedSyncString("Enter a server and a store name.");
    }
    return URL.path().endsWith(u'.' + SyncStoreLayout::Extension)
               ? QString()
               : localizedSyncString("The folder and the store name cannot contain “?”.");
}

QString WebDAVAddress::status(const Fields &fields) {
    const QString problem = WebDAVAddress::problem(fields);
    return problem.isEmpty()
               ? localizedSyncString("Address: %1").arg(withoutUser(WebDAVAddress::URL(fields)))
               : problem;
}
