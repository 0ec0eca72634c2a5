#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QPoint>
#include <QtCore/QString>
#include <functional>
#include <future>
#include <stdexcept>

class QWidget;
class QWindow;

/// Raised if something does not happen in time; `what` is a sentence.
class TourFailure : public std::runtime_error {
public:
    explicit TourFailure(const QString &sentence) : std::runtime_error(sentence.toStdString()) {}
};

/// Runs `call` on the main thread, also while a menu or panel runs a nested event loop there.
/// Returns its result, or raises its exception. Must be called on another thread.
template <class Call>
auto onMainThread(Call call) {
    std::packaged_task<std::invoke_result_t<Call>()> task(std::move(call));
    auto result = task.get_future();
    QMetaObject::invokeMethod(
        qApp, [&task] { task(); }, Qt::QueuedConnection);
    return result.get();
}

/// A simulated user at the mouse and keyboard of this process, whose events reach the windows as
/// they do from a desktop. Each function waits for the widget that it needs, and raises a
/// TourFailure if it does not appear in time. Widgets are named as in Screen.h. Must be called on a
/// thread other than the main thread, on which menus and panels run nested event loops.
namespace User {

/// Waits until `condition`, evaluated on the main thread, is true. `what` describes it for the
/// failure.
void await(const QString &what, const std::function<bool()> &condition);

/// Brings the window with that title to the front.
void turnTo(const QString &title);
void click(const QString &widget);
/// Clicks in the row of `list` that shows `row`: on the row itself, or on a widget in it.
void clickRow(const QString &list, const QString &row, const QString &widget = {});
/// Clicks an item of a QTableView or QListView.
void clickItem(const QString &view, const QString &text);
/// Chooses an item of the open menu or, if none is open, of the menu bar.
void choose(const QString &menuItem);
/// Clicks a field and replaces its text.
void fill(const QString &field, const QString &text);
/// Types into the widget with the keyboard focus.
void type(const QString &text);
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

}  // namespace User
