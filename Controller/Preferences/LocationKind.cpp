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
#include "Host/SyncStrings.h"
#include "Platform/Interface/Nib.h"
#include "Platform/Interface/SheetWindow.h"
#include "ui_QVDirectConnectionLocationEditor.h"
#include "ui_QVDropboxLocationEditor.h"
#include "ui_QVFolderLocationEditor.h"
#include "ui_QVWebDAVLocationEditor.h"

namespace {

/// Registers a form under the name of its editor's class.
template <class Form, class Editor>
void registerForm() {
    Nib::registerUiForm<Form, SheetWindow>(QLatin1StringView(Editor::staticMetaObject.className()));
}

LocationKind folder() {
    return {
        .matches = [](const Url &URL) { return URL.isFileURL(); },
        .type = "Local Sync Store",
        .isCleanable = true,
        .makeEditor = &QVFolderLocationEditor::editorWithSyncLocation,
        .registerForm = &registerForm<Ui::QVFolderLocationEditor, QVFolderLocationEditor>,
        .menuEntries = {{"createFolderItem", QT_TRANSLATE_NOOP("Sync", "New Folder Store…"),
                         [](QVSyncPreferences &pane) { pane.createFolder(nullptr); }},
                        {"selectFolderItem", QT_TRANSLATE_NOOP("Sync", "Existing Folder Store…"),
                         [](QVSyncPreferences &pane) { pane.selectFolder(nullptr); }}},
        .offer = {{"folder", QT_TRANSLATE_NOOP("Sync", "In a folder that your computers share"),
                   [](QVSyncPreferences &pane, LocationAdding::Next next) {
                       if (next == LocationAdding::Next::DatabasesToImport) {
                           pane.selectFolder(nullptr);
                       } else {
                           pane.createFolder(nullptr);
                       }
                   }}}};
}

LocationKind webDAV() {
    return {.matches =
                [](const Url &URL) {
                    return URL.scheme() == LocationSchemes::Http ||
                           URL.scheme() == LocationSchemes::Https;
                },
            .type = "WebDAV",
            .isCleanable = true,
            .makeEditor = &QVWebDAVLocationEditor::editorWithSyncLocation,
            .registerForm = &registerForm<Ui::QVWebDAVLocationEditor, QVWebDAVLocationEditor>,
            .menuEntries = {{"addWebDAVItem", QT_TRANSLATE_NOOP("Sync", "WebDAV Server…")}},
            .offer = {{"webDAV", QT_TRANSLATE_NOOP("Sync", "On a WebDAV server")}}};
}

LocationKind directConnection() {
    return {
        .matches =
            [](const Url &URL) {
                const QString scheme = QVDirectConnectionServer::URLScheme();
                return !scheme.isNull() && URL.scheme() == scheme;
            },
        .type = "Direct Connection",
        .isCleanable = false,
        .makeEditor = &QVDirectConnectionLocationEditor::editorWithSyncLocation,
        .registerForm =
            &registerForm<Ui::QVDirectConnectionLocationEditor, QVDirectConnectionLocationEditor>,
        .menuEntries = {{"addDirectConnectionItem",
                         QT_TRANSLATE_NOOP("Sync", "Direct Connection…")}},
        .offer = {{"otherComputer", QT_TRANSLATE_NOOP("Sync", "On another computer")}}};
}

LocationKind dropbox() {
    return {.matches = [](const Url &URL) { return URL.scheme() == LocationSchemes::Dropbox; },
            .type = "Dropbox",
            .isCleanable = true,
            .makeEditor = &QVDropboxLocationEditor::editorWithSyncLocation,
            .registerForm = &registerForm<Ui::QVDropboxLocationEditor, QVDropboxLocationEditor>,
            .menuEntries = {{"addDropboxItem", QT_TRANSLATE_NOOP("Sync", "Dropbox Account…")}},
            .offer = std::nullopt};
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

QList<LocationOffer> LocationKind::offers() {
    QList<LocationOffer> offers;
    for (const LocationKind &kind : all()) {
        if (kind.offer) {
            offers.append(
                {QLatin1StringView(kind.offer->name), localizedSyncString(kind.offer->place)});
        }
    }
    return offers;
}

const LocationKind *LocationKind::offeredAs(const QString &name) {
    const auto kind = std::find_if(all().begin(), all().end(), [&](const LocationKind &each) {
        return each.offer && QLatin1StringView(each.offer->name) == name;
    });
    return kind == all().end() ? nullptr : &*kind;
}

bool LocationKind::isCleanableType(const QString &localizedType) {
    return std::any_of(all().begin(), all().end(), [&](const LocationKind &kind) {
        return kind.isCleanable && localizedSyncString(kind.type) == localizedType;
    });
}
