#include "View/ListRow.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include "Platform/Interface/Contrast.h"

namespace {

constexpr int textSpacing = 1;
/// Of the ring of the focus: from the child to the middle of its line.
constexpr int RingDistance = 3;
constexpr int RingWidth = 2;
constexpr int RingRadius = 3;

enum class Place { None, Leading, Text, Trailing };

Place placeOf(const QWidget *child) {
    const QString name = child->property("rowPlace").toString();
    if (name == QLatin1StringView("leading")) {
        return Place::Leading;
    }
    if (name == QLatin1StringView("text")) {
        return Place::Text;
    }
    return name == QLatin1StringView("trailing") ? Place::Trailing : Place::None;
}

QSize wantedSize(const QWidget *child) {
    return child->sizeHint().expandedTo(child->minimumSize()).boundedTo(child->maximumSize());
}

/// The children of a row by place, in creation order.
struct Children {
    explicit Children(const QWidget *row) {
        for (QObject *object : row->children()) {
            if (!object->isWidgetType()) {
                continue;
            }
            auto *child = static_cast<QWidget *>(object);
            switch (placeOf(child)) {
                case Place::Leading:
                    leading.append(child);
                    break;
                case Place::Text:
                    texts.append(child);
                    break;
                case Place::Trailing:
                    trailing.append(child);
                    break;
                case Place::None:
                    break;
            }
        }
    }

    QList<QWidget *> leading;
    QList<QWidget *> texts;
    QList<QWidget *> trailing;
};

/// The distances in a row, derived from the height of its font.
struct Distances {
    explicit Distances(const QWidget *row) : fontHeight(row->fontMetrics().height()) {}

    int horizontal() const { return fontHeight * 5 / 8; }
    int vertical() const { return fontHeight * 7 / 16; }

    int fontHeight;
};

int heightOfText(const QWidget *text, int width) {
    return text->hasHeightForWidth() ? text->heightForWidth(width)
                                     : text->minimumSizeHint().height();
}

int heightOfTexts(const QList<QWidget *> &texts, int width) {
    int height = 0;
    for (const QWidget *text : texts) {
        height += heightOfText(text, width) + textSpacing;
    }
    return height - (texts.isEmpty() ? 0 : textSpacing);
}

/// Returns the width that the row leaves to its texts.
int widthOfTexts(const QWidget *row, const Children &children) {
    const int distance = Distances(row).horizontal();
    int width = row->width() - 2 * distance;
    for (const QWidget *child : children.leading + children.trailing) {
        width -= child->isHidden() ? 0 : wantedSize(child).width() + distance;
    }
    return qMax(0, width);
}

int heightOfRow(const QWidget *row) {
    const Children children(row);
    int height = heightOfTexts(children.texts, widthOfTexts(row, children));
    for (const QWidget *child : children.leading + children.trailing) {
        height = qMax(height, wantedSize(child).height());
    }
    return height + 2 * Distances(row).vertical();
}

}  // namespace

QSize ListRow::sizeHint() const {
    const Children children(this);
    const int distance = Distances(this).horizontal();
    int width = distance;
    for (const QWidget *child : children.leading + children.trailing) {
        width += child->isHidden() ? 0 : wantedSize(child).width() + distance;
    }
    int widestText = 0;
    for (const QWidget *text : children.texts) {
        widestText = qMax(widestText, text->isHidden() ? 0 : wantedSize(text).width());
    }
    return {width + widestText + distance, heightOfRow(this)};
}

bool ListRow::event(QEvent *event) {
    if (event->type() == QEvent::ParentChange && parentWidget() && !m_isFitted) {
        fitHeight();
    }
    if (event->type() == QEvent::LayoutRequest) {
        fitHeight();
        placeChildren();
    }
    return QVSelectedItemBackgroundView::event(event);
}

void ListRow::changeEvent(QEvent *event) {
    switch (event->type()) {
        case QEvent::FontChange:
        case QEvent::StyleChange:
            fitHeight();
            [[fallthrough]];
        case QEvent::LayoutDirectionChange:
            placeChildren();
            break;
        default:
            break;
    }
    QVSelectedItemBackgroundView::changeEvent(event);
}

void ListRow::childEvent(QChildEvent *event) {
    if (event->added()) {
        event->child()->installEventFilter(this);
    }
    QVSelectedItemBackgroundView::childEvent(event);
}

bool ListRow::eventFilter(QObject *object, QEvent *event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    return QVSelectedItemBackgroundView::eventFilter(object, event);
}

void ListRow::paintEvent(QPaintEvent *event) {
    QVSelectedItemBackgroundView::paintEvent(event);
    const QWidget *child = QApplication::focusWidget();
    if (!child || child->parentWidget() != this) {
        return;
    }
    const QColor color = isSelected() ? palette().color(QPalette::Active, QPalette::HighlightedText)
                                      : Contrast::focus(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, RingWidth));
    painter.drawRoundedRect(QRectF(child->geometry()).marginsAdded(QMarginsF() + RingDistance),
                            RingRadius, RingRadius);
}

void ListRow::hideEvent(QHideEvent *event) {
    m_wasHidden = true;
    QVSelectedItemBackgroundView::hideEvent(event);
}

void ListRow::showEvent(QShowEvent *event) {
    // A hidden row is not notified of changes in its children.
    if (m_wasHidden) {
        fitHeight();
        placeChildren();
    }
    QVSelectedItemBackgroundView::showEvent(event);
}

void ListRow::resizeEvent(QResizeEvent *event) {
    if (event->oldSize().width() != event->size().width()) {
        fitHeight();
    }
    placeChildren();
    QVSelectedItemBackgroundView::resizeEvent(event);
}

void ListRow::fitHeight() {
    m_isFitted = true;
    const int needed = heightOfRow(this);
    if (needed != height()) {
        resize(width(), needed);
        updateGeometry();
    }
}

void ListRow::placeChildren() {
    const Children children(this);
    const Distances distances(this);
    int start = distances.horizontal();
    int end = width() - distances.horizontal();
    const auto place = [this](QWidget *child, const QRect &frame) {
        child->setGeometry(QStyle::visualRect(layoutDirection(), rect(), frame));
    };
    const auto centred = [this](int x, const QSize &size) {
        return QRect(QPoint(x, (height() - size.height()) / 2), size);
    };

    for (QWidget *child : children.leading) {
        if (!child->isHidden()) {
            const QSize size = wantedSize(child);
            place(child, centred(start, size));
            start += size.width() + distances.horizontal();
        }
    }
    for (auto child = children.trailing.rbegin(); child != children.trailing.rend(); ++child) {
        if (!(*child)->isHidden()) {
            const QSize size = wantedSize(*child);
            end -= size.width();
            place(*child, centred(end, size));
            end -= distances.horizontal();
        }
    }
    const int textWidth = qMax(0, end - start);
    int y = (height() - heightOfTexts(children.texts, textWidth)) / 2;
    for (QWidget *text : children.texts) {
        const int textHeight = heightOfText(text, textWidth);
        place(text, QRect(start, y, textWidth, textHeight));
        y += textHeight + textSpacing;
    }
}
