#include "Support/ShownContrast.h"

#include <QtCore/QHash>
#include <QtGui/QImage>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QToolButton>

#include "Platform/Interface/Contrast.h"

namespace {

QColor mostFrequent(const QImage &picture, const QRect &place) {
    QHash<QRgb, int> counts;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    const auto found = std::max_element(counts.begin(), counts.end());
    return found == counts.end() ? QColor() : QColor(found.key());
}

double greatestRatio(const QImage &picture, const QRect &place, const QColor &ground) {
    double greatest = 1;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            greatest = qMax(greatest, Contrast::ratio(picture.pixelColor(x, y), ground));
        }
    }
    return greatest;
}

bool isPartOfField(const QWidget *widget) {
    return qobject_cast<const QAbstractSpinBox *>(widget->parentWidget()) ||
           qobject_cast<const QComboBox *>(widget->parentWidget());
}

/// Returns the frame of the check mark or of the whole control; empty for what has no outline.
QRect outlineOf(const QWidget *widget) {
    QStyleOptionButton option;
    option.initFrom(widget);
    if (qobject_cast<const QCheckBox *>(widget)) {
        return widget->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, widget);
    }
    if (qobject_cast<const QRadioButton *>(widget)) {
        return widget->style()->subElementRect(QStyle::SE_RadioButtonIndicator, &option, widget);
    }
    const auto *area = qobject_cast<const QAbstractScrollArea *>(widget);
    const auto *tool = qobject_cast<const QToolButton *>(widget);
    const bool hasFrame =
        (area && area->frameShape() != QFrame::NoFrame) || (tool && !tool->autoRaise()) ||
        qobject_cast<const QPushButton *>(widget) || qobject_cast<const QLineEdit *>(widget) ||
        qobject_cast<const QAbstractSpinBox *>(widget) || qobject_cast<const QComboBox *>(widget);
    return hasFrame && !isPartOfField(widget) ? widget->rect() : QRect();
}

/// Returns where the text of `widget` is; empty if it has none.
QRect textOf(const QWidget *widget) {
    constexpr int Frame = 4;
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        return label->text().isEmpty() ? QRect() : label->rect();
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        if (button->text().isEmpty()) {
            return {};
        }
        const bool hasMark =
            qobject_cast<const QCheckBox *>(widget) || qobject_cast<const QRadioButton *>(widget);
        return hasMark ? button->rect().adjusted(outlineOf(widget).right() + Frame, 0, 0, 0)
                       : button->rect().adjusted(Frame, Frame, -Frame, -Frame);
    }
    const auto *field = qobject_cast<const QLineEdit *>(widget);
    const bool hasText = field && !(field->text().isEmpty() && field->placeholderText().isEmpty());
    return hasText ? field->rect().adjusted(Frame, Frame, -Frame, -Frame) : QRect();
}

/// Returns whether users need to read `widget`: what is disabled may be paler as long as it can be
/// seen, but not a text that is not the label of something disabled.
bool informs(const QWidget &widget) {
    const auto *label = qobject_cast<const QLabel *>(&widget);
    return widget.isEnabled() || (label && !label->buddy());
}

/// Checks the picture of one window.
class PictureCheck {
public:
    explicit PictureCheck(QWidget &window) : m_window(window), m_picture(window.grab().toImage()) {}

    QStringList problems() {
        for (const QWidget *widget : m_window.findChildren<QWidget *>()) {
            if (widget->window() != &m_window || !widget->isVisible()) {
                continue;
            }
            const QString name = QStringLiteral("%1 “%2”").arg(
                widget->objectName(), widget->property("text").toString().left(40));
            checkText(name, inPicture(widget, textOf(widget)),
                      informs(*widget) ? Contrast::OfText : Contrast::OfOutline);
            checkOutline(name, inPicture(widget, outlineOf(widget)));
            if (!informs(*widget)) {
                continue;
            }
            checkIcon(name, *widget);
            checkPicture(name, *widget);
            checkBar(name, *widget);
            if (const auto *view = qobject_cast<const QAbstractItemView *>(widget)) {
                checkItems(*view);
            }
        }
        return m_problems;
    }

private:
    /// Returns the visible part of a rectangle of `widget`.
    QRect inPicture(const QWidget *widget, QRect place) const {
        for (const QWidget *each = widget; each != &m_window; each = each->parentWidget()) {
            place = (place & each->rect()).translated(each->pos());
        }
        return place & m_picture.rect();
    }

    void checkText(const QString &name, const QRect &place, double minimum) {
        if (place.isEmpty()) {
            return;
        }
        const double ratio = greatestRatio(m_picture, place, mostFrequent(m_picture, place));
        if (ratio < minimum) {
            m_problems.append(QStringLiteral("text of %1: %2").arg(name).arg(ratio));
        }
    }

    void checkOutline(const QString &name, const QRect &frame) {
        constexpr int Depth = 4;
        if (frame.width() < 2 * Depth || frame.left() < 2) {
            return;
        }
        const QColor ground = m_picture.pixelColor(frame.left() - 2, frame.center().y());
        const double ratio =
            greatestRatio(m_picture, QRect(frame.left(), frame.center().y(), Depth, 1), ground);
        if (ratio < Contrast::OfOutline) {
            m_problems.append(QStringLiteral("outline of %1: %2").arg(name).arg(ratio));
        }
    }

    void checkIcon(const QString &name, const QWidget &widget) {
        const auto *button = qobject_cast<const QToolButton *>(&widget);
        if (!button || !button->text().isEmpty() || button->icon().isNull()) {
            return;
        }
        checkPictureAt(QStringLiteral("icon of %1").arg(name), inPicture(button, button->rect()));
    }

    /// Checks the picture at a place whose first pixel is ground.
    void checkPictureAt(const QString &name, const QRect &place) {
        const double ratio = place.isEmpty() ? Contrast::OfOutline
                                             : greatestRatio(m_picture, place,
                                                             m_picture.pixelColor(place.topLeft()));
        if (ratio < Contrast::OfOutline) {
            m_problems.append(QStringLiteral("%1: %2").arg(name).arg(ratio));
        }
    }

    void checkPicture(const QString &name, const QWidget &widget) {
        const auto *label = qobject_cast<const QLabel *>(&widget);
        if (!label || label->pixmap(Qt::ReturnByValue).isNull()) {
            return;
        }
        checkPictureAt(QStringLiteral("picture of %1").arg(name), inPicture(label, label->rect()));
    }

    /// Checks the largest part of a busy bar, and the beginning of another one.
    void checkBar(const QString &name, const QWidget &widget) {
        constexpr int Depth = 4;
        const auto *bar = qobject_cast<const QProgressBar *>(&widget);
        const QRect place = bar ? inPicture(bar, bar->rect()) : QRect();
        if (place.width() < 3 * Depth || place.left() < 2) {
            return;
        }
        const bool isBusy = bar->minimum() == bar->maximum();
        const QRect line(place.left() + Depth, place.center().y(), place.width() - 2 * Depth, 1);
        const QColor ground =
            m_picture.pixelColor(isBusy ? place.left() - 2 : line.right(), line.top());
        const QColor part =
            isBusy ? mostFrequent(m_picture, line) : m_picture.pixelColor(line.topLeft());
        const double ratio = Contrast::ratio(part, ground);
        const bool isPartial = bar->value() > bar->minimum() && bar->value() < bar->maximum();
        if ((isBusy || isPartial) && ratio < Contrast::OfOutline) {
            m_problems.append(QStringLiteral("bar %1: %2").arg(name).arg(ratio));
        }
    }

    void checkItems(const QAbstractItemView &view) {
        for (int row = 0; view.model() && row < view.model()->rowCount(); ++row) {
            const QModelIndex index = view.model()->index(row, 0);
            const QString text = index.data().toString();
            if (!text.isEmpty()) {
                checkText(text, inPicture(view.viewport(), view.visualRect(index)),
                          Contrast::OfText);
            }
        }
    }

    const QWidget &m_window;
    const QImage m_picture;
    QStringList m_problems;
};

}  // namespace

QStringList ShownContrast::problems(QWidget &window) {
    return PictureCheck(window).problems();
}
