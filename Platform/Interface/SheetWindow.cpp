#include "Platform/Interface/SheetWindow.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QAbstractItemView>
#include <algorithm>

#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/HelpButton.h"
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
    focusFirstField();
    QDialog::showEvent(event);
}

void SheetWindow::focusFirstField() {
    QWidget *control = focusWidget() ? this : nextInFocusChain();
    bool hasSkipped = false;
    while (control != this) {
        const auto *list = qobject_cast<const QAbstractItemView *>(control);
        const bool isEmpty = list && list->model() && list->model()->rowCount() == 0;
        const bool isPassedOver = isEmpty || qobject_cast<const HelpButton *>(control);
        const bool canFocus = (control->focusPolicy() & Qt::TabFocus) != 0 &&
                              control->isEnabled() && control->isVisibleTo(this);
        if (canFocus && !isPassedOver) {
            break;
        }
        hasSkipped = hasSkipped || canFocus;
        control = control->nextInFocusChain();
    }
    if (control != this && hasSkipped) {
        control->setFocus(Qt::TabFocusReason);
    }
}
