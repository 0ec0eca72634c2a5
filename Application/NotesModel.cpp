#include "Application/NotesModel.h"

#include <algorithm>

#include "Platform/Foundation/ExactText.h"

namespace {

/// Separates the identifiers and the title, which comes last. No identifier contains it.
constexpr char Separator = '\0';
constexpr qsizetype LongestTitleInList = 200;

}  // namespace

int NotesModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant NotesModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) {
        return {};
    }
    const QString title = note(index.row()).title;
    return title.isEmpty() ? tr("Untitled") : title;
}

void NotesModel::clear() {
    beginResetModel();
    m_rows.clear();
    m_positions.fill({});
    endResetModel();
}

void NotesModel::append(const QList<NoteRow> &rows) {
    if (rows.isEmpty()) {
        return;
    }
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(rows.size()) - 1);
    for (const NoteRow &row : rows) {
        m_rows.append({row.position, packed(row.note)});
        addToIndex(row);
    }
    endInsertRows();
}

void NotesModel::replace(qint64 position, const QList<NoteRow> &rows) {
    int index = firstRow(position);
    const auto isOfPosition = [&] {
        return index < m_rows.size() && m_rows.at(index).position == position;
    };
    for (const NoteRow &row : rows) {
        if (isOfPosition()) {
            setNote(index, row.note);
        } else {
            beginInsertRows({}, index, index);
            m_rows.insert(index, {row.position, packed(row.note)});
            endInsertRows();
        }
        ++index;
    }
    while (isOfPosition()) {
        beginRemoveRows({}, index, index);
        removeFromIndex(index);
        m_rows.removeAt(index);
        endRemoveRows();
    }
    for (const NoteRow &row : rows) {
        addToIndex(row);
    }
}

void NotesModel::setNote(int row, const Note &note) {
    removeFromIndex(row);
    const QModelIndex changed = index(row);
    const QVariant title = data(changed, Qt::DisplayRole);
    m_rows[row].note = packed(note);
    // The list is laid out again.
    if (data(changed, Qt::DisplayRole) != title) {
        Q_EMIT dataChanged(changed, changed);
    }
}

Note NotesModel::note(int row) const {
    return unpacked(m_rows.at(row).note);
}

int NotesModel::firstRow(qint64 position) const {
    const auto found =
        std::lower_bound(m_rows.begin(), m_rows.end(), position,
                         [](const Row &row, qint64 searched) { return row.position < searched; });
    return static_cast<int>(found - m_rows.begin());
}

int NotesModel::rowOf(const Note &note) const {
    const int row = find(note.revision, &Note::revision);
    return row >= 0 ? row : find(note.UUID, &Note::UUID);
}

int NotesModel::find(const QString &key, QString Note::*member) const {
    const size_t hash = qHash(key);
    const Positions &positions = m_positions[hash % m_positions.size()];
    const auto position = positions.constFind(hash);
    if (key.isEmpty() || position == positions.constEnd()) {
        return -1;
    }
    for (int row = firstRow(*position); row < m_rows.size() && m_rows.at(row).position == *position;
         ++row) {
        if (note(row).*member == key) {
            return row;
        }
    }
    return -1;
}

void NotesModel::addToIndex(const NoteRow &row) {
    for (const QString &key : {row.note.UUID, row.note.revision}) {
        const size_t hash = qHash(key);
        positionsOf(hash).insert(hash, row.position);
    }
}

void NotesModel::removeFromIndex(int row) {
    const Note removed = note(row);
    for (const QString &key : {removed.UUID, removed.revision}) {
        const size_t hash = qHash(key);
        Positions &positions = positionsOf(hash);
        // A note that was removed and restored has another position.
        if (positions.value(hash) == position(row)) {
            positions.remove(hash);
        }
    }
}

QByteArray NotesModel::packed(const Note &note) {
    QByteArray bytes = note.UUID.toUtf8() + Separator + note.revision.toUtf8() + Separator +
                       note.conflict.toUtf8() + Separator +
                       note.title.left(LongestTitleInList).toUtf8();
    bytes.squeeze();
    return bytes;
}

Note NotesModel::unpacked(const QByteArray &packed) {
    const qsizetype revision = packed.indexOf(Separator) + 1;
    const qsizetype conflict = packed.indexOf(Separator, revision) + 1;
    const qsizetype title = packed.indexOf(Separator, conflict) + 1;
    const auto part = [&](qsizetype from, qsizetype to) {
        return ExactText::fromUtf8(packed.mid(from, to - from));
    };
    return {.UUID = part(0, revision - 1),
            .title = part(title, packed.size()),
            .revision = part(revision, conflict - 1),
            .conflict = part(conflict, title - 1)};
}
