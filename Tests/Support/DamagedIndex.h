#pragma once

#include <QtCore/QString>

/// Changes one bit of an SQLite database in the file `file`, whose latest state is in the file and
/// not in its log. Fails the test if that is not possible.
namespace DamagedIndex {

enum class Damage {
    /// An entry of the index is not what the table contains.
    Entry,
    /// The page of the index is not one.
    Page,
};

/// Damages the index `index`, which must fit into one page and have an entry.
void make(const QString &file, const QString &index, Damage damage = Damage::Entry);

/// Damages the place where the rest of the row that contains the long text `text` names its next
/// page: changes the bit `bit` of its number.
void makeOverflow(const QString &file, const QByteArray &text, int bit);

/// Damages the last byte of `value` in the table `table`, which must fit into one page, but not in
/// its indexes.
void makeRow(const QString &file, const QString &table, const QByteArray &value);

}  // namespace DamagedIndex
