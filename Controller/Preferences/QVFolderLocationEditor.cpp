#include "Controller/Preferences/QVFolderLocationEditor.h"

#include "Host/QVApplication.h"
#include "Host/QVSyncPlugin.h"
#include "Host/SyncStoreLayout.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Interface/PackagePanel.h"

namespace {

Expected<void> makePackage(const QString &path) {
    for (const QString &folder : SyncStoreLayout::foldersOfStore(path)) {
        if (Expected<void> made = FileManager::createDirectory(folder); !made) {
            return made;
        }
    }
    return {};
}

}  // namespace

QVFolderLocationEditor::QVFolderLocationEditor(const std::shared_ptr<QVSyncLocation> &location)
    : QVSyncLocationEditor(QStringLiteral("QVFolderLocationEditor"), location) {
    KeyValue::followDependencies(this);
}

std::shared_ptr<QVFolderLocationEditor> QVFolderLocationEditor::editorWithSyncLocation(
    const std::shared_ptr<QVSyncLocation> &location) {
    return std::shared_ptr<QVFolderLocationEditor>(new QVFolderLocationEditor(location));
}

void QVFolderLocationEditor::createFolderWithCompletionHandler(const CompletionHandler &handler) {
    PackagePanel panel(PackagePanel::Purpose::Save, SyncStoreLayout::Extension);
    if (panel.exec() != 1) {
        return;
    }
    const Url URL = panel.URL();
    if (const Expected<void> made = makePackage(URL.path())) {
        setPackage(URL);
    } else {
        NSApp()->presentError(made.error());
    }
    if (handler) {
        handler(1);
    }
}

void QVFolderLocationEditor::selectFolderWithCompletionHandler(const CompletionHandler &handler) {
    PackagePanel panel(PackagePanel::Purpose::Open, SyncStoreLayout::Extension);
    if (panel.exec() != 1) {
        return;
    }
    setPackage(panel.URL());
    if (handler) {
        handler(1);
    }
}

void QVFolderLocationEditor::createFolder(QObject * /*sender*/) {
    createFolderWithCompletionHandler({});
}

void QVFolderLocationEditor::selectFolder(QObject * /*sender*/) {
    selectFolderWithCompletionHandler({});
}

void QVFolderLocationEditor::setPackage(const Url &URL) {
    location()->setURL(URL);
    QVSyncPlugin::plugin()->bookmarkURL(location()->URL());
}
