#include "View/TemplateIconButton.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionToolButton>

void TemplateIconButton::initStyleOption(QStyleOptionToolButton *option) const {
    QToolButton::initStyleOption(option);
    const int side = fontMetrics().height();
    option->iconSize = option->iconSize.expandedTo(QSize(side, side));
    if (!option->icon.isMask()) {
        return;
    }
    // Under the pointer the style paints the ground of a button.
    const bool isRaised =
        !autoRaise() || (option->state & (QStyle::State_MouseOver | QStyle::State_Sunken));
    QPixmap picture = option->icon.pixmap(option->iconSize, devicePixelRatioF());
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(),
                     option->palette.color(isRaised ? QPalette::ButtonText : QPalette::WindowText));
    painter.end();
    option->icon = QIcon(picture);
}
