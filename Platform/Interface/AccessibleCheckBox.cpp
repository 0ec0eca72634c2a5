#include "Platform/Interface/AccessibleCheckBox.h"

#include <QtCore/QRegularExpression>
#include <QtWidgets/QCheckBox>

void AccessibleCheckBox::install() {
    QAccessible::installFactory([](const QString & /*className*/, QObject *object) {
        auto *box = qobject_cast<QCheckBox *>(object);
        return box ? static_cast<QAccessibleInterface *>(new AccessibleCheckBox(box)) : nullptr;
    });
}

AccessibleCheckBox::AccessibleCheckBox(QCheckBox *box)
    : QAccessibleWidget(box, QAccessible::CheckBox) {}

QCheckBox *AccessibleCheckBox::box() const {
    return static_cast<QCheckBox *>(object());
}

QString AccessibleCheckBox::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !box()->accessibleName().isEmpty()) {
        return QAccessibleWidget::text(kind);
    }
    static const QRegularExpression mnemonic(QStringLiteral("&(.)"));
    return box()->text().replace(mnemonic, QStringLiteral("\\1"));
}

QAccessible::State AccessibleCheckBox::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = box()->isChecked();
    return state;
}

QStringList AccessibleCheckBox::actionNames() const {
    return box()->isEnabled() ? QStringList{toggleAction()} + QAccessibleWidget::actionNames()
                              : QStringList();
}

void AccessibleCheckBox::doAction(const QString &name) {
    if (name == toggleAction()) {
        box()->click();
    } else {
        QAccessibleWidget::doAction(name);
    }
}

QStringList AccessibleCheckBox::keyBindingsForAction(const QString &name) const {
    const QString shortcut = box()->shortcut().toString();
    return name == toggleAction() && !shortcut.isEmpty() ? QStringList{shortcut} : QStringList();
}
