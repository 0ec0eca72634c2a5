#include "View/QVSelectedItemBackgroundView.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include "Platform/Interface/ListPalette.h"
#include "Platform/KeyValue/KeyValue.h"

QVSelectedItemBackgroundView::QVSelectedItemBackgroundView(QWidget *parent) : Control(parent) {
    setPalette(ListPalette::normal());
}

void QVSelectedItemBackgroundView::setSelected(bool selected) {
    m_isSelected = selected;
    update();
    styleControls();
    KeyValue::announce<&QVSelectedItemBackgroundView::selectedChanged>(this);
}

void QVSelectedItemBackgroundView::styleControls() {
    const BackgroundStyle style = m_isSelected ? BackgroundStyle::Dark : BackgroundStyle::Light;
    for (QObject *child : children()) {
        auto *view = qobject_cast<QWidget *>(child);
        if (view && isControl(view) && backgroundStyle(view) != style) {
            setBackgroundStyle(view, style);
        }
    }
}

void QVSelectedItemBackgroundView::changeEvent(QEvent *event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        styleControls();
    }
    Control::changeEvent(event);
}

void QVSelectedItemBackgroundView::focusInEvent(QFocusEvent * /*event*/) {
    clearFocus();
}

void QVSelectedItemBackgroundView::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    Q_EMIT action();
}

void QVSelectedItemBackgroundView::paintEvent(QPaintEvent *event) {
    QPainter(this).fillRect(event->rect(), m_isSelected
                                               ? ListPalette::alternateSelectedControlColor()
                                               : QColor(Qt::white));
}
