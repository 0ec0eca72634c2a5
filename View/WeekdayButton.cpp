#include "View/WeekdayButton.h"

#include <QtGui/QPainter>

#include "Platform/Interface/Contrast.h"

namespace {

constexpr double Radius = 3;

}  // namespace

WeekdayButton::WeekdayButton(QWidget *parent) : QToolButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
}

QColor WeekdayButton::textColor() const {
    return palette().color(isChecked() && isEnabled() ? QPalette::HighlightedText : QPalette::Text);
}

QColor WeekdayButton::frameColor() const {
    return hasFocus() ? Contrast::focus(palette()) : Contrast::outline(palette());
}

void WeekdayButton::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isChosen = isChecked() && isEnabled();
    const QColor chosen = Contrast::focus(palette());
    painter.setBrush(isChosen ? chosen
                              : palette().color(isEnabled() ? QPalette::Base : QPalette::Window));
    painter.setPen(isChosen ? chosen : frameColor());
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    painter.setPen(textColor());
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (hasFocus()) {
        painter.setPen(isChosen ? textColor() : frameColor());
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), 1, 1);
    }
}
