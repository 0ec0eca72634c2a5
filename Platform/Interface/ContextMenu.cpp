#include "Platform/Interface/ContextMenu.h"

#include <QtCore/QPointer>
#include <QtGui/QContextMenuEvent>
#include <QtWidgets/QMenu>

namespace {

/// Opens the menu of its parent, a view.
class MenuOpener : public QObject {
public:
    MenuOpener(QWidget *view, QMenu *menu) : QObject(view), m_menu(menu) {
        view->installEventFilter(this);
    }

    QMenu *menu() const { return m_menu; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (m_menu && isMenuKey(*event)) {
            openByKey();
            return true;
        }
        if (event->type() != QEvent::ContextMenu || !m_menu) {
            return QObject::eventFilter(watched, event);
        }
        m_menu->popup(static_cast<QContextMenuEvent *>(event)->globalPos());
        return true;
    }

private:
    /// Returns whether `event` is the key that stands for the menu key, which Qt does not handle.
    static bool isMenuKey(const QEvent &event) {
        const auto *key =
            event.type() == QEvent::KeyPress ? static_cast<const QKeyEvent *>(&event) : nullptr;
        return key && key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier;
    }

    /// Opens the menu where the view shows what the keys act on.
    void openByKey() {
        auto *view = static_cast<QWidget *>(parent());
        const QRect frame = view->inputMethodQuery(Qt::ImCursorRectangle).toRect() & view->rect();
        m_menu->popup(view->mapToGlobal(frame.center()));
    }

    const QPointer<QMenu> m_menu;
};

MenuOpener *openerOf(const QWidget *view) {
    for (QObject *child : view->children()) {
        if (auto *opener = dynamic_cast<MenuOpener *>(child)) {
            return opener;
        }
    }
    return nullptr;
}

}  // namespace

QMenu *ContextMenu::menu(const QWidget *view) {
    const MenuOpener *opener = openerOf(view);
    return opener ? opener->menu() : nullptr;
}

void ContextMenu::setMenu(QWidget *view, QMenu *menu) {
    delete openerOf(view);
    if (menu) {
        new MenuOpener(view, menu);
    }
}
