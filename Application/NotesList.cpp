#include "Application/NotesList.h"

int NotesList::count() const {
    return model() ? model()->rowCount() : 0;
}

void NotesList::setCurrentRow(int row) {
    setCurrentIndex(model()->index(row, 0));
}

void NotesList::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QListView::currentChanged(current, previous);
    Q_EMIT currentRowChanged(current.row());
}
