#include "Platform/Interface/Mnemonics.h"

#include <QtCore/QRegularExpression>
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

/// Returns whether one key types `letter`, and a line below it leaves the shapes of its neighbors.
bool canBeMarked(QChar letter) {
    switch (letter.script()) {
        case QChar::Script_Arabic:
        case QChar::Script_Han:
        case QChar::Script_Hiragana:
        case QChar::Script_Katakana:
            return false;
        default:
            return letter.isLetterOrNumber() && letter.category() != QChar::Letter_Modifier;
    }
}

/// Returns where to mark `text`: at the first letter of a word, if possible; -1 if no letter is
/// free.
qsizetype placeOfMark(const QString &text, const QSet<QChar> &taken) {
    const auto isFree = [&](qsizetype i) {
        return canBeMarked(text.at(i)) && !taken.contains(text.at(i).toUpper());
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

/// Sentences, which are labels of tables, look wrong with one.
bool needsAddedLetter(const QString &text) {
    const bool isSentence = text.endsWith(u'.') || text.endsWith(u'。');
    return !isSentence &&
           std::any_of(text.begin(), text.end(), [](QChar each) { return each.isLetter(); }) &&
           std::none_of(text.begin(), text.end(), canBeMarked);
}

/// Returns `text` with `letter` in brackets. An ellipsis or a colon stays at the end.
QString withAddedLetter(const QString &text, QChar letter) {
    static const QRegularExpression end(QStringLiteral("[…:]?$"));
    const qsizetype place = text.indexOf(end);
    const bool hasBlanks = text.at(0).script() == QChar::Script_Arabic;
    return text.left(place) + QString(hasBlanks ? 1 : 0, u' ') +
           QStringLiteral("(&%1)").arg(letter) + text.mid(place);
}

/// Returns the first letter of the alphabet that is free; null if there is none.
QChar freeLetter(const QSet<QChar> &taken) {
    for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
        if (!taken.contains(letter)) {
            return letter;
        }
    }
    return {};
}

/// Returns `text` with a mark, whose letter is added to `taken`; `text` itself if none is free.
QString marked(QString text, QSet<QChar> &taken) {
    if (needsAddedLetter(text)) {
        const QChar letter = freeLetter(taken);
        taken.insert(letter);
        return letter.isNull() ? text : withAddedLetter(text, letter);
    }
    if (const qsizetype place = placeOfMark(text, taken); place >= 0) {
        taken.insert(text.at(place).toUpper());
        text.insert(place, u'&');
    }
    return text;
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
        widget->setProperty("text", marked(shownText(widget), taken));
    }
}
