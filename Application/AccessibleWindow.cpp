#include "Application/AccessibleWindow.h"

#include <QtWidgets/QWidget>

namespace {

QAccessibleInterface *makeWindow(const QString &className, QObject *object) {
    // Called with each class of the object, from the most derived one on.
    return className == QStringLiteral("QWidget")
               ? new AccessibleWindow(static_cast<QWidget *>(object))
               : nullptr;
}

}  // namespace

void AccessibleWindow::install() {
    QAccessible::installFactory(&makeWindow);
}

QAccessible::Role AccessibleWindow::role() const {
    return widget()->isWindow() ? QAccessible::Window : QAccessibleWidget::role();
}
