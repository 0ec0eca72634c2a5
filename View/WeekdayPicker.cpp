#include "View/WeekdayPicker.h"

#include <QtCore/QLocale>
#include <QtWidgets/QHBoxLayout>

#include "Platform/Foundation/DateText.h"
#include "View/WeekdayButton.h"

WeekdayPicker::WeekdayPicker(QWidget *parent) : QWidget(parent) {
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    const int firstDay = QLocale().firstDayOfWeek();
    for (int i = 0; i < daysInWeek; ++i) {
        const int day = (firstDay + i) % daysInWeek;
        m_buttons[static_cast<size_t>(day)] = makeButton(day);
        layout->addWidget(m_buttons[static_cast<size_t>(day)]);
    }
    // Otherwise the mnemonic of the label has no effect.
    setFocusProxy(m_buttons[static_cast<size_t>(firstDay % daysInWeek)]);
    setFocusPolicy(Qt::StrongFocus);
}

QToolButton *WeekdayPicker::makeButton(int day) {
    // QLocale numbers days from 1 (Monday) to 7 (Sunday).
    const int localeDay = day == 0 ? Qt::Sunday : day;
    auto *button = new WeekdayButton(this);
    button->setText(DateText::dayName(localeDay, QLocale::ShortFormat));
    button->setAccessibleName(DateText::dayName(localeDay, QLocale::LongFormat));
    button->setToolTip(button->accessibleName());
    // Not the click, which assistive technology does not make.
    connect(button, &QToolButton::toggled, this, [this, day](bool isChosen) {
        const quint64 bit = quint64{1} << day;
        const quint64 days = isChosen ? m_days | bit : m_days & ~bit;
        if (days != m_days) {
            setDays(days);
        }
    });
    return button;
}

void WeekdayPicker::setDays(quint64 days) {
    m_days = days;
    for (int day = 0; day < daysInWeek; ++day) {
        m_buttons[static_cast<size_t>(day)]->setChecked((days >> day & 1U) != 0);
    }
    Q_EMIT daysChanged();
}
