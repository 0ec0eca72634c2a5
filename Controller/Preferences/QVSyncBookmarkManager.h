#pragma once

#include <QtCore/QPointer>
#include <memory>

#include "Platform/Interface/TableView.h"
#include "Platform/Interface/WindowController.h"

class QVSyncBookmarkManagerDataSource;

/// The sheet that lists the folders which the host may access, and in which the user grants access
/// to another folder or withdraws it. Each change takes effect immediately. Must be used on the
/// main thread.
class QVSyncBookmarkManager : public WindowController {
    Q_OBJECT
    /// Outlet. Null until the window is loaded; owned by the window.
    Q_PROPERTY(TableView *tableView MEMBER m_tableView)
public:
    /// Returns a new manager. Never null. Loads no window yet.
    static std::unique_ptr<QVSyncBookmarkManager> bookmarkManager();

    QVSyncBookmarkManager();

    TableView *tableView() const { return m_tableView; }

    /// Shows the sheet on the window of `parentWindow`, running a nested event loop, and returns
    /// when it has closed. Raises an AssertionFailure if `parentWindow` is null. Not reentrant; the
    /// manager must not be destroyed meanwhile.
    void runBookmarkManagerModalForWindow(QWidget *parentWindow);
    /// Grants access to the file or folder at `path`, an absolute path that must not be null, and
    /// shows it. The host saves the grant and presents an error of that; the row is shown until the
    /// sheet is opened again. Has no effect on a path that is listed. The window must be loaded.
    void addBookmarksObject(const QString &path);
    /// Withdraws the access to `path` and removes its row. Has no effect if there is none. Blocks
    /// for the time of a disk write, as adding does.
    void removeBookmarksObject(const QString &path);

public Q_SLOTS:
    /// Closes the sheet.
    void acceptModalSheet(QObject *sender);
    /// Opens a panel in which the user chooses a file or folder to grant access to. Returns at
    /// once; the panel is modal to the sheet and deletes itself.
    void openPanelForBookmarkLocation(QObject *sender);
    /// Withdraws the access shown in the selected row. Must be called only while a row is selected.
    void removeSelectedBookmarksObject(QObject *sender);

protected:
    /// Fills the table.
    void windowDidLoad() override;
    /// Closes the sheet: there is nothing to cancel.
    void leaveSheet() override;

private:
    /// Grants access to the folder and selects its row.
    void addChosen(const QString &path);
    /// Returns the table's delegate, which the form creates and owns.
    QVSyncBookmarkManagerDataSource *dataSource() const;

    QPointer<TableView> m_tableView;
};
