#include "Platform/Interface/ListPalette.h"

#include <QtGui/QGuiApplication>

#include "Platform/Interface/Contrast.h"

namespace {

constexpr float BarOpacity = 0.6F;

QPalette paletteOnGround(const QPalette &application) {
    QPalette palette = application;
    for (const QPalette::ColorGroup group :
         {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Window,
                         application.color(QPalette::Active, QPalette::Base));
        palette.setColor(group, QPalette::WindowText, application.color(group, QPalette::Text));
    }
    return palette;
}

}  // namespace

QPalette ListPalette::normal() {
    // Cached, because every row of a list uses it and Qt compares copies of one palette quickly.
    static QPalette application = QGuiApplication::palette();
    static QPalette palette = paletteOnGround(application);
    if (const QPalette current = QGuiApplication::palette(); current != application) {
        application = current;
        palette = paletteOnGround(application);
    }
    return palette;
}

QPalette ListPalette::selected() {
    QPalette palette = normal();
    const QColor text =
        QGuiApplication::palette().color(QPalette::Active, QPalette::HighlightedText);
    palette.setColor(QPalette::WindowText, text);
    const QColor ground = alternateSelectedControlColor();
    palette.setColor(QPalette::Window, ground);
    // Busy bars are painted in it.
    QColor bar = text;
    bar.setAlphaF(BarOpacity);
    palette.setColor(
        QPalette::Highlight,
        Contrast::blended(Contrast::legible(bar, ground, Contrast::OfOutline), ground));
    return palette;
}

QColor ListPalette::groundColor() {
    return QGuiApplication::palette().color(QPalette::Active, QPalette::Base);
}

QColor ListPalette::alternateSelectedControlColor() {
    return QGuiApplication::palette().color(QPalette::Active, QPalette::Highlight);
}
