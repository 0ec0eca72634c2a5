#pragma once

#include <QtWidgets/QRadioButton>

/// A radio button of a group in which none may be chosen. The group, its keys and what assistive
/// technologies get are those of QRadioButton. Must be used on the main thread.
class OptionalRadioButton : public QRadioButton {
    Q_OBJECT
    /// Whether the button is chosen. Unlike QRadioButton's, it can be set to false.
    Q_PROPERTY(bool checked READ isChecked WRITE setChosen NOTIFY checkedChanged)
public:
    explicit OptionalRadioButton(QWidget *parent = nullptr);

    /// Sets `checked`. Choosing the button ends the choice of another one in the group.
    void setChosen(bool chosen);

Q_SIGNALS:
    /// Emitted when the button was chosen, before QAbstractButton::clicked(), but not when the
    /// choice of another button has ended its own.
    void checkedChanged();
};
