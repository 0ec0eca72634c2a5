#pragma once

#include <QtCore/QString>

class QVListView;

/// Finds and selects rows of a list as its delegate allows. A value that refers to the list, which
/// must not be null and must outlive it. Rows are numbered from 0; -1 stands for none. Must be used
/// on the main thread.
class ListSelection {
public:
    explicit ListSelection(QVListView *list) : m_list(list) {}

    /// Returns the first selected row, or -1.
    qsizetype row() const;
    /// Returns whether there is such a row and the delegate accepts it.
    bool accepts(qsizetype row) const;
    /// Selects only `row`, or returns false if the delegate refuses it.
    bool select(qsizetype row) const;

    /// Returns the first row from `row` on that the delegate accepts, or -1. `step` is 1 or -1.
    qsizetype acceptedFrom(qsizetype row, int step) const;
    /// Returns the row that is at most `height` pixels away from the selected one, or the nearest
    /// one that the delegate accepts; -1 if there is no other.
    qsizetype pageFromSelection(int step, int height) const;
    /// Returns the next row, from `row` on and then from the first, whose view has an accessible
    /// name that begins with `text`, regardless of case; -1 if there is none. O(n).
    qsizetype rowWithPrefix(const QString &text, qsizetype row) const;

private:
    QVListView *m_list;
};
