#include "Tour/User.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QThread>
#include <QtTest/QtTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QScrollArea>

#include "Support/EventTimeout.h"
#include "Tour/Screen.h"

namespace {

constexpr int LookInterval = 5;

/// Where on the screen something is.
struct Place {
    QWindow *window = nullptr;
    QPoint point;
};

Place placeOf(const QWidget *widget, const QPoint &point) {
    return {widget->window()->windowHandle(), widget->mapTo(widget->window(), point)};
}

std::optional<Place> placeOf(const QWidget *widget) {
    if (!widget || !widget->isEnabled()) {
        return {};
    }
    const QPoint middle = widget->rect().center();
    const bool hasIndicator =
        qobject_cast<const QCheckBox *>(widget) || qobject_cast<const QRadioButton *>(widget);
    return placeOf(widget, hasIndicator ? QPoint(middle.y(), middle.y()) : middle);
}

std::optional<Place> placeOfItem(QAbstractItemView *view, const QString &text) {
    const QAbstractItemModel *model = view ? view->model() : nullptr;
    const QModelIndex root = view ? view->rootIndex() : QModelIndex();
    for (int row = 0; model && row < model->rowCount(root); ++row) {
        const QModelIndex index = model->index(row, 0, root);
        if (index.data().toString() == text) {
            view->scrollTo(index);
            return placeOf(view->viewport(), view->visualRect(index).center());
        }
    }
    return {};
}

template <class Menu>
std::optional<Place> placeOfAction(const Menu *menu, const QString &text) {
    for (QAction *action : menu->actions()) {
        if (Screen::withoutMnemonic(action->text()) == text && action->isEnabled()) {
            return placeOf(menu, menu->actionGeometry(action).center());
        }
    }
    return {};
}

std::optional<Place> placeOfMenuItem(const QString &text) {
    if (const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
        return placeOfAction(menu, text);
    }
    for (const QWidget *window : Screen::windows()) {
        for (const QMenuBar *bar : window->findChildren<QMenuBar *>()) {
            if (const auto place = placeOfAction(bar, text)) {
                return place;
            }
        }
    }
    return {};
}

/// Scrolls to `widget` if it is in a list, as a user does before a click.
void scrollTo(QWidget *widget) {
    for (QWidget *parent = widget; parent; parent = parent->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(parent)) {
            area->ensureWidgetVisible(widget, 0, 0);
        }
    }
}

/// Waits until `find`, called on the main thread, returns a place, and clicks there.
void clickWhenThere(const QString &what, const std::function<std::optional<Place>()> &find) {
    User::await(QStringLiteral("“%1” to be there to be clicked").arg(what),
                [&] { return find().has_value(); });
    // What the click opens may stay open: only its beginning is waited for.
    const auto click = [find] {
        if (const std::optional<Place> place = find()) {
            QTest::mouseClick(place->window, Qt::LeftButton, {}, place->point);
        }
    };
    QMetaObject::invokeMethod(qApp, click, Qt::QueuedConnection);
    onMainThread([] {});
}

void pressKey(Qt::Key key, const QString &text, Qt::KeyboardModifiers modifiers) {
    const auto press = [=] {
        QTest::sendKeyEvent(QTest::Click, QGuiApplication::focusWindow(), key, text, modifiers);
    };
    QMetaObject::invokeMethod(qApp, press, Qt::QueuedConnection);
    onMainThread([] {});
}

}  // namespace

void User::await(const QString &what, const std::function<bool()> &condition) {
    QElapsedTimer timer;
    timer.start();
    while (!onMainThread(condition)) {
        if (timer.elapsed() > EventTimeout) {
            throw TourFailure(QStringLiteral("waited in vain for ") + what);
        }
        QThread::msleep(LookInterval);
    }
}

void User::turnTo(const QString &title) {
    await(QStringLiteral("the window “%1”").arg(title), [=] {
        QWidget *window = Screen::window(title);
        if (window) {
            Screen::turnTo(window);
        }
        return window && window->isActiveWindow();
    });
}

void User::click(const QString &widget) {
    clickWhenThere(widget, [=] { return placeOf(Screen::widget(widget)); });
}

void User::clickRow(const QString &list, const QString &row, const QString &widget) {
    clickWhenThere(row + u' ' + widget, [=] {
        QWidget *found = Screen::row(list, row);
        scrollTo(found);
        return placeOf(found && !widget.isEmpty() ? Screen::widget(widget, found) : found);
    });
}

void User::clickItem(const QString &view, const QString &text) {
    clickWhenThere(text, [=] {
        return placeOfItem(qobject_cast<QAbstractItemView *>(Screen::widget(view)), text);
    });
}

void User::choose(const QString &menuItem) {
    clickWhenThere(menuItem, [=] { return placeOfMenuItem(menuItem); });
}

void User::fill(const QString &field, const QString &text) {
    click(field);
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
}

void User::type(const QString &text) {
    for (const QChar character : text) {
        pressKey(static_cast<Qt::Key>(character.toUpper().unicode()), character, {});
    }
}

void User::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    pressKey(key, {}, modifiers);
}
