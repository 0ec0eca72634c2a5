#include "Platform/Interface/AccessibleTableRow.h"

#include <QtWidgets/QAbstractButton>

#include "Platform/Interface/TableView.h"

AccessibleTableRow::AccessibleTableRow(TableView *table, int row) : m_table(table), m_row(row) {}

bool AccessibleTableRow::isValid() const {
    return m_table && m_row < m_table->rowCount();
}

QWindow *AccessibleTableRow::window() const {
    return m_table ? m_table->window()->windowHandle() : nullptr;
}

QAccessibleInterface *AccessibleTableRow::parent() const {
    return QAccessible::queryAccessibleInterface(m_table);
}

QString AccessibleTableRow::text(QAccessible::Text kind) const {
    const QTableWidgetItem *item = isValid() ? m_table->item(m_row, 0) : nullptr;
    switch (kind) {
        case QAccessible::Name:
            return item ? m_table->nameOfRow(m_row) : QString();
        case QAccessible::Description:
            return item ? item->data(Qt::AccessibleDescriptionRole).toString() : QString();
        default:
            return {};
    }
}

QRect AccessibleTableRow::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect frame = m_table->visualRect(m_table->model()->index(m_row, 0));
    return {m_table->viewport()->mapToGlobal(frame.topLeft()), frame.size()};
}

QAccessible::State AccessibleTableRow::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = 1;
        return state;
    }
    const QTableWidgetItem *item = m_table->item(m_row, 0);
    state.selectable = 1;
    state.selected = m_table->selectionIndexes().contains(m_row) ? 1 : 0;
    state.focusable = 1;
    state.focused = m_table->hasFocus() && m_table->currentRow() == m_row ? 1 : 0;
    state.checkable = isCheckable() ? 1 : 0;
    state.checked = isCheckable() && item->checkState() == Qt::Checked ? 1 : 0;
    return state;
}

bool AccessibleTableRow::isCheckable() const {
    const QTableWidgetItem *item = isValid() ? m_table->item(m_row, 0) : nullptr;
    return item && item->data(Qt::CheckStateRole).isValid();
}

void *AccessibleTableRow::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                : nullptr;
}

QStringList AccessibleTableRow::actionNames() const {
    QStringList names{pressAction()};
    if (isCheckable()) {
        names.append(toggleAction());
    }
    if (const QString removal = removeAction(); !removal.isEmpty()) {
        names.append(removal);
    }
    return names;
}

QString AccessibleTableRow::removeAction() const {
    const QAbstractButton *button = isValid() ? m_table->buttonThatRemoves() : nullptr;
    return button ? QString(button->text()).remove(u'&') : QString();
}

void AccessibleTableRow::doAction(const QString &name) {
    if (name == pressAction() && isValid()) {
        m_table->setCurrentCell(m_row, 0);
    } else if (name == toggleAction() && isCheckable()) {
        QTableWidgetItem *item = m_table->item(m_row, 0);
        item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    } else if (!name.isEmpty() && name == removeAction()) {
        m_table->setCurrentCell(m_row, 0);
        m_table->buttonThatRemoves()->click();
    }
}

QStringList AccessibleTableRow::keyBindingsForAction(const QString &name) const {
    return !name.isEmpty() && name == removeAction()
               ? QStringList{QKeySequence(Qt::Key_Delete).toString(QKeySequence::NativeText)}
               : QStringList();
}
