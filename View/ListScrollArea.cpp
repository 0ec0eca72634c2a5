#include "View/ListScrollArea.h"

#include <QtGui/QResizeEvent>

#include "Platform/Interface/ListPalette.h"
#include "View/QVListView.h"

ListScrollArea::ListScrollArea(QWidget *parent) : QScrollArea(parent) {
    useListPalette();
}

void ListScrollArea::useListPalette() {
    viewport()->setPalette(ListPalette::normal());
}

bool ListScrollArea::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        useListPalette();
    }
    return QScrollArea::event(event);
}

void ListScrollArea::resizeEvent(QResizeEvent *event) {
    QScrollArea::resizeEvent(event);
    if (list() && list()->width() != viewport()->width()) {
        list()->resize(viewport()->width(), list()->height());
        list()->layoutSubviews();
    }
}

void ListScrollArea::showEvent(QShowEvent *event) {
    // Rows of a hidden list do not report changes.
    if (list()) {
        list()->layoutSubviews();
    }
    QScrollArea::showEvent(event);
}

bool ListScrollArea::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::LayoutRequest && watched == list()) {
        list()->layoutSubviews();
    }
    return QScrollArea::eventFilter(watched, event);
}

QVListView *ListScrollArea::list() const {
    return qobject_cast<QVListView *>(widget());
}
