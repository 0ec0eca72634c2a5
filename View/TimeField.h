#pragma once

#include <QtWidgets/QTimeEdit>

/// A field for a time of day that can also show none: it is then blank, and what the user enters is
/// not announced until one is set. Must be used on the main thread.
class TimeField : public QTimeEdit {
    Q_OBJECT
    /// The date and time whose time of day is shown; invalid if none is shown. Announced each time
    /// it is set, and when the user changes the time.
    Q_PROPERTY(QDateTime moment READ moment WRITE setMoment NOTIFY momentChanged)
public:
    /// Shows no time.
    explicit TimeField(QWidget *parent = nullptr);

    QDateTime moment() const { return m_isEmpty ? QDateTime() : dateTime(); }
    /// Shows the time of day of `moment`, or none if it is invalid, and emits momentChanged(), also
    /// if nothing changes.
    void setMoment(const QDateTime &moment);

    /// These are the same whether or not a time is shown.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Emitted once for each call of setMoment(), and after each change by the user.
    void momentChanged();

protected:
    QString textFromDateTime(const QDateTime &dateTime) const override;

private:
    /// Whether no time is shown. Mutable because the sizes are computed as if one was.
    mutable bool m_isEmpty = true;
};
