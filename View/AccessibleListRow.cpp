#include "View/AccessibleListRow.h"

#include <QtGui/QAction>
#include <QtWidgets/QAbstractButton>

#include "Platform/Interface/ContextMenu.h"
#include "View/ListScrollArea.h"
#include "View/QVListView.h"
#include "View/QVSelectedItemBackgroundView.h"

namespace {

/// Returns the title of `action` without the mark of its mnemonic and the dots.
QString nameOf(const QAction *action) {
    return action->iconText();
}

QAction *actionNamed(const QWidget *area, const QString &name) {
    for (QAction *action : area->actions()) {
        if (nameOf(action) == name) {
            return action;
        }
    }
    return nullptr;
}

}  // namespace

AccessibleListRow::AccessibleListRow(QVSelectedItemBackgroundView *row) : QAccessibleWidget(row) {}

ListScrollArea *AccessibleListRow::areaOf(const QWidget *row) {
    const auto *list = qobject_cast<const QVListView *>(row->parentWidget());
    const QWidget *viewport = list ? list->parentWidget() : nullptr;
    return viewport ? qobject_cast<ListScrollArea *>(viewport->parentWidget()) : nullptr;
}

QVSelectedItemBackgroundView *AccessibleListRow::row() const {
    return static_cast<QVSelectedItemBackgroundView *>(object());
}

QAccessibleInterface *AccessibleListRow::parent() const {
    ListScrollArea *area = areaOf(row());
    return area ? QAccessible::queryAccessibleInterface(area) : QAccessibleWidget::parent();
}

QAccessible::Role AccessibleListRow::role() const {
    return areaOf(row()) ? QAccessible::ListItem : QAccessibleWidget::role();
}

QAccessible::State AccessibleListRow::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const ListScrollArea *area = areaOf(row());
    if (!area) {
        return state;
    }
    state.selectable = 1;
    state.selected = row()->isSelected() ? 1 : 0;
    state.focusable = 1;
    state.focused = row()->isSelected() && area->hasFocus() ? 1 : 0;
    return state;
}

QStringList AccessibleListRow::actionNames() const {
    const ListScrollArea *area = areaOf(row());
    if (!area) {
        return {};
    }
    QStringList names{pressAction()};
    if (row()->checkBox()) {
        names.append(toggleAction());
    }
    if (ContextMenu::menu(area)) {
        names.append(showMenuAction());
    }
    for (const QAction *action : area->actions()) {
        names.append(nameOf(action));
    }
    return names;
}

void AccessibleListRow::doAction(const QString &name) {
    ListScrollArea *area = areaOf(row());
    const QAccessibleInterface *list = area ? QAccessible::queryAccessibleInterface(area) : nullptr;
    if (!list) {
        return;
    }
    if (name == toggleAction()) {
        if (QAbstractButton *box = row()->checkBox()) {
            box->click();
        }
        return;
    }
    if (!area->selectRow(list->indexOfChild(this))) {
        return;
    }
    if (name == showMenuAction()) {
        area->openMenu();
    } else if (QAction *action = actionNamed(area, name)) {
        action->trigger();
    }
}

QStringList AccessibleListRow::keyBindingsForAction(const QString &name) const {
    const ListScrollArea *area = areaOf(row());
    const QAction *action = area ? actionNamed(area, name) : nullptr;
    return action && !action->shortcut().isEmpty()
               ? QStringList{action->shortcut().toString(QKeySequence::NativeText)}
               : QStringList();
}
