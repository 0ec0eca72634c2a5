#include "Platform/Interface/SheetWindow.h"

#include <QtGui/QCloseEvent>

void SheetWindow::reject() {
    Q_EMIT leaving();
}

void SheetWindow::closeEvent(QCloseEvent *event) {
    event->ignore();
    Q_EMIT leaving();
}
