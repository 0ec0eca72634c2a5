#pragma once

#include <QtCore/QVariantMap>

#include "Platform/Interface/TableViewDelegate.h"
#include "Platform/KeyValue/KeyValue.h"

/// The rows of the folder-access sheet: the folders that the host may reach, in the order in which
/// it named them; folders added later follow. Main thread.
///
/// A row is a map of "image" (QPixmap), "name" (without extension) and "path", which tells rows
/// apart.
class QVSyncBookmarkManagerDataSource : public QObject, public TableViewDelegate {
    Q_OBJECT
    Q_PROPERTY(QVariantList tableContents READ tableContents WRITE setTableContents NOTIFY
                   tableContentsChanged)
    /// Whether the table has a selection.
    Q_PROPERTY(bool canRemove READ canRemove WRITE setCanRemove NOTIFY canRemoveChanged)
public:
    using QObject::QObject;

    Q_INVOKABLE void awakeFromNib();

    QVariantList tableContents() const { return m_tableContents; }
    void setTableContents(const QVariantList &rows);
    bool canRemove() const { return m_canRemove; }
    void setCanRemove(bool canRemove);

    QVariantMap dictionaryForPath(const QString &path) const;
    bool containsRow(const QVariantMap &row) const;
    /// Appends a row unless the path has one. A null path is a programming error.
    void insertDictionaryForPath(const QString &path);
    void removeDictionaryForPath(const QString &path);
    /// These tell the host too, and show the rows anew.
    void tableViewAddBookmarksObject(TableView *tableView, const QString &path);
    void tableViewRemoveBookmarksObject(TableView *tableView, const QString &path);

    int numberOfRowsInTableView(TableView *tableView) override;
    QWidget *tableViewViewForTableColumnRow(TableView *tableView, const QString &columnIdentifier,
                                            int row) override;
    void tableViewSelectionDidChange(TableView *tableView) override;

Q_SIGNALS:
    void tableContentsChanged();
    void canRemoveChanged();

private:
    QVariantList m_tableContents;
    bool m_canRemove = false;
};
