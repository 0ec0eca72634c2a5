#pragma once

#include <QtCore/QSortFilterProxyModel>
#include <QtCore/QStringList>

/// The entries of an EventLog that are about one database and one location. Must be used on the
/// main thread.
class LogFilter : public QSortFilterProxyModel {
    Q_OBJECT
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// Set what the entries must be about; a null text means any.
    void setDatabase(const QString &database);
    void setLocation(const QString &location);

    /// Returns the rows as text, one per line, with tabs between the columns. Line breaks in a
    /// cell become blanks.
    QString text(const QModelIndexList &rows) const;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    QString m_database;
    QString m_location;
};
