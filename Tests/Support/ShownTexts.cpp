#include "Support/ShownTexts.h"

#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionFrame>

#include "Platform/Interface/TextLabel.h"

namespace {

QString nameOf(const QWidget *widget) {
    return QStringLiteral("%1 “%2”").arg(widget->objectName().isEmpty()
                                             ? QLatin1StringView(widget->metaObject()->className())
                                             : widget->objectName(),
                                         widget->property("text").toString().left(40));
}

bool isText(const QWidget *widget) {
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        return !label->text().isEmpty();
    }
    const bool isPart = qobject_cast<const QAbstractSpinBox *>(widget->parentWidget()) ||
                        qobject_cast<const QComboBox *>(widget->parentWidget());
    return !isPart &&
           (qobject_cast<const QAbstractButton *>(widget) ||
            qobject_cast<const QAbstractSpinBox *>(widget) ||
            qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QComboBox *>(widget) ||
            qobject_cast<const QGroupBox *>(widget));
}

/// A field that shows its placeholder, with access to what its text is given.
class Placeholder : public QLineEdit {
public:
    /// Returns the width that `field` needs for its placeholder; 0 if it has none, or a text
    /// instead.
    static int neededWidth(const QLineEdit *field) {
        if (!field->text().isEmpty() || field->placeholderText().isEmpty()) {
            return 0;
        }
        QStyleOptionFrame option;
        (field->*(&Placeholder::initStyleOption))(&option);
        const int contents =
            field->style()->subElementRect(QStyle::SE_LineEditContents, &option, field).width();
        const QMargins margins = field->textMargins();
        // QLineEdit's own margin.
        constexpr int margin = 2;
        const QFontMetrics font = field->fontMetrics();
        return field->width() - contents + margins.left() + margins.right() + 2 * margin +
               qMax(0, -font.minLeftBearing()) + font.horizontalAdvance(field->placeholderText());
    }
};

/// Returns the size that the text needs at the present width.
QSize neededSize(const QWidget *widget) {
    const auto *label = qobject_cast<const QLabel *>(widget);
    if (label && label->wordWrap()) {
        const int height = label->heightForWidth(label->width());
        // A label of any width is wrapped within words if need be.
        const bool isOfAnyWidth = label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        if (isOfAnyWidth || !qobject_cast<const TextLabel *>(label)) {
            return {qMin(label->minimumSizeHint().width(), label->width()), height};
        }
        // Its longest word, or nothing that is wider than the label.
        const QRect words = label->fontMetrics().boundingRect(0, 0, label->width(), QWIDGETSIZE_MAX,
                                                              Qt::TextWordWrap, label->text());
        return {words.width(), height};
    }
    if (label) {
        return label->sizeHint();
    }
    const QSize hint =
        qobject_cast<const QGroupBox *>(widget) ? widget->minimumSizeHint() : widget->sizeHint();
    const auto *field = qobject_cast<const QLineEdit *>(widget);
    return {field ? Placeholder::neededWidth(field) : hint.width(), hint.height()};
}

/// Returns the part of `widget` that its ancestors let show, in coordinates of `window`; the
/// contents of a scroll area show completely.
QRect visibleFrame(const QWidget *widget, const QWidget *window) {
    QRect frame(widget->mapTo(window, QPoint()), widget->size());
    for (const QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QScrollArea *>(parent->parentWidget())) {
            return frame;
        }
        frame &=
            QRect(parent == window ? QPoint() : parent->mapTo(window, QPoint()), parent->size());
        if (parent == window) {
            break;
        }
    }
    return frame;
}

/// Returns the scroll area in which `widget` is; null if there is none.
const QWidget *scrollAreaOf(const QWidget *widget) {
    for (const QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea *>(parent)) {
            return parent;
        }
    }
    return nullptr;
}

QString describe(const QSize &size) {
    return QStringLiteral("%1×%2").arg(size.width()).arg(size.height());
}

}  // namespace

QStringList ShownTexts::problems(const QWidget &window) {
    QStringList problems;
    QList<const QWidget *> texts;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (widget->window() != &window || !widget->isVisible()) {
            continue;
        }
        const bool isList = qobject_cast<const QAbstractScrollArea *>(widget);
        if (isText(widget)) {
            const QSize needed = neededSize(widget);
            const QSize seen = visibleFrame(widget, &window).size();
            if (seen.width() < needed.width() || seen.height() < needed.height()) {
                problems.append(QStringLiteral("%1 is cut off: %2 of %3")
                                    .arg(nameOf(widget), describe(seen), describe(needed)));
            }
        }
        if (isText(widget) || isList) {
            texts.append(widget);
        }
    }
    for (qsizetype i = 0; i < texts.size(); ++i) {
        for (qsizetype j = i + 1; j < texts.size(); ++j) {
            const QWidget *one = texts.at(i);
            const QWidget *other = texts.at(j);
            const bool isNested = one->isAncestorOf(other) || other->isAncestorOf(one);
            if (!isNested && scrollAreaOf(one) == scrollAreaOf(other) &&
                visibleFrame(one, &window).intersects(visibleFrame(other, &window))) {
                problems.append(QStringLiteral("%1 overlaps %2").arg(nameOf(one), nameOf(other)));
            }
        }
    }
    return problems;
}

void ShownTexts::fill(QWidget &window) {
    for (QLabel *label : window.findChildren<QLabel *>()) {
        if (label->wordWrap() && label->text().isEmpty()) {
            label->setText(
                QStringLiteral("The server “dav.example.com” does not accept this user name and "
                               "password. Edit the location, enter them again, and check whether "
                               "the account is still valid."));
        }
        if (!label->text().isEmpty()) {
            label->show();
        }
    }
    for (QAbstractButton *button : window.findChildren<QAbstractButton *>()) {
        if (!button->text().isEmpty()) {
            button->show();
        }
    }
}
