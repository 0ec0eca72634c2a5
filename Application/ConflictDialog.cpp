#include "Application/ConflictDialog.h"

#include <QtGui/QTextBlock>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>

#include "Application/Guide.h"
#include "Application/LineAlignment.h"
#include "Application/TextDifferences.h"
#include "Application/WindowSize.h"
#include "Platform/Foundation/DateText.h"
#include "Platform/Interface/PlainText.h"

namespace {

QTextEdit::ExtraSelection mark(QPlainTextEdit *view, const TextDifferences::Range &range) {
    QTextEdit::ExtraSelection selection;
    selection.cursor = QTextCursor(view->document());
    selection.cursor.setPosition(static_cast<int>(range.position));
    selection.cursor.setPosition(static_cast<int>(range.position + range.length),
                                 QTextCursor::KeepAnchor);
    constexpr int faint = 90;
    QColor color = view->palette().color(QPalette::Highlight);
    color.setAlpha(faint);
    selection.format.setBackground(color);
    // Not by the color alone.
    selection.format.setFontUnderline(true);
    return selection;
}

void markAll(QPlainTextEdit *view, const QList<TextDifferences::Range> &ranges) {
    QList<QTextEdit::ExtraSelection> selections;
    for (const TextDifferences::Range &range : ranges) {
        selections.append(mark(view, range));
    }
    view->setExtraSelections(selections);
    if (!selections.isEmpty()) {
        QTextCursor first = selections.first().cursor;
        first.setPosition(first.anchor());
        view->setTextCursor(first);
    }
}

}  // namespace

ConflictDialog::ConflictDialog(const Note &shown, const Note &other, QWidget *parent)
    : QDialog(parent), m_shown(new QPlainTextEdit), m_other(new QPlainTextEdit) {
    setWindowTitle(tr("Compare"));
    setWindowModality(Qt::WindowModal);
    resize(WindowSize::of(*this, 130, 34));
    auto *sides = new QHBoxLayout;
    sides->addWidget(makeSide(tr("This Edit"), shown, m_shown));
    sides->addWidget(makeSide(tr("Other Edit"), other, m_other));
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(sides, 1);
    layout->addLayout(Guide::rowWithHelp(Guide::NotesPage, makeButtons()));
    // Tab would pass over Close, which was created first and stands last.
    setTabOrder(m_keepBoth, m_close);
    const auto scrollTogether = [](QPlainTextEdit *view, QPlainTextEdit *follower) {
        connect(view->verticalScrollBar(), &QScrollBar::valueChanged, follower->verticalScrollBar(),
                &QScrollBar::setValue);
    };
    scrollTogether(m_shown, m_other);
    scrollTogether(m_other, m_shown);
    markDifferences();
}

QWidget *ConflictDialog::makeSide(const QString &heading, const Note &note,
                                  QPlainTextEdit *view) const {
    alignLines(*view);
    const QString date =
        note.modified.isValid() ? DateText::shortDate(note.modified) : tr("date unknown");
    auto *label = PlainText::label(tr("%1 (%2)").arg(heading, date));
    label->setBuddy(view);
    QFont bold = label->font();
    bold.setBold(true);
    label->setFont(bold);
    view->setReadOnly(true);
    view->setAccessibleName(heading);
    view->setPlainText(PlainText::page(note.title + QStringLiteral("\n\n") + note.text));
    auto *side = new QWidget;
    auto *layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(view, 1);
    return side;
}

QWidget *ConflictDialog::makeButtons() {
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_close = buttons->button(QDialogButtonBox::Close);
    m_close->setText(tr("&Close"));
    // Some themes have a dark one, which is not visible on dark colors.
    m_close->setIcon({});
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const auto add = [&](const QString &title, Decision decision) {
        QPushButton *button = buttons->addButton(title, QDialogButtonBox::ActionRole);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, decision] { done(decision); });
        return button;
    };
    add(tr("Keep Th&is"), KeepThis);
    add(tr("Keep &Other"), KeepOther);
    m_keepBoth = add(tr("Keep &Both"), KeepBoth);
    m_close->setDefault(true);
    return buttons;
}

void ConflictDialog::markDifferences() {
    // The views have changed the line ends, and with them the positions.
    const auto differences =
        TextDifferences::between(m_shown->toPlainText(), m_other->toPlainText());
    markAll(m_shown, differences.inFirst);
    markAll(m_other, differences.inSecond);
}
