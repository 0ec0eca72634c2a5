#include "Platform/Interface/ContainerView.h"

#include <QtCore/QEvent>
#include <QtWidgets/QLayout>

#include <algorithm>

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

bool ContainerView::hasHeightForWidth() const {
    const QList<QWidget *> views = subviews(this);
    return std::any_of(views.begin(), views.end(), [](const QWidget *view) {
        return view->layout() && view->layout()->hasHeightForWidth();
    });
}

int ContainerView::heightForWidth(int width) const {
    int height = minimumSizeHint().height();
    for (const QWidget *view : subviews(this)) {
        if (view->layout() && view->layout()->hasHeightForWidth()) {
            height = qMax(height, view->layout()->totalMinimumHeightForWidth(width));
        }
    }
    return height;
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
