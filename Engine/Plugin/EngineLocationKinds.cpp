#include "Engine/Plugin/EngineLocationKinds.h"

#include <QtCore/QFileInfo>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionStore.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Plugin/EngineContext.h"
#include "Engine/Stores/Dropbox/DropboxStore.h"
#include "Engine/Stores/Folder/FolderStore.h"
#include "Engine/Stores/WebDAV/WebDAVStore.h"

namespace {

using Location = std::shared_ptr<EngineSyncLocation>;

LocationKind folder(const std::shared_ptr<const FolderGrants> &grants) {
    return {
        .schemes = {QStringLiteral("file")},
        .type = "Local Sync Store",
        .iconName = QStringLiteral("folder-store"),
        .title = [](const Url &URL) { return QFileInfo(URL.path()).completeBaseName(); },
        .createStore =
            [grants](const Location &location) {
                return std::make_shared<FolderStore>(location, grants);
            },
    };
}

LocationKind webDAV(const std::shared_ptr<CertificateTrust> &trust) {
    return {
        .schemes = {QStringLiteral("http"), QStringLiteral("https")},
        .type = "WebDAV",
        .iconName = QStringLiteral("webdav"),
        .title = &Url::host,
        .createStore =
            [trust](const Location &location) {
                return std::make_shared<WebDAVStore>(location, location->identifier(), trust);
            },
    };
}

LocationKind dropbox() {
    return {
        .schemes = {QStringLiteral("dropbox")},
        .type = "Dropbox",
        .iconName = QStringLiteral("dropbox"),
        .title =
            [](const Url &URL) {
                return URL.user().isEmpty() ? URL.host() : URL.user() + u'@' + URL.host();
            },
        .createStore =
            [](const Location &location) { return std::make_shared<DropboxStore>(location); },
    };
}

LocationKind directConnection(const std::shared_ptr<DirectConnectionPairings> &pairings) {
    return {
        .schemes = {DirectConnection::URLScheme},
        .type = "Direct Connection",
        .iconName = QStringLiteral("direct-connection"),
        .title = &Url::host,
        .createStore =
            [pairings](const Location &location) {
                return std::make_shared<DirectConnectionStore>(location, location->identifier(),
                                                               pairings);
            },
    };
}

}  // namespace

LocationKinds engineLocationKinds(const EngineContext &context) {
    return LocationKinds({folder(context.folderGrants), webDAV(context.certificateTrust), dropbox(),
                          directConnection(context.pairings)});
}
