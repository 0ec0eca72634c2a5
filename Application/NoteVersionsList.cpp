#include "Application/NoteVersionsList.h"

#include <QtWidgets/QScrollBar>

#include "Application/NoteVersionsModel.h"

NoteVersionsList::NoteVersionsList(NoteVersionsModel *versions) : m_versions(versions) {
    setModel(versions);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        if (value == verticalScrollBar()->maximum()) {
            m_versions->readMore();
        }
    });
}

void NoteVersionsList::selectAll() {
    readAll();
    QTreeView::selectAll();
}

QModelIndex NoteVersionsList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveEnd) {
        readAll();
    }
    return QTreeView::moveCursor(action, modifiers);
}

void NoteVersionsList::readAll() {
    while (!m_versions->isComplete()) {
        m_versions->readMore();
    }
}
