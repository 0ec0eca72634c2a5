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

void ListScrollArea::changeEvent(QEvent *event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        useListPalette();
    }
    QScrollArea::changeEvent(event);
}

void ListScrollArea::resizeEvent(QResizeEvent *event) {
    QScrollArea::resizeEvent(event);
    auto *list = qobject_cast<QVListView *>(widget());
    if (list && list->width() != viewport()->width()) {
        list->resize(viewport()->width(), list->height());
        list->layoutSubviews();
    }
}
