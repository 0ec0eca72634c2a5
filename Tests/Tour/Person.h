#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QPoint>
#include <QtCore/QString>
#include <functional>
#include <future>
#include <stdexcept>

class QWidget;
class QWindow;

/// Raised where something does not come about; `what` is a sentence.
class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString &sentence) : std::runtime_error(sentence.toStdString()) {}
};

/// Runs `call` on the main thread, also while a menu or a panel waits there for its end; answers
/// what it answers, and raises what it raises. To be called on another thread.
template <class Call>
auto onMainThread(Call call) {
    std::packaged_task<std::invoke_result_t<Call>()> task(std::move(call));
    auto result = task.get_future();
    QMetaObject::invokeMethod(
        qApp, [&task] { task(); }, Qt::QueuedConnection);
    return result.get();
}

/// Someone at the mouse and the keyboard of this process: what they do arrives at its windows as
/// it does from a desktop. Whatever they look for they wait for, but not for ever: then it raises a
/// TourFailure. Widgets are named as in Screen.h. On any thread but the main one, on which menus
/// and panels run loops of their own.
namespace Person {

/// Waits until `condition`, asked on the main thread, is true. `what` says what for.
void await(const QString &what, const std::function<bool()> &condition);

/// Brings the window with that title to the front.
void turnTo(const QString &title);
void click(const QString &widget);
/// In the list `list`, on the row that shows `row`: on the row itself, or on a widget in it.
void clickRow(const QString &list, const QString &row, const QString &widget = {});
/// In a table or list of Qt's.
void clickItem(const QString &view, const QString &text);
/// In the menu that is open or, where none is, in the menu bar.
void choose(const QString &menuItem);
/// Clicks a field and types over what is in it.
void fill(const QString &field, const QString &text);
/// Where the keyboard's focus is.
void type(const QString &text);
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

}  // namespace Person
