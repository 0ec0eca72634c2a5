#include "Application/NotesList.h"

#include <chrono>

namespace {

constexpr std::chrono::milliseconds LayoutDelay(200);

}  // namespace

NotesList::NotesList(QWidget *parent) : QListView(parent) {
    m_layout.setSingleShot(true);
    m_layout.setInterval(LayoutDelay);
    connect(&m_layout, &QTimer::timeout, this, &NotesList::doItemsLayout);
}

int NotesList::count() const {
    return model() ? model()->rowCount() : 0;
}

void NotesList::setCurrentRow(int row) {
    setCurrentIndex(model()->index(row, 0));
}

void NotesList::scrollTo(const QModelIndex &index, ScrollHint hint) {
    layOutAdded();
    QListView::scrollTo(index, hint);
}

void NotesList::doItemsLayout() {
    m_layout.stop();
    QListView::doItemsLayout();
}

void NotesList::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QListView::currentChanged(current, previous);
    Q_EMIT currentRowChanged(current.row());
}

void NotesList::rowsInserted(const QModelIndex &parent, int first, int last) {
    const bool canBeSeen = !indexAt(viewport()->rect().bottomLeft()).isValid();
    if (canBeSeen || last < count() - 1) {
        QListView::rowsInserted(parent, first, last);
        return;
    }
    QAbstractItemView::rowsInserted(parent, first, last);
    if (!m_layout.isActive()) {
        m_layout.start();
    }
}

QModelIndex NotesList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    layOutAdded();
    return QListView::moveCursor(action, modifiers);
}

void NotesList::layOutAdded() {
    if (m_layout.isActive()) {
        doItemsLayout();
    }
}
