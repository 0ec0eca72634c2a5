#include "Platform/Interface/AccessibleTable.h"

#include "Platform/Interface/AccessibleTableRow.h"
#include "Platform/Interface/TableView.h"

void AccessibleTable::install() {
    QAccessible::installFactory([](const QString & /*className*/, QObject *object) {
        auto *table = qobject_cast<TableView *>(object);
        return table ? static_cast<QAccessibleInterface *>(new AccessibleTable(table)) : nullptr;
    });
}

AccessibleTable::AccessibleTable(TableView *table) : QAccessibleWidget(table, QAccessible::List) {}

AccessibleTable::~AccessibleTable() {
    for (const QAccessible::Id item : std::as_const(m_items)) {
        QAccessible::deleteAccessibleInterface(item);
    }
}

TableView *AccessibleTable::table() const {
    return static_cast<TableView *>(object());
}

int AccessibleTable::childCount() const {
    return table()->rowCount();
}

QAccessibleInterface *AccessibleTable::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    if (!m_items.contains(index)) {
        m_items.insert(index, QAccessible::registerAccessibleInterface(
                                  new AccessibleTableRow(table(), index)));
    }
    return QAccessible::accessibleInterface(m_items.value(index));
}

QAccessibleInterface *AccessibleTable::childAt(int x, int y) const {
    return child(table()->rowAt(table()->viewport()->mapFromGlobal(QPoint(x, y)).y()));
}

QAccessibleInterface *AccessibleTable::focusChild() const {
    return table()->hasFocus() ? child(table()->currentRow()) : nullptr;
}

int AccessibleTable::indexOfChild(const QAccessibleInterface *child) const {
    for (auto each = m_items.begin(); each != m_items.end(); ++each) {
        if (QAccessible::accessibleInterface(*each) == child) {
            return each.key();
        }
    }
    return -1;
}
