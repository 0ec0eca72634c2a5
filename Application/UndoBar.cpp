#include "Application/UndoBar.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>

#include "Platform/Interface/NotificationLabel.h"

UndoBar::UndoBar(QWidget *parent) : QWidget(parent), m_label(new NotificationLabel) {
    setObjectName(QStringLiteral("undoBar"));
    hide();
    m_label->setWordWrap(true);
    auto *button = new QPushButton(tr("&Undo"));
    connect(button, &QPushButton::clicked, this, &UndoBar::undoRequested);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label, 1);
    layout->addWidget(button);
}

void UndoBar::setText(const QString &text) {
    m_label->setText(text);
    setVisible(!text.isEmpty());
}
