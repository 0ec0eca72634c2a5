#include "Platform/Interface/HeightKeeper.h"

#include <QtCore/QEvent>
#include <QtWidgets/QLayout>
#include <QtWidgets/QWidget>

HeightKeeper::HeightKeeper(QWidget *window) : QObject(window), m_window(window) {
    window->installEventFilter(this);
}

bool HeightKeeper::eventFilter(QObject * /*watched*/, QEvent *event) {
    const QLayout *layout = m_window->layout();
    const bool mayChange = event->type() == QEvent::LayoutRequest ||
                           event->type() == QEvent::Resize || event->type() == QEvent::Show;
    if (mayChange && layout && layout->hasHeightForWidth()) {
        m_window->setMinimumHeight(layout->totalMinimumHeightForWidth(m_window->width()));
    }
    return false;
}
