#include "Engine/Plugin/EngineLocationKinds.h"

#include <QtCore/QFileInfo>

#include "Engine/DirectConnection/DirectConnection.h"
#include "Engine/DirectConnection/DirectConnectionStore.h"
#include "Engine/Locations/EngineSyncLocation.h"
#include "Engine/Stores/Dropbox/DropboxStore.h"
#include "Engine/Stores/Folder/FolderStore.h"
#include "Engine/Stores/WebDAV/WebDAVStore.h"

namespace {

using Location = std::shared_ptr<EngineSyncLocation>;

LocationKind folder() {
    return {
        .schemes = {QStringLiteral("file")},
        .type = "Local Sync Store",
        .iconName = QStringLiteral("folder-store"),
        .title = [](const Url &URL) { return QFileInfo(URL.path()).completeBaseName(); },
        .createStore =
            [](const Location &location) { return std::make_shared<FolderStore>(location); },
    };
}

LocationKind webDAV() {
    return {
        .schemes = {QStringLiteral("http"), QStringLiteral("https")},
        .type = "WebDAV",
        .iconName = QStringLiteral("webdav"),
        .title = &Url::host,
        .createStore =
            [](const Location &location) {
                return std::make_shared<WebDAVStore>(location, location->identifier());
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

LocationKind directConnection() {
    return {
        .schemes = {DirectConnection::URLScheme},
        .type = "Direct Connection",
        .iconName = QStringLiteral("direct-connection"),
        .title = &Url::host,
        .createStore =
            [](const Location &location) {
                return std::make_shared<DirectConnectionStore>(location, location->identifier());
            },
    };
}

}  // namespace

LocationKinds engineLocationKinds() {
    return LocationKinds({folder(), webDAV(), dropbox(), directConnection()});
}
