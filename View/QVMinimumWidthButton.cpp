#include "View/QVMinimumWidthButton.h"

void QVMinimumWidthButton::setTitle(const QString &title) {
    const QRect old = geometry();
    setText(title);
    adjustSize();
    setGeometry(x() + old.width() - width(), old.y(), width(), height());
}
