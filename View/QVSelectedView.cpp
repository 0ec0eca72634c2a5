#include "View/QVSelectedView.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include "Platform/Interface/ListPalette.h"

QVSelectedView::QVSelectedView(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void QVSelectedView::focusInEvent(QFocusEvent * /*event*/) {
    clearFocus();
}

void QVSelectedView::paintEvent(QPaintEvent *event) {
    QPainter(this).fillRect(event->rect(), ListPalette::alternateSelectedControlColor());
}
