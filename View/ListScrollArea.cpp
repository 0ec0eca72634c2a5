#include "View/ListScrollArea.h"

#include <QtGui/QAccessible>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>

#include "Platform/Interface/Contrast.h"
#include "Platform/Interface/Control.h"
#include "Platform/Interface/ListPalette.h"
#include "View/ListSelection.h"
#include "View/QVListView.h"
#include "View/QVSelectedItemBackgroundView.h"

namespace {

constexpr int FrameWidth = 2;

bool takesFocus(const QWidget *widget, Qt::FocusPolicy policy) {
    return (widget->focusPolicy() & policy) == policy && widget->isEnabled() &&
           widget->isVisible() && !widget->focusProxy();
}

}  // namespace

ListScrollArea::ListScrollArea(QWidget *parent) : QScrollArea(parent) {
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setLineWidth(FrameWidth);
    useListPalette();
}

void ListScrollArea::useListPalette() {
    viewport()->setPalette(ListPalette::normal());
}

QVListView *ListScrollArea::list() const {
    return qobject_cast<QVListView *>(widget());
}

QWidget *ListScrollArea::selectedView() const {
    const qsizetype row = list() ? ListSelection(list()).row() : -1;
    return row < 0 ? nullptr : list()->viewOfRow(row);
}

bool ListScrollArea::selectRow(qsizetype row) {
    if (!list() || !ListSelection(list()).select(row)) {
        return false;
    }
    // The selection may have changed the rows. Twice, because the rows on the way get their heights
    // when they come near.
    for (int i = 0; i < 2; ++i) {
        if (QWidget *view = selectedView()) {
            ensureWidgetVisible(view, 0, 0);
        }
    }
    return true;
}

// Keys

void ListScrollArea::keyPressEvent(QKeyEvent *event) {
    const Qt::KeyboardModifiers modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const bool isPlain = modifiers == Qt::NoModifier;
    const bool isTyped = isPlain || modifiers == Qt::ShiftModifier;
    const bool isUsed = isPlain && list() && !isBlankOfName(*event) &&
                        (moveSelection(event->key()) || useSelectedRow(event->key()));
    if (isUsed || (list() && isTyped && selectByName(*event))) {
        return;
    }
    QScrollArea::keyPressEvent(event);
}

qsizetype ListScrollArea::targetOfKey(int key) const {
    const ListSelection selection(list());
    const qsizetype selected = selection.row();
    const qsizetype last = list()->items().size() - 1;
    switch (key) {
        case Qt::Key_Up:
            return selection.acceptedFrom(selected < 0 ? last : selected - 1, -1);
        case Qt::Key_Down:
            return selection.acceptedFrom(selected + 1, 1);
        case Qt::Key_Home:
            return selection.acceptedFrom(0, 1);
        case Qt::Key_End:
            return selection.acceptedFrom(last, -1);
        case Qt::Key_PageUp:
            return selection.pageFromSelection(-1, viewport()->height());
        default:
            return selection.pageFromSelection(1, viewport()->height());
    }
}

bool ListScrollArea::moveSelection(int key) {
    const QList<int> keys = {Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,
                             Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    if (!keys.contains(key)) {
        return false;
    }
    selectRow(targetOfKey(key));
    return true;
}

bool ListScrollArea::useSelectedRow(int key) {
    QWidget *view = selectedView();
    auto *row = qobject_cast<Control *>(view);
    if (row && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        Q_EMIT row->action();
        return true;
    }
    const auto *background = qobject_cast<QVSelectedItemBackgroundView *>(view);
    QAbstractButton *box = background && key == Qt::Key_Space ? background->checkBox() : nullptr;
    if (box) {
        box->click();
    }
    return box != nullptr;
}

bool ListScrollArea::continuesTyping(const QKeyEvent &event) const {
    const auto interval = static_cast<quint64>(QApplication::keyboardInputInterval());
    return !m_typed.isEmpty() && event.timestamp() - m_lastTyped <= interval;
}

bool ListScrollArea::isBlankOfName(const QKeyEvent &event) {
    const ListSelection selection(list());
    return event.key() == Qt::Key_Space && continuesTyping(event) &&
           selection.rowWithPrefix(m_typed + event.text(), selection.row()) >= 0;
}

bool ListScrollArea::selectByName(const QKeyEvent &event) {
    const QString text = event.text();
    if (text.isEmpty() || !text.at(0).isPrint() ||
        (text.at(0).isSpace() && !isBlankOfName(event))) {
        return false;
    }
    const bool continues = continuesTyping(event);
    m_lastTyped = event.timestamp();
    // The same letter again selects the next row that begins with it.
    const bool isRepeated = continues && m_typed == text;
    m_typed = isRepeated || !continues ? text : m_typed + text;
    const ListSelection selection(list());
    const bool isFirst = m_typed.size() == text.size();
    selectRow(selection.rowWithPrefix(m_typed, selection.row() + (isFirst ? 1 : 0)));
    return true;
}

// The menu

void ListScrollArea::openMenu() {
    const QPoint place = inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, mapToGlobal(place));
    QCoreApplication::sendEvent(this, &event);
}

// The viewport passes the event here before the area itself gets it, which opens the menu.
void ListScrollArea::contextMenuEvent(QContextMenuEvent *event) {
    if (list() && event->reason() == QContextMenuEvent::Mouse) {
        const qsizetype row = list()->rowAt(list()->mapFromGlobal(event->globalPos()));
        event->setAccepted(row < 0 || !selectRow(row));
        return;
    }
    QScrollArea::contextMenuEvent(event);
}

QVariant ListScrollArea::inputMethodQuery(Qt::InputMethodQuery query) const {
    const QWidget *view = query == Qt::ImCursorRectangle ? selectedView() : nullptr;
    if (!view) {
        return QScrollArea::inputMethodQuery(query);
    }
    const QRect frame(view->mapTo(this, QPoint()), view->size());
    return frame & viewport()->geometry();
}

// The focus

void ListScrollArea::focusInEvent(QFocusEvent *event) {
    QScrollArea::focusInEvent(event);
    update();
    // Qt announces the area after this event.
    QMetaObject::invokeMethod(this, &ListScrollArea::announceFocus, Qt::QueuedConnection);
}

void ListScrollArea::focusOutEvent(QFocusEvent *event) {
    QScrollArea::focusOutEvent(event);
    update();
}

void ListScrollArea::announceFocus() {
    if (QWidget *view = hasFocus() ? selectedView() : nullptr) {
        QAccessibleEvent event(view, QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

QWidgetList ListScrollArea::focusStops() {
    QWidgetList stops{this};
    if (const QWidget *view = selectedView()) {
        for (auto *control : view->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (takesFocus(control, Qt::ClickFocus)) {
                stops.append(control);
            }
        }
    }
    return stops;
}

bool ListScrollArea::focusNextPrevChild(bool next) {
    const QWidgetList stops = focusStops();
    const qsizetype here = stops.indexOf(QApplication::focusWidget());
    const qsizetype target = here + (next ? 1 : -1);
    if (here >= 0 && target >= 0 && target < stops.size()) {
        stops.at(target)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        ensureWidgetVisible(stops.at(target), 0, 0);
        return true;
    }
    return here != 0 && next ? leaveForward() : QScrollArea::focusNextPrevChild(next);
}

// The rows stand elsewhere in the focus chain, wherever they were when they were added.
bool ListScrollArea::leaveForward() {
    for (QWidget *each = nextInFocusChain(); each != this; each = each->nextInFocusChain()) {
        if (takesFocus(each, Qt::TabFocus) && each->window() == window()) {
            each->setFocus(Qt::TabFocusReason);
            return true;
        }
    }
    return false;
}

// Painting and layout

bool ListScrollArea::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        useListPalette();
    }
    const bool isHandled = QScrollArea::event(event);
    if (event->type() == QEvent::Paint && frameWidth() > 0) {
        paintFrame();
    }
    return isHandled;
}

void ListScrollArea::paintFrame() {
    QPainter painter(this);
    painter.setClipRegion(QRegion(rect()) - contentsRect());
    if (hasFocus()) {
        painter.fillRect(rect(), Contrast::focus(palette()));
        return;
    }
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), Contrast::outline(palette()));
}

void ListScrollArea::resizeEvent(QResizeEvent *event) {
    QScrollArea::resizeEvent(event);
    if (list() && list()->width() != viewport()->width()) {
        list()->resize(viewport()->width(), list()->height());
        list()->layoutSubviews();
    }
}

void ListScrollArea::showEvent(QShowEvent *event) {
    // Rows of a hidden list do not report changes.
    if (list()) {
        list()->layoutSubviews();
    }
    QScrollArea::showEvent(event);
}

bool ListScrollArea::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::LayoutRequest && watched == list()) {
        list()->layoutSubviews();
    }
    return QScrollArea::eventFilter(watched, event);
}
