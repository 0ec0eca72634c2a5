#include "View/AccessibleList.h"

#include "View/AccessibleListRow.h"
#include "View/ListScrollArea.h"
#include "View/QVListView.h"
#include "View/QVSelectedItemBackgroundView.h"

namespace {

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object) {
    // Qt may ask for it before the area has its list and the row its parent, and keeps it.
    if (auto *area = qobject_cast<ListScrollArea *>(object)) {
        return new AccessibleList(area);
    }
    auto *row = qobject_cast<QVSelectedItemBackgroundView *>(object);
    return row ? new AccessibleListRow(row) : nullptr;
}

}  // namespace

void AccessibleList::install() {
    QAccessible::installFactory(&makeInterface);
}

AccessibleList::AccessibleList(ListScrollArea *area) : QAccessibleWidget(area, QAccessible::List) {}

ListScrollArea *AccessibleList::area() const {
    return static_cast<ListScrollArea *>(object());
}

int AccessibleList::childCount() const {
    return area()->list() ? static_cast<int>(area()->list()->items().size()) : 0;
}

QAccessibleInterface *AccessibleList::child(int index) const {
    return index >= 0 && index < childCount()
               ? QAccessible::queryAccessibleInterface(area()->list()->items().at(index)->view())
               : nullptr;
}

int AccessibleList::indexOfChild(const QAccessibleInterface *child) const {
    for (int index = 0; index < childCount(); ++index) {
        if (area()->list()->items().at(index)->view() == child->object()) {
            return index;
        }
    }
    return -1;
}

QAccessibleInterface *AccessibleList::childAt(int x, int y) const {
    for (int index = 0; index < childCount(); ++index) {
        if (QAccessibleInterface *row = child(index); row && row->rect().contains(x, y)) {
            return row;
        }
    }
    return nullptr;
}

QAccessibleInterface *AccessibleList::focusChild() const {
    QWidget *view = area()->hasFocus() ? area()->selectedView() : nullptr;
    return view ? QAccessible::queryAccessibleInterface(view) : QAccessibleWidget::focusChild();
}
