#include "Application/Splitter.h"

#include <QtCore/QEvent>

Splitter::Splitter(QWidget *parent) : QSplitter(parent) {
    fitContents();
}

// QSplitter leaves out its margins.
QSize Splitter::minimumSizeHint() const {
    return QSplitter::minimumSizeHint() + QSize(contentsMargins().right(), 0);
}

void Splitter::changeEvent(QEvent *event) {
    if (event->type() == QEvent::LayoutDirectionChange) {
        fitContents();
    }
    QSplitter::changeEvent(event);
}

void Splitter::fitContents() {
    setContentsMargins(0, 0, isRightToLeft() ? 1 : 0, 0);
}
