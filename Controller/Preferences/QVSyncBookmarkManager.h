#pragma once

#include <QtCore/QPointer>
#include <memory>

#include "Platform/Interface/TableView.h"
#include "Platform/Interface/WindowController.h"

class QVSyncBookmarkManagerDataSource;

/// The sheet in which the person sees which folders the host may reach, grants another, and
/// withdraws one. Every change takes effect at once. Main thread.
class QVSyncBookmarkManager : public WindowController {
    Q_OBJECT
    // Outlet
    Q_PROPERTY(TableView *tableView MEMBER m_tableView)
public:
    static std::unique_ptr<QVSyncBookmarkManager> bookmarkManager();

    QVSyncBookmarkManager();

    TableView *tableView() const { return m_tableView; }

    /// Returns when the sheet has closed. An absent window is a programming error.
    void runBookmarkManagerModalForWindow(QWidget *parentWindow);
    /// Grant access to the folder at `path`, and withdraw it.
    void addBookmarksObject(const QString &path);
    void removeBookmarksObject(const QString &path);

public Q_SLOTS:
    void acceptModalSheet(QObject *sender);
    /// Asks for a folder, or a file, to grant access to.
    void openPanelForBookmarkLocation(QObject *sender);
    /// To be sent only while a row is selected.
    void removeSelectedBookmarksObject(QObject *sender);

protected:
    void windowDidLoad() override;
    void leaveSheet() override;

private:
    /// The table's delegate.
    QVSyncBookmarkManagerDataSource *dataSource() const;

    QPointer<TableView> m_tableView;
};
