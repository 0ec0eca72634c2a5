#pragma once

#include <QtCore/QAbstractTableModel>

#include "Application/LogFile.h"

/// The application's log as a table model: one row for each entry, oldest first. Beyond `Limit`
/// entries, the oldest are removed. It is kept in a file once open() has succeeded. Must be used on
/// the main thread.
class EventLog : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    enum Column { Outcome, Time, Duration, Database, Location, Changes, Text, ColumnCount };

    /// Maximum number of entries. Removing the oldest one is announced as any removal of a row.
    static constexpr int Limit = 10000;

    /// Opens or creates the file `path`, puts its entries before those of this run, and adds these
    /// to it. If it fails, the log is kept in memory only.
    Expected<void> open(const QString &path);

    /// Appends an event with the current time, and announces the new row before it returns. `title`
    /// is the part of the program that reports it, `info` what happened; both may be any text, also
    /// with line breaks, and must be shown as plain text.
    void append(const QString &title, const QString &info);
    /// Appends an entry and announces it likewise. If it cannot be saved, says so in a further
    /// entry, once until an entry can be saved again.
    void append(const LogEntry &entry);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /// Returns the localized text of a cell for Qt::DisplayRole, and the same as a plain-text tool
    /// tip for Qt::ToolTipRole; the icon of an outcome for Qt::DecorationRole; invalid for other
    /// roles and an invalid index. Dates are formatted at each call.
    QVariant data(const QModelIndex &index, int role) const override;
    /// Returns the localized title of a column; invalid for rows and other roles.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    /// Appends the row only.
    void insert(const LogEntry &entry);
    static QString textAt(const LogEntry &entry, int column);

    QList<LogEntry> m_entries;
    LogFile m_file;
    bool m_isOpen = false;
    bool m_isSaved = true;
};
