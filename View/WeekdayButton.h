#pragma once

#include <QtWidgets/QToolButton>

/// A toggle button for a day: in the selection color if it is chosen, otherwise in that of fields.
/// Styles paint both states too much alike. Must be used on the main thread.
class WeekdayButton : public QToolButton {
    Q_OBJECT
public:
    explicit WeekdayButton(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /// Returns the color of the frame of a day that is not chosen.
    QColor frameColor() const;
    QColor textColor() const;
};
