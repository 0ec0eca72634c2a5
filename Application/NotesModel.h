#pragma once

#include <QtCore/QAbstractListModel>
#include <QtCore/QHash>
#include <array>

#include "Application/Interface/NoteDatabase.h"

/// The rows of a list of notes, as far as they were read, in the order of their positions. A row
/// takes little more memory than its title and its identifiers. Must be used on the main thread.
class NotesModel : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = {}) const override;
    /// Returns the title of the row, or “Untitled”, as Qt::DisplayRole.
    QVariant data(const QModelIndex &index, int role) const override;

    /// Removes all rows.
    void clear();
    /// Appends `rows`, whose positions must be beyond those of all others.
    void append(const QList<NoteRow> &rows);
    /// Shows `rows` instead of the rows of their position, which is `position`.
    void replace(qint64 position, const QList<NoteRow> &rows);

    /// Returns the note in `row`, which must exist, without its text and date.
    Note note(int row) const;
    /// Returns the position of `row`, which must exist.
    qint64 position(int row) const { return m_rows.at(row).position; }
    /// Returns the first row whose position is not less than `position`, or the number of rows.
    int firstRow(qint64 position) const;
    /// Returns the row of the edit `note`; if there is none, that of the note with its UUID, or -1.
    int rowOf(const Note &note) const;

private:
    struct Row {
        qint64 position = 0;
        /// See packed().
        QByteArray note;
    };

    /// Returns what the list needs of `note`, in one allocation.
    static QByteArray packed(const Note &note);
    static Note unpacked(const QByteArray &packed);
    void setNote(int row, const Note &note);
    /// Returns the row whose `member` is `key`, or -1.
    int find(const QString &key, QString Note::*member) const;
    void addToIndex(const NoteRow &row);
    void removeFromIndex(int row);

    /// Positions by the hash of a UUID or a revision.
    using Positions = QHash<size_t, qint64>;
    Positions &positionsOf(size_t hash) { return m_positions[hash % m_positions.size()]; }

    QList<Row> m_rows;
    /// Divided by the hash, because a table of all notes blocks the thread while it grows.
    std::array<Positions, 64> m_positions;
};
