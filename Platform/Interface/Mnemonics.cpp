#include "Platform/Interface/Mnemonics.h"

#include <QtCore/QSet>
#include <QtGui/QKeySequence>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolButton>
#include <algorithm>

namespace {

bool isInScrollArea(const QWidget *widget) {
    for (const QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea *>(parent)) {
            return true;
        }
    }
    return false;
}

QString shownText(const QWidget *widget) {
    return widget->property("text").toString();
}

bool hasMnemonic(const QWidget *widget) {
    const auto *label = qobject_cast<const QLabel *>(widget);
    return label ? label->buddy() && label->textFormat() != Qt::RichText
                 : qobject_cast<const QAbstractButton *>(widget) &&
                       !qobject_cast<const QToolButton *>(widget);
}

/// Returns the letter that is marked in `text`; null if there is none.
QChar markedLetter(const QString &text) {
    const QKeySequence key = QKeySequence::mnemonic(text);
    return key.isEmpty() ? QChar() : QChar(static_cast<char16_t>(key[0].key())).toUpper();
}

/// Returns where to mark `text`: at the first letter of a word, if possible; -1 if no letter is
/// free.
qsizetype placeOfMark(const QString &text, const QSet<QChar> &taken) {
    const auto isFree = [&](qsizetype i) {
        return text.at(i).isLetterOrNumber() && !taken.contains(text.at(i).toUpper());
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isFree(i) && (i == 0 || text.at(i - 1).isSpace())) {
            return i;
        }
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isFree(i)) {
            return i;
        }
    }
    return -1;
}

}  // namespace

void Mnemonics::assign(QWidget &window) {
    QWidgetList unmarked;
    QSet<QChar> taken;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (const auto *bar = qobject_cast<QMenuBar *>(widget)) {
            for (const QAction *menu : bar->actions()) {
                taken.insert(markedLetter(menu->text()));
            }
        }
        if (widget->window() != &window || isInScrollArea(widget) || !hasMnemonic(widget)) {
            continue;
        }
        const QChar letter = markedLetter(shownText(widget));
        if (letter.isNull()) {
            unmarked.append(widget);
        } else {
            taken.insert(letter);
        }
    }
    // Short texts have the least choice.
    std::stable_sort(unmarked.begin(), unmarked.end(),
                     [](const QWidget *one, const QWidget *other) {
                         return shownText(one).size() < shownText(other).size();
                     });
    for (QWidget *widget : std::as_const(unmarked)) {
        QString text = shownText(widget);
        if (const qsizetype place = placeOfMark(text, taken); place >= 0) {
            taken.insert(text.at(place).toUpper());
            widget->setProperty("text", text.insert(place, u'&'));
        }
    }
}
