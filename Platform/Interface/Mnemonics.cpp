#include "Platform/Interface/Mnemonics.h"

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtGui/QKeySequence>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolButton>
#include <algorithm>

namespace {

/// A list takes the focus, in contrast to an area that only scrolls.
bool isInList(const QWidget *widget) {
    for (const QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea *>(parent) &&
            parent->focusPolicy() != Qt::NoFocus) {
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

/// Returns where `text` can be marked: first at the beginnings of words.
QList<qsizetype> placesOfMark(const QString &text) {
    QList<qsizetype> beginnings;
    QList<qsizetype> others;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (canBeMarked(text.at(i))) {
            (i == 0 || text.at(i - 1).isSpace() ? beginnings : others).append(i);
        }
    }
    return beginnings + others;
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

/// Texts of one window and a letter for each of them, as far as there are enough.
class Letters {
public:
    /// The letters in `taken` are not used.
    explicit Letters(const QSet<QChar> &taken) : m_taken(taken) {}

    /// Texts that are added first get the better letters.
    void add(const QString &text) {
        m_texts.append(text);
        m_places.append(-1);
        const auto index = m_texts.size() - 1;
        if (needsAddedLetter(text)) {
            addLetter(index);
        } else if (!mark(index)) {
            QSet<QChar> tried;
            markInPlaceOfOthers(index, tried);
        }
    }

    /// Returns the text with its mark; without one if no letter was left.
    QString marked(qsizetype index) const {
        QString text = m_texts.at(index);
        return m_places.at(index) < 0 ? text : text.insert(m_places.at(index), u'&');
    }

private:
    QChar letterAt(qsizetype index, qsizetype place) const {
        return m_texts.at(index).at(place).toUpper();
    }

    void addLetter(qsizetype index) {
        for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
            if (!m_taken.contains(letter) && !m_owners.contains(letter)) {
                m_taken.insert(letter);
                m_texts[index] = withAddedLetter(m_texts.at(index), letter);
                return;
            }
        }
    }

    /// Returns whether the text got a letter that was free.
    bool mark(qsizetype index) {
        for (const qsizetype place : placesOfMark(m_texts.at(index))) {
            const QChar letter = letterAt(index, place);
            if (!m_taken.contains(letter) && !m_owners.contains(letter)) {
                m_owners.insert(letter, index);
                m_places[index] = place;
                return true;
            }
        }
        return false;
    }

    /// Returns whether the text got the letter of another one, which got another letter. Those in
    /// `tried` are not tried again.
    bool markInPlaceOfOthers(qsizetype index, QSet<QChar> &tried) {
        for (const qsizetype place : placesOfMark(m_texts.at(index))) {
            const QChar letter = letterAt(index, place);
            if (m_taken.contains(letter) || tried.contains(letter)) {
                continue;
            }
            tried.insert(letter);
            const qsizetype owner = m_owners.value(letter);
            if (mark(owner) || markInPlaceOfOthers(owner, tried)) {
                m_owners.insert(letter, index);
                m_places[index] = place;
                return true;
            }
        }
        return false;
    }

    QSet<QChar> m_taken;
    QStringList m_texts;
    /// Where each text is marked; -1 if it is not.
    QList<qsizetype> m_places;
    /// The texts by their letters.
    QHash<QChar, qsizetype> m_owners;
};

void assignToItems(const QMenu &menu) {
    QList<QAction *> unmarked;
    QSet<QChar> taken;
    for (QAction *item : menu.actions()) {
        const QChar letter = markedLetter(item->text());
        if (!letter.isNull()) {
            taken.insert(letter);
        } else if (!item->text().isEmpty()) {
            unmarked.append(item);
        }
    }
    Letters letters(taken);
    for (const QAction *item : std::as_const(unmarked)) {
        letters.add(item->text());
    }
    for (qsizetype i = 0; i < unmarked.size(); ++i) {
        // Qt would leave the brackets of a letter that was added.
        unmarked.at(i)->setIconText(unmarked.at(i)->iconText());
        unmarked.at(i)->setText(letters.marked(i));
    }
}

/// A menu that shares items with a larger one keeps their letters.
void assignToMenus(const QWidget &window) {
    QList<QMenu *> menus = window.findChildren<QMenu *>();
    std::stable_sort(menus.begin(), menus.end(), [](const QMenu *one, const QMenu *other) {
        return one->actions().size() > other->actions().size();
    });
    for (const QMenu *menu : std::as_const(menus)) {
        assignToItems(*menu);
    }
}

}  // namespace

void Mnemonics::assign(QWidget &window) {
    assignToMenus(window);
    QWidgetList unmarked;
    QSet<QChar> taken;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (const auto *bar = qobject_cast<QMenuBar *>(widget)) {
            for (const QAction *menu : bar->actions()) {
                taken.insert(markedLetter(menu->text()));
            }
        }
        if (widget->window() != &window || isInList(widget) || !hasMnemonic(widget)) {
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
    Letters letters(taken);
    for (const QWidget *widget : std::as_const(unmarked)) {
        letters.add(shownText(widget));
    }
    for (qsizetype i = 0; i < unmarked.size(); ++i) {
        unmarked.at(i)->setProperty("text", letters.marked(i));
    }
}
