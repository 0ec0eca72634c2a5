#include "Platform/Interface/PlaceholderField.h"

#include <QtWidgets/QStyleOptionFrame>

QSize PlaceholderField::minimumSizeHint() const {
    // QLineEdit has this margin at each side of a text.
    constexpr int margin = 2;
    // And it keeps what some letters might need at their left.
    const int bearing = qMax(0, -fontMetrics().minLeftBearing());
    const int text = fontMetrics().horizontalAdvance(placeholderText()) + bearing + 2 * margin;
    QStyleOptionFrame option;
    initStyleOption(&option);
    const QSize hint = QLineEdit::minimumSizeHint();
    return hint.expandedTo(
        style()->sizeFromContents(QStyle::CT_LineEdit, &option, {text, 0}, this));
}
