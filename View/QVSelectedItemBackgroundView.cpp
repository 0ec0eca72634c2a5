#include "View/QVSelectedItemBackgroundView.h"

#include <QtGui/QAccessible>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QStyleHints>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QProgressBar>

#include "Platform/Interface/ListPalette.h"
#include "Platform/KeyValue/KeyValue.h"

QVSelectedItemBackgroundView::QVSelectedItemBackgroundView(QWidget *parent) : Control(parent) {
    setPalette(ListPalette::normal());
}

void QVSelectedItemBackgroundView::setSelected(bool selected) {
    const bool isChanged = m_isSelected != selected;
    m_isSelected = selected;
    update();
    const BackgroundStyle style = selected ? BackgroundStyle::Dark : BackgroundStyle::Light;
    for (QWidget *control : controls()) {
        if (backgroundStyle(control) != style) {
            setBackgroundStyle(control, style);
        }
    }
    updateBars();
    if (isChanged && isVisible()) {
        notifyAssistiveTechnologies();
    }
    KeyValue::announce<&QVSelectedItemBackgroundView::selectedChanged>(this);
}

QAbstractButton *QVSelectedItemBackgroundView::checkBox() const {
    auto *box = m_checkBoxName.isEmpty()
                    ? nullptr
                    : findChild<QAbstractButton *>(m_checkBoxName, Qt::FindDirectChildrenOnly);
    return box && box->isEnabled() && !box->isHidden() ? box : nullptr;
}

void QVSelectedItemBackgroundView::notifyAssistiveTechnologies() {
    QAccessible::State state;
    state.selected = 1;
    QAccessibleStateChangeEvent stateChange(this, state);
    QAccessible::updateAccessibility(&stateChange);
    QAccessibleEvent selection(
        this, m_isSelected ? QAccessible::Selection : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&selection);
    const QWidget *focus = QApplication::focusWidget();
    if (m_isSelected && focus && focus->isAncestorOf(this)) {
        QAccessibleEvent focused(this, QAccessible::Focus);
        QAccessible::updateAccessibility(&focused);
    }
}

bool QVSelectedItemBackgroundView::event(QEvent *event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        setPalette(ListPalette::normal());
        for (QWidget *control : controls()) {
            // The others inherit the palette of this view.
            if (control->testAttribute(Qt::WA_SetPalette)) {
                setBackgroundStyle(control, backgroundStyle(control));
            }
        }
        updateBars();
    }
    return Control::event(event);
}

void QVSelectedItemBackgroundView::updateBars() {
    for (QProgressBar *bar : findChildren<QProgressBar *>(Qt::FindDirectChildrenOnly)) {
        bar->setPalette(m_isSelected ? ListPalette::selected() : ListPalette::normal());
    }
}

QList<QWidget *> QVSelectedItemBackgroundView::controls() const {
    QList<QWidget *> result;
    for (QObject *child : children()) {
        auto *view = qobject_cast<QWidget *>(child);
        if (view && isControl(view)) {
            result.append(view);
        }
    }
    return result;
}

void QVSelectedItemBackgroundView::focusInEvent(QFocusEvent * /*event*/) {
    clearFocus();
}

// Qt reports the third of several quick clicks here, but not the second: a press that follows a
// single one is too far away from it to be its second click.
void QVSelectedItemBackgroundView::mousePressEvent(QMouseEvent *event) {
    const bool isFurther =
        m_clickCount > 0 && m_clickCount % 2 == 0 && followsLastClickQuickly(*event);
    m_clickCount = event->button() != Qt::LeftButton ? 0 : isFurther ? m_clickCount + 1 : 1;
    rememberClick(*event);
    event->ignore();
}

bool QVSelectedItemBackgroundView::followsLastClickQuickly(const QMouseEvent &event) const {
    const QStyleHints &hints = *QGuiApplication::styleHints();
    const QPointF moved = event.globalPosition() - m_lastPosition;
    return event.timestamp() - m_lastClick <
               static_cast<quint64>(hints.mouseDoubleClickInterval()) &&
           qMax(qAbs(moved.x()), qAbs(moved.y())) <= hints.mouseDoubleClickDistance();
}

void QVSelectedItemBackgroundView::rememberClick(const QMouseEvent &event) {
    m_lastClick = event.timestamp();
    m_lastPosition = event.globalPosition();
}

// Qt calls this for every second click of a succession, including the fourth.
void QVSelectedItemBackgroundView::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    m_clickCount = qMax(m_clickCount, 1) + 1;
    rememberClick(*event);
    if (m_clickCount == 2) {
        Q_EMIT action();
    } else {
        event->ignore();
    }
}

void QVSelectedItemBackgroundView::paintEvent(QPaintEvent *event) {
    QPainter(this).fillRect(event->rect(), m_isSelected
                                               ? ListPalette::alternateSelectedControlColor()
                                               : ListPalette::groundColor());
}
