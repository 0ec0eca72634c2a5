#pragma once

#include <QtWidgets/QWidget>
#include <array>

class QToolButton;

/// Seven buttons for the days of the week, in the order and with the names of the user's locale.
class WeekdayPicker : public QWidget {
    Q_OBJECT
    /// Bit 0 is Sunday, bit 6 Saturday; other bits are kept as they are.
    Q_PROPERTY(quint64 days READ days WRITE setDays NOTIFY daysChanged USER true)
public:
    explicit WeekdayPicker(QWidget *parent = nullptr);

    quint64 days() const { return m_days; }
    void setDays(quint64 days);

Q_SIGNALS:
    void daysChanged();

private:
    static constexpr int daysInWeek = 7;

    QToolButton *makeButton(int day);

    quint64 m_days = 0;
    std::array<QToolButton *, daysInWeek> m_buttons{};  ///< by bit
};
