#include "Platform/Interface/ContainerView.h"

#include <QtCore/QEvent>

namespace {
QList<QWidget *> subviews(const QWidget *view) {
    return view->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
}
}  // namespace

QSize ContainerView::sizeHint() const {
    QSize size(0, 0);
    for (const QWidget *view : subviews(this)) {
        size = size.expandedTo(view->sizeHint());
    }
    return size;
}

QSize ContainerView::minimumSizeHint() const {
    QSize size(0, 0);
    for (const QWidget *view : subviews(this)) {
        size = size.expandedTo(view->minimumSizeHint());
    }
    return size;
}

bool ContainerView::event(QEvent *event) {
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::ChildAdded) {
        updateGeometry();
    }
    return QWidget::event(event);
}

void ContainerView::resizeEvent(QResizeEvent * /*event*/) {
    for (QWidget *view : subviews(this)) {
        view->setGeometry(rect());
    }
}
