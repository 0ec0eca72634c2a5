#include "Engine/Plugin/BuiltInLocationKinds.h"

#include <QtCore/QFileInfo>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionPairings.h"
#include "Engine/DirectConnection/DirectConnectionStore.h"
#include "Engine/Foundation/Turns.h"
#include "Engine/Plugin/EngineContext.h"
#include "Engine/Stores/Dropbox/DropboxStore.h"
#include "Engine/Stores/Dropbox/DropboxTokens.h"
#include "Engine/Stores/Dropbox/DropboxUrl.h"
#include "Engine/Stores/Folder/FolderStore.h"
#include "Engine/Stores/Http/CertificateTrust.h"
#include "Engine/Stores/Http/HttpSessions.h"
#include "Engine/Stores/WebDAV/WebDAVPassword.h"
#include "Engine/Stores/WebDAV/WebDAVStore.h"
#include "Host/LocationSchemes.h"
#include "Host/QVSyncLocation.h"

namespace {

using Location = std::shared_ptr<QVSyncLocation>;
using Operations = std::shared_ptr<StoreOperations>;

EngineLocationKind folder(const Operations &operations,
                          const std::shared_ptr<const FolderGrants> &grants) {
    return {
        .schemes = {LocationSchemes::File},
        .type = "Local Sync Store",
        .iconName = QStringLiteral("folder-store"),
        .title = [](const Url &URL) { return QFileInfo(URL.path()).completeBaseName(); },
        .createStore =
            [operations, grants](const Location &location, const QString & /*identifier*/) {
                return std::make_shared<FolderStore>(location, operations, grants);
            },
    };
}

/// Returns the server and the name of the store on it, since a server may have several.
QString titleOfServerStore(const Url &URL) {
    const QString store = QFileInfo(URL.path()).completeBaseName();
    return store.isEmpty() ? URL.host() : QStringLiteral("%1 – %2").arg(URL.host(), store);
}

EngineLocationKind webDAV(const Operations &operations,
                          const std::shared_ptr<CertificateTrust> &trust,
                          const std::shared_ptr<HttpSessions> &sessions) {
    return {
        .schemes = {LocationSchemes::Http, LocationSchemes::Https},
        .type = "WebDAV",
        .iconName = QStringLiteral("webdav"),
        .title = &titleOfServerStore,
        .createStore =
            [operations, trust, sessions](const Location &location, const QString &identifier) {
                const QUrl URL = QUrl::fromEncoded(location->URL().absoluteString().toUtf8());
                return std::make_shared<WebDAVStore>(
                    location, operations, identifier, trust, HttpClient::Timeouts(),
                    sessions->session(identifier, URL.adjusted(QUrl::RemovePassword)));
            },
        .forgetInProfile = [trust](const QString &identifier) { return trust->forget(identifier); },
        .forgetServer = &WebDAVPassword::forgetConsent,
        .sharesSecrets = &WebDAVPassword::isShared,
        .forgetSecrets = &WebDAVPassword::forget,
    };
}

void forgetTokens(const SecretRemoval &removal) {
    const QString account = DropboxUrl::account(removal.URL);
    if (account.isEmpty()) {
        removal.finish({});
    } else {
        DropboxTokens::forget(account, removal.finish);
    }
}

EngineLocationKind dropbox(const Operations &operations, const std::shared_ptr<Turns> &turns) {
    return {
        .schemes = {LocationSchemes::Dropbox},
        .type = "Dropbox",
        .iconName = QStringLiteral("dropbox"),
        .title =
            [](const Url &URL) {
                return URL.user().isEmpty() ? URL.host() : URL.user() + u'@' + URL.host();
            },
        .createStore =
            [operations, turns](const Location &location, const QString & /*identifier*/) {
                // A server that keeps one account waiting does not delay another.
                Turn &turn = turns->turn(DropboxUrl::account(location->URL()).toLower());
                return std::make_shared<DropboxStore>(location, operations,
                                                      std::shared_ptr<Turn>(turns, &turn));
            },
        .sharesSecrets =
            [](const Url &URL, const Url &other) {
                return DropboxUrl::isSameAccount(DropboxUrl::account(URL),
                                                 DropboxUrl::account(other));
            },
        .forgetSecrets = &forgetTokens,
    };
}

EngineLocationKind directConnection(const Operations &operations,
                                    const std::shared_ptr<DirectConnectionPairings> &pairings) {
    return {
        .schemes = {DirectConnection::URLScheme},
        .type = "Direct Connection",
        .iconName = QStringLiteral("direct-connection"),
        .title = &Url::host,
        .createStore =
            [operations, pairings](const Location &location, const QString &identifier) {
                return std::make_shared<DirectConnectionStore>(location, operations, identifier,
                                                               pairings);
            },
        .forgetInProfile =
            [pairings](const QString &identifier) { return pairings->forget(identifier); },
        .forgetSecrets =
            [](const SecretRemoval &removal) {
                DirectConnectionPairings::forgetSecrets(removal.identifier, removal.finish);
            },
    };
}

}  // namespace

QList<EngineLocationKind> builtInLocationKinds(const EngineContext &context) {
    const Operations &operations = context.storeOperations;
    return {folder(operations, context.folderGrants),
            webDAV(operations, context.certificateTrust, context.httpSessions),
            dropbox(operations, context.dropboxRefreshTurns),
            directConnection(operations, context.pairings)};
}
