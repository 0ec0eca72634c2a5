#include "Controller/Preferences/LocationKind.h"

#include <QtCore/QCoreApplication>
#include <algorithm>

#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"
#include "Controller/Preferences/QVDropboxLocationEditor.h"
#include "Controller/Preferences/QVFolderLocationEditor.h"
#include "Controller/Preferences/QVSyncPreferences.h"
#include "Controller/Preferences/QVWebDAVLocationEditor.h"
#include "Host/LocationSchemes.h"
#include "Host/QVDirectConnectionServer.h"

namespace {

template <class Editor>
std::shared_ptr<QVSyncLocationEditor> makeEditor(const std::shared_ptr<QVSyncLocation> &location) {
    return Editor::editorWithSyncLocation(location);
}

LocationKind folder() {
    return {
        .matches = [](const Url &URL) { return URL.isFileURL(); },
        .makeEditor = &makeEditor<QVFolderLocationEditor>,
        .menuEntries = {{"createFolderItem", QT_TRANSLATE_NOOP("Sync", "New Folder Store…"),
                         [](QVSyncPreferences &pane) { pane.createFolder(nullptr); }},
                        {"selectFolderItem", QT_TRANSLATE_NOOP("Sync", "Existing Folder Store…"),
                         [](QVSyncPreferences &pane) { pane.selectFolder(nullptr); }}}};
}

LocationKind webDAV() {
    return {.matches =
                [](const Url &URL) {
                    return URL.scheme() == LocationSchemes::Http ||
                           URL.scheme() == LocationSchemes::Https;
                },
            .makeEditor = &makeEditor<QVWebDAVLocationEditor>,
            .menuEntries = {{"addWebDAVItem", QT_TRANSLATE_NOOP("Sync", "WebDAV Server…"),
                             [](QVSyncPreferences &pane) { pane.addWebDAVLocation(nullptr); }}}};
}

LocationKind directConnection() {
    return {.matches =
                [](const Url &URL) {
                    const QString scheme = QVDirectConnectionServer::URLScheme();
                    return !scheme.isNull() && URL.scheme() == scheme;
                },
            .makeEditor = &makeEditor<QVDirectConnectionLocationEditor>,
            .menuEntries = {
                {"addDirectConnectionItem", QT_TRANSLATE_NOOP("Sync", "Direct Connection…"),
                 [](QVSyncPreferences &pane) { pane.addDirectConnectionLocation(nullptr); }}}};
}

LocationKind dropbox() {
    return {.matches = [](const Url &URL) { return URL.scheme() == LocationSchemes::Dropbox; },
            .makeEditor = &makeEditor<QVDropboxLocationEditor>,
            .menuEntries = {{"addDropboxItem", QT_TRANSLATE_NOOP("Sync", "Dropbox Account…"),
                             [](QVSyncPreferences &pane) { pane.addDropboxLocation(nullptr); }}}};
}

}  // namespace

const QList<LocationKind> &LocationKind::all() {
    static const QList<LocationKind> kinds = {folder(), webDAV(), directConnection(), dropbox()};
    return kinds;
}

const LocationKind *LocationKind::ofURL(const Url &URL) {
    const auto kind = std::find_if(all().begin(), all().end(),
                                   [&](const LocationKind &each) { return each.matches(URL); });
    return kind == all().end() ? nullptr : &*kind;
}
