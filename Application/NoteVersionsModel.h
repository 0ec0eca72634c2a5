#pragma once

#include <QtCore/QAbstractTableModel>
#include <functional>

#include "Application/Interface/NoteDatabase.h"

/// The versions of a list, one a row, read in parts. They are not read by fetchMore(), which a tree
/// view calls again and again until it has all rows. The texts are shown as plain
/// text, in one line. Must be used on the main thread.
class NoteVersionsModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// Reads a part of the list.
    using Read = std::function<Expected<QList<NoteVersion>>(const VersionsPart &part)>;
    /// Returns the texts of a row, as many as there are titles.
    using Texts = std::function<QStringList(const NoteVersion &version)>;

    /// The number of rows that are read at a time.
    static constexpr int RowsAtOnce = 500;

    /// `titles` are those of the columns.
    NoteVersionsModel(QStringList titles, Read read, Texts texts, QObject *parent);

    /// Reads the beginning of the list again. If that fails, the rows stay as they are.
    Expected<void> reload();
    /// Returns whether all rows were read.
    bool isComplete() const { return m_isComplete; }
    /// Appends the next rows. Presents an error if they cannot be read; the list then counts as
    /// complete until reload().
    void readMore();
    /// Returns the version in `row`, which must have been read.
    const NoteVersion &version(int row) const { return m_versions.at(row); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    const QStringList m_titles;
    const Read m_read;
    const Texts m_texts;
    QList<NoteVersion> m_versions;
    bool m_isComplete = true;
};
