#include "Application/NameDialog.h"

#include "Platform/Interface/Mnemonics.h"

NameDialog::NameDialog(const QString &title, const QString &label, const QString &name,
                       QWidget *parent)
    : QInputDialog(parent) {
    setWindowTitle(title);
    setLabelText(label);
    setTextValue(name);
}

std::optional<QString> NameDialog::ask() {
    return exec() == Accepted ? std::optional(textValue()) : std::nullopt;
}

void NameDialog::showEvent(QShowEvent *event) {
    Mnemonics::assign(*this);
    QInputDialog::showEvent(event);
}
