#include "View/TimeField.h"

#include <QtCore/QScopedValueRollback>

TimeField::TimeField(QWidget *parent) : QTimeEdit(parent) {
    connect(this, &QDateTimeEdit::dateTimeChanged, this, [this] {
        if (!m_isEmpty) {
            Q_EMIT momentChanged();
        }
    });
    setMoment({});
}

void TimeField::setMoment(const QDateTime &moment) {
    m_isEmpty = !moment.isValid();
    {
        const QSignalBlocker blocker(this);
        // Shows the text again, also if the time stays the same.
        setDateTime(m_isEmpty ? dateTime() : moment);
    }
    Q_EMIT momentChanged();
}

QSize TimeField::sizeHint() const {
    const QScopedValueRollback showing(m_isEmpty, false);
    return QTimeEdit::sizeHint();
}

QSize TimeField::minimumSizeHint() const {
    const QScopedValueRollback showing(m_isEmpty, false);
    return QTimeEdit::minimumSizeHint();
}

QString TimeField::textFromDateTime(const QDateTime &dateTime) const {
    return m_isEmpty ? QString() : QTimeEdit::textFromDateTime(dateTime);
}
