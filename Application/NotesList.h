#pragma once

#include <QtWidgets/QListView>

/// A list whose current row is known by its number, which a model of any size can have. Must be
/// used on the main thread.
class NotesList : public QListView {
    Q_OBJECT
public:
    using QListView::QListView;

    /// Returns the number of rows; 0 without a model.
    int count() const;
    /// Returns the current row, or -1.
    int currentRow() const { return currentIndex().row(); }
    /// Makes `row` current and selects it; -1 makes none current.
    void setCurrentRow(int row);

Q_SIGNALS:
    /// Emitted when another row has become current; -1 if none is.
    void currentRowChanged(int row);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
};
