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
    const auto *view = qobject_cast<const QWidget *>(child->object());
    return view && area()->list() ? static_cast<int>(area()->list()->rowOfView(view)) : -1;
}

QAccessibleInterface *AccessibleList::childAt(int x, int y) const {
    const QVListView *list = area()->list();
    return list ? child(static_cast<int>(list->rowAt(list->mapFromGlobal(QPoint(x, y))))) : nullptr;
}

QAccessibleInterface *AccessibleList::focusChild() const {
    QWidget *view = area()->hasFocus() ? area()->selectedView() : nullptr;
    return view ? QAccessible::queryAccessibleInterface(view) : QAccessibleWidget::focusChild();
}
