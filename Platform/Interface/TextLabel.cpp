#include "Platform/Interface/TextLabel.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QToolTip>

#include "Platform/Interface/Contrast.h"
#include "Platform/Interface/Control.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr int HalfLightness = 128;
/// Returns the frame of `text` wrapped at `width`: between words if each fits.
QRect wrappedFrame(const QFontMetrics &metrics, int width, int flags, const QString &text) {
    return metrics.boundingRect(0, 0, width, QWIDGETSIZE_MAX, flags, text);
}

/// Returns whether `text` needs one line at `width`. QPainter wraps some texts that just fit,
/// because it does not round their width.
bool isOneLine(const QFontMetrics &metrics, int width, const QString &text) {
    return metrics.horizontalAdvance(text) <= width;
}

/// Returns the flags with which no part of `text` is cut off at `width`.
int wrapFlags(const QFontMetrics &metrics, int width, const QString &text) {
    const bool fits = wrappedFrame(metrics, width, Qt::TextWordWrap, text).width() <= width;
    return fits ? Qt::TextWordWrap : Qt::TextWrapAnywhere;
}

}  // namespace

TextLabel::TextLabel(QWidget *parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void TextLabel::setTextColor(const QColor &color) {
    m_textColor = color;
    update();
}

QColor TextLabel::paintedColor() const {
    if (!m_textColor.isValid() || !isEnabled()) {
        return palette().color(foregroundRole());
    }
    const QColor ground = palette().color(QPalette::Window);
    const bool isSelected = Control::backgroundStyle(this) == Control::BackgroundStyle::Dark;
    QColor color = m_textColor;
    if (isSelected || ground.lightness() < HalfLightness) {
        color = palette().color(foregroundRole());
        color.setAlphaF(m_textColor.alphaF());
    }
    return Contrast::legible(color, ground);
}

QSize TextLabel::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(text()) + 2, metrics.height()};
}

QSize TextLabel::minimumSizeHint() const {
    return {0, fontMetrics().height()};
}

int TextLabel::heightForWidth(int width) const {
    if (!wordWrap()) {
        return -1;
    }
    const QFontMetrics metrics = fontMetrics();
    if (isOneLine(metrics, width, text())) {
        return metrics.height();
    }
    return wrappedFrame(metrics, width, wrapFlags(metrics, width, text()), text()).height();
}

bool TextLabel::event(QEvent *event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && !wordWrap() &&
        fontMetrics().horizontalAdvance(text()) > width()) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           PlainText::toolTip(text()), this);
        return true;
    }
    return QLabel::event(event);
}

void TextLabel::paintEvent(QPaintEvent * /*event*/) {
    QPainter painter(this);
    painter.setPen(paintedColor());
    if (wordWrap()) {
        const int flags = isOneLine(fontMetrics(), width(), text())
                              ? Qt::TextSingleLine
                              : wrapFlags(fontMetrics(), width(), text());
        painter.drawText(rect(), static_cast<int>(alignment()) | flags, text());
        return;
    }
    painter.drawText(rect(), static_cast<int>(alignment()),
                     fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}
