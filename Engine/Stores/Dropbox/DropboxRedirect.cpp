#include "Engine/Stores/Dropbox/DropboxRedirect.h"

#include <QtCore/QUrl>
#include <QtCore/QUrlQuery>

#include "Engine/Foundation/EngineError.h"
#include "Host/SyncStrings.h"

namespace {

/// Returns the value of the parameter of that name; null unless there is exactly one.
QString onlyValue(const QUrlQuery &query, const QString &name) {
    const QStringList values = query.allQueryItemValues(name, QUrl::FullyDecoded);
    return values.size() == 1 ? values.first() : QString();
}

}  // namespace

Error DropboxRedirect::notRequested() {
    return engineError(EngineErrorCode::AccessDenied,
                       localizedSyncString("Velmora has not requested this page. Close it, and "
                                           "connect to Dropbox again in Velmora."));
}

Expected<DropboxRedirect> DropboxRedirect::parse(const QByteArray &request) {
    const QByteArrayList line = request.left(request.indexOf("\r\n")).split(' ');
    const QUrl target = QUrl::fromEncoded(line.value(1));
    const bool isOurs =
        line.size() == 3 && line.first() == "GET" && target.isRelative() && target.path() == Path;
    return isOurs ? Expected<DropboxRedirect>(DropboxRedirect(target.query(QUrl::FullyEncoded)))
                  : failure(notRequested());
}

std::optional<Expected<QString>> DropboxRedirect::result(const QString &state) const {
    const QUrlQuery parameters(m_query);
    if (onlyValue(parameters, QStringLiteral("state")) != state) {
        return std::nullopt;
    }
    const QString code = onlyValue(parameters, QStringLiteral("code"));
    if (parameters.hasQueryItem(QStringLiteral("error"))) {
        return failure(engineError(
            EngineErrorCode::AccessDenied,
            localizedSyncString(
                "Access to Dropbox was denied in the web browser. Try again and allow it.")));
    }
    if (code.isEmpty()) {
        return failure(engineError(
            EngineErrorCode::StoreUnreachable,
            localizedSyncString("The web browser sent an invalid response. Sign in again.")));
    }
    return code;
}
