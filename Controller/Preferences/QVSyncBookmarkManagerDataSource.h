#pragma once

#include <QtCore/QVariantMap>

#include "Platform/Interface/TableViewDelegate.h"
#include "Platform/KeyValue/KeyValue.h"

/// The rows of the sheet for folder access: the folders that the host may access, in the host's
/// order, followed by those added later. An object of the sheet's form, which creates it and makes
/// it the delegate of the table. Must be used on the main thread.
///
/// A row is a map of "image" (QPixmap), "name" (without extension) and "path", which identifies the
/// row.
class QVSyncBookmarkManagerDataSource : public QObject, public TableViewDelegate {
    Q_OBJECT
    /// The rows. Announced only when the whole list is set.
    Q_PROPERTY(QVariantList tableContents READ tableContents WRITE setTableContents NOTIFY
                   tableContentsChanged)
    /// Whether the table has a selection.
    Q_PROPERTY(bool canRemove READ canRemove WRITE setCanRemove NOTIFY canRemoveChanged)
public:
    using QObject::QObject;

    /// Reads the folders from the host, replacing all rows. Called by Nib when the form is loaded.
    Q_INVOKABLE void awakeFromNib();

    QVariantList tableContents() const { return m_tableContents; }
    /// Sets the rows without changing any access at the host. The table must be reloaded by the
    /// caller, as after the functions below that take no table.
    void setTableContents(const QVariantList &rows);
    bool canRemove() const { return m_canRemove; }
    /// Called when the table's selection changes.
    void setCanRemove(bool canRemove);

    /// Returns a new row for `path`. Reads the icon, so it may block on a slow volume.
    QVariantMap dictionaryForPath(const QString &path) const;
    /// Returns whether there is a row with the same path. O(n).
    bool containsRow(const QVariantMap &row) const;
    /// Returns the row of `path`, or -1. O(n).
    int rowOfPath(const QString &path) const;
    /// Appends a row unless `path` has one. Raises an AssertionFailure if `path` is null.
    void insertDictionaryForPath(const QString &path);
    /// Removes the row of `path`, if there is one.
    void removeDictionaryForPath(const QString &path);
    /// These also grant or withdraw the access at the host, and reload `tableView`, which must not
    /// be null. An error of the host is presented by it, and the rows change all the same.
    void tableViewAddBookmarksObject(TableView *tableView, const QString &path);
    void tableViewRemoveBookmarksObject(TableView *tableView, const QString &path);

    /// Delegate functions of the table. Only the column "BookmarkCell" has views.
    int numberOfRowsInTableView(TableView *tableView) override;
    /// Returns null for other columns and for rows out of range.
    QWidget *tableViewViewForTableColumnRow(TableView *tableView, const QString &columnIdentifier,
                                            int row) override;
    /// Updates `canRemove`.
    void tableViewSelectionDidChange(TableView *tableView) override;

Q_SIGNALS:
    void tableContentsChanged();
    void canRemoveChanged();

private:
    QVariantList m_tableContents;
    bool m_canRemove = false;
};
