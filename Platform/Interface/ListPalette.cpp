#include "Platform/Interface/ListPalette.h"

#include <QtGui/QGuiApplication>

namespace {

QPalette lightPalette(const QPalette &application) {
    QPalette palette(QColor(0xef, 0xef, 0xef), Qt::white);
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText}) {
        palette.setColor(role, application.color(role));
    }
    return palette;
}

}  // namespace

QPalette ListPalette::normal() {
    // Cached, because every row of a list uses it and Qt compares copies of one palette quickly.
    static QPalette application = QGuiApplication::palette();
    static QPalette palette = lightPalette(application);
    if (const QPalette current = QGuiApplication::palette(); current != application) {
        application = current;
        palette = lightPalette(application);
    }
    return palette;
}

QPalette ListPalette::selected() {
    QPalette palette = normal();
    const QColor text = palette.color(QPalette::HighlightedText);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Window, alternateSelectedControlColor());
    return palette;
}

QColor ListPalette::alternateSelectedControlColor() {
    return QGuiApplication::palette().color(QPalette::Active, QPalette::Highlight);
}
