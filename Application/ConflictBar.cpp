#include "Application/ConflictBar.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "Application/CountText.h"
#include "Platform/Interface/PlainText.h"

ConflictBar::ConflictBar(QWidget *parent) : QWidget(parent), m_label(PlainText::label()) {
    auto *compare = new QPushButton(tr("&Compare…"));
    auto *keepThis = new QPushButton(tr("Keep Th&is"));
    auto *keepOther = new QPushButton(tr("Keep &Other"));
    auto *keepBoth = new QPushButton(tr("Keep &Both"));
    connect(compare, &QPushButton::clicked, this, &ConflictBar::compareRequested);
    connect(keepThis, &QPushButton::clicked, this, &ConflictBar::keepThisRequested);
    connect(keepOther, &QPushButton::clicked, this, &ConflictBar::keepOtherRequested);
    connect(keepBoth, &QPushButton::clicked, this, &ConflictBar::keepBothRequested);
    auto *first = new QHBoxLayout;
    first->addWidget(m_label, 1);
    first->addWidget(compare);
    auto *second = new QHBoxLayout;
    second->addStretch();
    for (QPushButton *button : {keepThis, keepOther, keepBoth}) {
        second->addWidget(button);
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(first);
    layout->addLayout(second);
}

void ConflictBar::setCount(qsizetype count, bool hasMore) {
    if (hasMore) {
        m_label->setText(
            tr("This note was edited in more places than the list shows. The other "
               "edits follow when you have decided about these."));
        return;
    }
    m_label->setText(
        count == 2
            ? tr("This note was edited on two computers.")
            : translateCount("ConflictBar", "This note was edited in %1 places.", nullptr, count)
                  .arg(count));
}
