#include "Platform/Interface/ListPalette.h"

#include <QtGui/QGuiApplication>

QPalette ListPalette::normal() {
    QPalette palette(QColor(0xef, 0xef, 0xef), Qt::white);
    const QPalette application = QGuiApplication::palette();
    for (const QPalette::ColorRole role : {QPalette::Highlight, QPalette::HighlightedText}) {
        palette.setColor(role, application.color(role));
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
