#include "Application/PaneArea.h"

#include <QtCore/QEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>
#include <QtWidgets/QScrollBar>

PaneArea::PaneArea(QWidget *parent) : QScrollArea(parent) {
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Queued, so that a list within the pane has scrolled to the control before.
    connect(qApp, &QApplication::focusChanged, this, &PaneArea::showFocus, Qt::QueuedConnection);
}

void PaneArea::setPane(QWidget *pane) {
    setWidget(pane);
    fitPane();
}

QSize PaneArea::sizeHint() const {
    return widget() ? widget()->sizeHint() : QScrollArea::sizeHint();
}

QSize PaneArea::minimumSizeHint() const {
    if (!widget()) {
        return {};
    }
    QSize needed = widget()->minimumSizeHint();
    if (neededHeight(needed.width()) > mostOfScreen().height()) {
        needed.rwidth() += verticalScrollBar()->sizeHint().width();
    }
    return needed.boundedTo(mostOfScreen());
}

int PaneArea::heightForWidth(int width) const {
    return widget() ? qMin(neededHeight(width), mostOfScreen().height()) : -1;
}

bool PaneArea::eventFilter(QObject *watched, QEvent *event) {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        fitPane();
    }
    return QScrollArea::eventFilter(watched, event);
}

void PaneArea::showEvent(QShowEvent *event) {
    QScrollArea::showEvent(event);
    fitPane();
}

void PaneArea::resizeEvent(QResizeEvent *event) {
    QScrollArea::resizeEvent(event);
    fitPane();
}

void PaneArea::showFocus() {
    QWidget *focus = QApplication::focusWidget();
    // What is being clicked must not move from under the pointer.
    const bool isClicked = QApplication::mouseButtons() != Qt::NoButton;
    if (focus && !isClicked && widget() && widget()->isAncestorOf(focus)) {
        ensureWidgetVisible(focus);
    }
}

void PaneArea::fitPane() {
    // Qt lays its bars out anew only while they can be seen.
    if (!widget() || !isVisible()) {
        return;
    }
    const QSize room = maximumViewportSize();
    const int least = widget()->minimumSizeHint().width();
    const int barWidth = verticalScrollBar()->sizeHint().width();
    const int barHeight = horizontalScrollBar()->sizeHint().height();
    bool isTooHigh = neededHeight(qMax(room.width(), least)) > room.height();
    const bool isTooWide = least > room.width() - (isTooHigh ? barWidth : 0);
    isTooHigh = isTooHigh || (isTooWide && neededHeight(least) > room.height() - barHeight);
    const int width = qMax(least, room.width() - (isTooHigh ? barWidth : 0));
    const int height = qMax(neededHeight(width), room.height() - (isTooWide ? barHeight : 0));
    setHorizontalScrollBarPolicy(isTooWide ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(isTooHigh ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    widget()->resize(width, height);
}

int PaneArea::neededHeight(int width) const {
    const QLayout *layout = widget()->layout();
    return layout && layout->hasHeightForWidth() ? layout->totalMinimumHeightForWidth(width)
                                                 : widget()->minimumSizeHint().height();
}

QSize PaneArea::mostOfScreen() const {
    // The title bar of the window needs room, too.
    const QSize available = screen()->availableSize();
    return {available.width(), available.height() * 9 / 10};
}
