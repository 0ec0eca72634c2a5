#include "Engine/Plugin/BuiltInLocationKinds.h"

#include <QtCore/QFileInfo>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionStore.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Plugin/EngineContext.h"
#include "Engine/Stores/Dropbox/DropboxStore.h"
#include "Engine/Stores/Folder/FolderStore.h"
#include "Engine/Stores/WebDAV/WebDAVStore.h"
#include "Host/LocationSchemes.h"

namespace {

using Location = std::shared_ptr<EngineSyncLocation>;

EngineLocationKind folder(const std::shared_ptr<const FolderGrants> &grants) {
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

EngineLocationKind webDAV(const std::shared_ptr<CertificateTrust> &trust) {
    return {
        .schemes = {LocationSchemes::Http, LocationSchemes::Https},
        .type = "WebDAV",
        .iconName = QStringLiteral("webdav"),
        .title = &Url::host,
        .createStore =
            [trust](const Location &location) {
                return std::make_shared<WebDAVStore>(location, location->identifier(), trust);
            },
    };
}

EngineLocationKind dropbox() {
    return {
        .schemes = {LocationSchemes::Dropbox},
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

EngineLocationKind directConnection(const std::shared_ptr<DirectConnectionPairings> &pairings) {
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

EngineLocationKinds builtInLocationKinds(const EngineContext &context) {
    return EngineLocationKinds({folder(context.folderGrants), webDAV(context.certificateTrust),
                                dropbox(), directConnection(context.pairings)});
}
