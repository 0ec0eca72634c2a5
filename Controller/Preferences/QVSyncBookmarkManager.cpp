#include "Controller/Preferences/QVSyncBookmarkManager.h"

#include "Controller/Preferences/QVSyncBookmarkManagerDataSource.h"
#include "Host/SyncLog.h"
#include "Host/SyncStrings.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/OpenPanel.h"

QVSyncBookmarkManager::QVSyncBookmarkManager()
    : WindowController(QStringLiteral("QVBookmarkingWindow")) {}

std::unique_ptr<QVSyncBookmarkManager> QVSyncBookmarkManager::bookmarkManager() {
    return std::make_unique<QVSyncBookmarkManager>();
}

void QVSyncBookmarkManager::windowDidLoad() {
    m_tableView->reloadData();
    syncLog().verbose(QStringLiteral("Bookmark manager sucessfully initialized: window %1")
                          .arg(window()->windowTitle()));
}

void QVSyncBookmarkManager::runBookmarkManagerModalForWindow(QWidget *parentWindow) {
    requireParameter(parentWindow, "_parentWindow != nil",
                     "QVSyncBookmarkManager::runBookmarkManagerModalForWindow",
                     "Controller/Preferences/QVSyncBookmarkManager", 52);
    runModalSheet(parentWindow);
}

void QVSyncBookmarkManager::acceptModalSheet(QObject * /*sender*/) {
    stopModal(1);
}

void QVSyncBookmarkManager::leaveSheet() {
    acceptModalSheet(nullptr);
}

void QVSyncBookmarkManager::openPanelForBookmarkLocation(QObject * /*sender*/) {
    auto *panel = new OpenPanel(
        localizedSyncString("Give Velmora access to any folder where indexed items may be kept."),
        window());
    panel->setAttribute(Qt::WA_DeleteOnClose);
    connect(panel, &QDialog::accepted, this, [this, panel] { addChosen(panel->URL().path()); });
    panel->open();
}

void QVSyncBookmarkManager::addChosen(const QString &path) {
    addBookmarksObject(path);
    m_tableView->selectRow(dataSource()->rowOfPath(path));
}

void QVSyncBookmarkManager::addBookmarksObject(const QString &path) {
    syncLog().verbose(QStringLiteral("Adding object for path: %1").arg(path));
    dataSource()->tableViewAddBookmarksObject(m_tableView, path);
}

void QVSyncBookmarkManager::removeBookmarksObject(const QString &path) {
    syncLog().verbose(QStringLiteral("Received path: %1").arg(path));
    dataSource()->tableViewRemoveBookmarksObject(m_tableView, path);
}

void QVSyncBookmarkManager::removeSelectedBookmarksObject(QObject * /*sender*/) {
    const QVariantMap row = dataSource()->tableContents().value(m_tableView->selectedRow()).toMap();
    removeBookmarksObject(row.value(QStringLiteral("path")).toString());
}

QVSyncBookmarkManagerDataSource *QVSyncBookmarkManager::dataSource() const {
    return dynamic_cast<QVSyncBookmarkManagerDataSource *>(m_tableView->tableDelegate());
}
