#pragma once

#include <QtCore/QAbstractTableModel>
#include <QtCore/QDateTime>

/// The application's log as a table model: one row for each event, oldest first, with time, origin
/// and text. It is kept in memory only; beyond `Limit` events, the oldest are removed. Must be used
/// on the main thread.
class EventLog : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Maximum number of events. Removing the oldest one is announced as any removal of a row.
    static constexpr int Limit = 10000;

    /// Appends an event with the current time, and announces the new row before it returns. `title`
    /// is the part of the program that reports it, `info` what happened; both may be any text, also
    /// with line breaks, and must be shown as plain text.
    void append(const QString &title, const QString &info);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /// Returns the localized text of a cell for Qt::DisplayRole, and the same as a plain-text tool
    /// tip for Qt::ToolTipRole; invalid for other roles and an invalid index. Dates are formatted
    /// at each call.
    QVariant data(const QModelIndex &index, int role) const override;
    /// Returns the localized title of a column; invalid for rows and other roles.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    /// One event.
    struct Entry {
        QDateTime time;
        QString title;
        QString info;
    };

    QString textAt(const QModelIndex &index) const;

    QList<Entry> m_entries;
};
