#pragma once

#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringList>

/// The entries of an EventLog that are about one database and one location. Must be used on the
/// main thread.
class LogFilter : public QSortFilterProxyModel {
    Q_OBJECT
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// Set what the entries must be about, by name; a null text means any. The rows are filtered
    /// again before the call returns.
    void setDatabase(const QString &database);
    void setLocation(const QString &location);

    /// Returns the rows as text, one per line, with tabs between the columns. Line breaks in a
    /// cell become blanks. `rows` are indexes of this model, one for each row, in the order of the
    /// result.
    QString text(const QModelIndexList &rows) const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QString m_database;
    QString m_location;
};
