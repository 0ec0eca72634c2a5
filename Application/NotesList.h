#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QListView>

/// A list whose current row is known by its number, which a model of any size can have. Rows that
/// are added below those that can be seen are laid out 200 ms later, or as soon as the list scrolls
/// to one of them, since that takes time in proportion to all rows. Must be used on the main
/// thread.
class NotesList : public QListView {
    Q_OBJECT
public:
    explicit NotesList(QWidget *parent = nullptr);

    /// Returns the number of rows; 0 without a model.
    int count() const;
    /// Returns the current row, or -1.
    int currentRow() const { return currentIndex().row(); }
    /// Makes `row` current and selects it; -1 makes none current.
    void setCurrentRow(int row);
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;

Q_SIGNALS:
    /// Emitted when another row has become current; -1 if none is.
    void currentRowChanged(int row);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void rowsInserted(const QModelIndex &parent, int first, int last) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void layOutAdded();

    /// Active while added rows are not laid out.
    QTimer m_layout;
};
