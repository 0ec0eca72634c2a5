#include "Controller/Preferences/QVFolderLocationEditor.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include "Host/QVApplication.h"
#include "Host/QVSyncPlugin.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"
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

/// Returns the folder in which a panel begins.
QString firstFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

/// Returns a name for a new package that is free in `folder`.
QString freeName(const QString &folder) {
    const QString name = localizedSyncString("Notes");
    QString free = name;
    for (int number = 2; QFileInfo::exists(
             QStringLiteral("%1/%2.%3").arg(folder, free, SyncStoreLayout::Extension));
         ++number) {
        free = QStringLiteral("%1 %2").arg(name).arg(number);
    }
    return free + u'.' + SyncStoreLayout::Extension;
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
    const QString folder = firstFolder();
    panel.setDirectory(folder);
    panel.selectFile(freeName(folder));
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
    panel.setDirectory(firstFolder());
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
