#pragma once

#include <QtWidgets/QWidget>
#include <array>

class QToolButton;

/// Seven toggle buttons for the days of the week, in the order and with the names of the locale at
/// construction. The first of them has the focus when the picker gets it. Must be used on the main
/// thread.
class WeekdayPicker : public QWidget {
    Q_OBJECT
    /// The set of days: bit 0 is Sunday, bit 6 Saturday. Other bits have no button; they are kept
    /// when the user toggles a day. Announced each time it is set, equal or not.
    Q_PROPERTY(quint64 days READ days WRITE setDays NOTIFY daysChanged USER true)
public:
    /// No day is chosen. A later change of the locale has no effect.
    explicit WeekdayPicker(QWidget *parent = nullptr);

    quint64 days() const { return m_days; }
    /// Sets the days, updates the buttons, and emits daysChanged(), also if the set is equal.
    void setDays(quint64 days);

Q_SIGNALS:
    /// Emitted when the days are set, and after the user has toggled one; days() has the new set by
    /// then.
    void daysChanged();

private:
    static constexpr int daysInWeek = 7;

    /// Returns the button of `day` (0 is Sunday), which toggles its bit. The picker owns it.
    QToolButton *makeButton(int day);

    quint64 m_days = 0;
    /// Indexed by bit. Owned as children.
    std::array<QToolButton *, daysInWeek> m_buttons{};
};
