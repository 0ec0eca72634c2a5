#include "Platform/Interface/SheetWindow.h"

#include <QtGui/QCloseEvent>
#include <algorithm>

#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/Mnemonics.h"

SheetWindow::SheetWindow(QWidget *parent) : QDialog(parent) {
    new HeightKeeper(this);
}

bool SheetWindow::isShownOn(const QWidget &window) {
    const auto sheets = window.findChildren<SheetWindow *>();
    return std::any_of(sheets.begin(), sheets.end(),
                       [](const SheetWindow *sheet) { return sheet->isVisible(); });
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
