#include "View/OptionalRadioButton.h"

OptionalRadioButton::OptionalRadioButton(QWidget *parent) : QRadioButton(parent) {
    connect(this, &QAbstractButton::toggled, this, [this](bool isChosen) {
        if (isChosen) {
            Q_EMIT checkedChanged();
        }
    });
}

void OptionalRadioButton::setChosen(bool chosen) {
    // Qt keeps the last choice of an exclusive group.
    setAutoExclusive(chosen);
    setChecked(chosen);
    setAutoExclusive(true);
}
