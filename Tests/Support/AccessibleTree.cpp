#include "Support/AccessibleTree.h"

#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolBar>

#include "Platform/Interface/TableView.h"

namespace {

const QSet<QAccessible::Role> &rolesOfControls() {
    static const QSet<QAccessible::Role> roles = {
        QAccessible::Button,      QAccessible::ButtonMenu, QAccessible::CheckBox,
        QAccessible::RadioButton, QAccessible::ComboBox,   QAccessible::EditableText,
        QAccessible::SpinBox,     QAccessible::List,       QAccessible::ListItem,
        QAccessible::Table,       QAccessible::Tree,       QAccessible::ProgressBar};
    return roles;
}

QString plainText(const QString &text) {
    static const QRegularExpression mark(QStringLiteral("&(.)"));
    return QString(text).replace(mark, QStringLiteral("\\1"));
}

/// Returns `text` without the period of an abbreviation.
QString spokenText(const QString &text) {
    const QString spoken = plainText(text);
    return spoken.endsWith(u'.') ? spoken.chopped(1) : spoken;
}

QString letterIn(const QString &text) {
    return QKeySequence::mnemonic(text).toString();
}

QString describe(const QWidget &widget) {
    return QStringLiteral("%1 %2 “%3”")
        .arg(QLatin1StringView(widget.metaObject()->className()), widget.objectName(),
             widget.property("text").toString());
}

/// Returns the name that a screen reader speaks. That of a combo box is its value; another object
/// labels it.
QString nameOf(const QAccessibleInterface &control) {
    const auto labels = control.relations(QAccessible::Label);
    return control.role() == QAccessible::ComboBox && !labels.isEmpty()
               ? labels.first().first->text(QAccessible::Name)
               : control.text(QAccessible::Name);
}

template <class Ancestor>
const Ancestor *ancestor(const QWidget *widget) {
    for (const QWidget *each = widget->parentWidget(); each; each = each->parentWidget()) {
        if (const auto *found = qobject_cast<const Ancestor *>(each)) {
            return found;
        }
    }
    return nullptr;
}

bool isInRow(const QWidget *widget) {
    const auto *area = ancestor<QAbstractScrollArea>(widget);
    return area && area->inherits("ListScrollArea");
}

/// Checks one window.
class WindowCheck {
public:
    explicit WindowCheck(QWidget &window) : m_window(window) {}

    QStringList problems() {
        checkWindow();
        visit(QAccessible::queryAccessibleInterface(&m_window));
        walkWithTab();
        checkOrder();
        for (QWidget *control : std::as_const(m_controls)) {
            checkReachable(control);
        }
        checkMnemonics();
        return m_problems;
    }

private:
    void visit(QAccessibleInterface *each) {
        if (!each || each->state().invisible != 0) {
            return;
        }
        // The parts of a table and of a spin box are named by it.
        const bool isWhole = each->role() == QAccessible::SpinBox ||
                             each->role() == QAccessible::ComboBox ||
                             qobject_cast<QAbstractItemView *>(each->object());
        if (rolesOfControls().contains(each->role())) {
            checkNames(each);
        }
        if (const auto *table = qobject_cast<const TableView *>(each->object())) {
            checkRemoval(*table, *each);
        }
        const QObject *object = each->object();
        if (object && (object->inherits("TableView") || object->inherits("ListScrollArea"))) {
            checkDescriptions(*each);
        }
        for (int i = 0; i < each->childCount() && !isWhole; ++i) {
            QAccessibleInterface *child = each->child(i);
            const auto *widget = child ? qobject_cast<QWidget *>(child->object()) : nullptr;
            if (!widget || widget->window() == &m_window) {
                visit(child);
            }
        }
    }

    void checkNames(QAccessibleInterface *control) {
        const QString name = nameOf(*control);
        auto *widget = qobject_cast<QWidget *>(control->object());
        const QString described =
            QStringLiteral("%1 “%2”").arg(widget ? widget->objectName() : QString(), name);
        if (name.isEmpty()) {
            m_problems.append(QStringLiteral("no name: %1").arg(described));
        }
        const auto *button = qobject_cast<QAbstractButton *>(widget);
        if (button && !name.contains(spokenText(button->text()))) {
            m_problems.append(
                QStringLiteral("named without its text “%1”: %2").arg(button->text(), described));
        }
        const QString identity = QStringLiteral("%1|%2|%3")
                                     .arg(QString::number(control->role()), name,
                                          control->text(QAccessible::Description));
        const bool isRepeatable = control->role() == QAccessible::ListItem;
        if (!isRepeatable && m_identities.contains(identity)) {
            m_problems.append(QStringLiteral("twice: %1").arg(described));
        }
        m_identities.insert(identity);
        if (widget && control->role() != QAccessible::ListItem &&
            control->role() != QAccessible::ProgressBar) {
            m_controls.append(widget);
        }
    }

    /// What the button of a list removes is named, and each row offers it.
    void checkRemoval(const TableView &table, const QAccessibleInterface &list) {
        QAbstractButton *button = table.buttonThatRemoves();
        for (int row = 0; button && row < list.childCount(); ++row) {
            QAccessibleInterface *item = list.child(row);
            if (!item->actionInterface()->actionNames().contains(plainText(button->text()))) {
                m_problems.append(
                    QStringLiteral("cannot be removed: %1").arg(item->text(QAccessible::Name)));
            }
        }
        const QString selected = table.nameOfRow(table.selectedRow());
        if (button && !QAccessible::queryAccessibleInterface(button)
                           ->text(QAccessible::Description)
                           .contains(selected)) {
            m_problems.append(QStringLiteral("does not say that it is about “%1”: %2")
                                  .arg(selected, describe(*button)));
        }
    }

    void checkDescriptions(const QAccessibleInterface &list) {
        for (int i = 0; i < list.childCount(); ++i) {
            const QAccessibleInterface *row = list.child(i);
            if (row->role() == QAccessible::ListItem &&
                row->text(QAccessible::Description).isEmpty()) {
                m_problems.append(
                    QStringLiteral("not described: %1").arg(row->text(QAccessible::Name)));
            }
        }
    }

    void checkWindow() {
        const QAccessibleInterface *window = QAccessible::queryAccessibleInterface(&m_window);
        static const QSet<QAccessible::Role> roles = {QAccessible::Window, QAccessible::Dialog,
                                                      QAccessible::AlertMessage};
        if (!roles.contains(window->role())) {
            m_problems.append(QStringLiteral("no window: %1").arg(describe(m_window)));
        }
        if (!m_window.windowTitle().isEmpty() &&
            !window->text(QAccessible::Name)
                 .startsWith(m_window.windowTitle().section(u'[', 0, 0))) {
            m_problems.append(QStringLiteral("no name: %1").arg(describe(m_window)));
        }
    }

    /// Returns where `widget` is, as it is read: the left side is where lines begin.
    QRect placeOf(const QWidget &widget) const {
        const QRect place(widget.mapTo(&m_window, QPoint()), widget.size());
        return QStyle::visualRect(m_window.layoutDirection(), m_window.rect(), place);
    }

    /// Returns whether Tab leads from the end of the window to `widget`.
    bool isFirstInChain(const QWidget *widget) const {
        for (const QWidget *each = m_window.nextInFocusChain(); each != &m_window;
             each = each->nextInFocusChain()) {
            if (m_reached.contains(each)) {
                return each == widget;
            }
        }
        return false;
    }

    /// The focus moves to what is on the right or below, or to the top of a column further right.
    void checkOrder() {
        for (qsizetype i = 1; i < m_reached.size(); ++i) {
            const QWidget *from = m_reached[i - 1];
            const QWidget *to = m_reached[i];
            if (!from || !to || from->window() != &m_window || to->window() != &m_window) {
                continue;
            }
            const QRect first = placeOf(*from);
            const QRect second = placeOf(*to);
            const bool isRight = second.left() > first.right();
            const bool isAbove = second.bottom() < first.top();
            const bool isInRow = second.top() <= first.bottom() && !isAbove;
            const bool isLeft = second.right() < first.left();
            // The focus may have begun in the middle; the last control is followed by the first
            // one.
            const bool isFirst = isFirstInChain(to);
            if (!isFirst && ((isAbove && !isRight) || (isInRow && isLeft))) {
                m_problems.append(
                    QStringLiteral("not as read: %1, then %2").arg(describe(*from), describe(*to)));
            }
        }
    }

    /// Presses Tab until the focus comes back.
    void walkWithTab() {
        for (int i = 0; i < 200; ++i) {
            QWidget *focus = QApplication::focusWidget();
            if (focus && m_reached.contains(focus)) {
                return;
            }
            m_reached.append(focus);
            // A text that can be edited takes the key itself.
            const auto *text = qobject_cast<const QPlainTextEdit *>(focus);
            QTest::keyClick(focus ? focus : &m_window, Qt::Key_Tab,
                            text && !text->isReadOnly() ? Qt::ControlModifier : Qt::NoModifier);
            if (focus && QApplication::focusWidget() == focus && m_controls.size() > 1) {
                m_problems.append(QStringLiteral("Tab stays in %1").arg(describe(*focus)));
                return;
            }
        }
    }

    void checkReachable(QWidget *control) {
        const bool isInToolBar = ancestor<QToolBar>(control) != nullptr;
        if (!control->isEnabled() || isInToolBar || m_reached.contains(control)) {
            return;
        }
        if (isInRow(control)) {
            if (control->focusPolicy() != Qt::ClickFocus) {
                m_problems.append(QStringLiteral("not in its row: %1").arg(control->objectName()));
            }
            return;
        }
        const auto *radio = qobject_cast<QRadioButton *>(control);
        const bool isInReachedGroup =
            radio && std::any_of(m_reached.begin(), m_reached.end(), [&](QWidget *reached) {
                return reached && reached->parentWidget() == radio->parentWidget() &&
                       qobject_cast<QRadioButton *>(reached);
            });
        if (!isInReachedGroup) {
            QStringList order;
            for (const QWidget *reached : std::as_const(m_reached)) {
                order.append(reached ? describe(*reached) : QStringLiteral("none"));
            }
            m_problems.append(QStringLiteral("out of reach: %1; Tab goes to %2")
                                  .arg(describe(*control), order.join(QStringLiteral(", "))));
        }
    }

    void checkMnemonics() {
        QMap<QString, QStringList> texts;
        const auto add = [&](const QString &text) {
            if (const QString letter = letterIn(text); !letter.isEmpty()) {
                texts[letter].append(text);
            }
        };
        for (const QWidget *widget : m_window.findChildren<QWidget *>()) {
            if (widget->window() != &m_window || !widget->isVisible()) {
                continue;
            }
            const auto *label = qobject_cast<const QLabel *>(widget);
            const auto *bar = qobject_cast<const QMenuBar *>(widget);
            if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
                add(button->text());
            } else if (label && label->buddy()) {
                add(label->text());
            } else if (bar) {
                for (const QAction *action : bar->actions()) {
                    add(action->text());
                }
            }
        }
        report(texts);
        for (const QMenu *menu : m_window.findChildren<QMenu *>()) {
            texts.clear();
            for (const QAction *action : menu->actions()) {
                add(action->text());
                if (!action->isSeparator() && letterIn(action->text()).isEmpty()) {
                    m_problems.append(QStringLiteral("no letter: %1").arg(action->text()));
                }
            }
            report(texts);
        }
    }

    void report(const QMap<QString, QStringList> &texts) {
        for (auto each = texts.begin(); each != texts.end(); ++each) {
            if (each->size() > 1) {
                m_problems.append(QStringLiteral("%1 several times: %2")
                                      .arg(each.key(), each->join(QStringLiteral(", "))));
            }
        }
    }

    QWidget &m_window;
    QStringList m_problems;
    QSet<QString> m_identities;
    QWidgetList m_controls;
    QWidgetList m_reached;
};

}  // namespace

QStringList AccessibleTree::problems(QWidget &window) {
    return WindowCheck(window).problems();
}
