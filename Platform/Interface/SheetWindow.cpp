#include "Platform/Interface/SheetWindow.h"

#include <QtGui/QCloseEvent>

#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/Mnemonics.h"

SheetWindow::SheetWindow(QWidget *parent) : QDialog(parent) {
    new HeightKeeper(this);
}

void SheetWindow::reject() {
    Q_EMIT leaving();
}

void SheetWindow::closeEvent(QCloseEvent *event) {
    event->ignore();
    Q_EMIT leaving();
}

void SheetWindow::showEvent(QShowEvent *event) {
    Mnemonics::assign(*this);
    QDialog::showEvent(event);
}
