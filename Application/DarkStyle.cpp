#include "Application/DarkStyle.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOption>

namespace {

constexpr int HalfLightness = 128;

}  // namespace

DarkStyle::DarkStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void DarkStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                              QPainter *painter, const QWidget *widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isBox = element == PE_IndicatorCheckBox;
    const bool isIndicator = isBox || element == PE_IndicatorRadioButton;
    if (!isIndicator || option->palette.color(QPalette::Base).lightness() >= HalfLightness) {
        return;
    }
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(option->palette.color(QPalette::PlaceholderText));
    if (isBox) {
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    } else {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->drawEllipse(QRectF(option->rect).adjusted(1, 1, -1, -1));
    }
    painter->restore();
}
