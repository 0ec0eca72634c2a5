#pragma once

#include <QtWidgets/QDialog>

#include "Application/FirstStart.h"

class QAbstractButton;
class QButtonGroup;
class QGroupBox;

/// Asks a user who starts Velmora for the first time where notes are kept in sync and how to begin.
/// Escape and closing the window choose the default. Must be used on the main thread.
class FirstStartDialog : public QDialog {
    Q_OBJECT
public:
    explicit FirstStartDialog(QWidget *parent = nullptr);

    /// Shows the dialog, running a nested event loop, and returns what the user has chosen.
    static FirstStart ask();

    /// Returns what is chosen at present.
    FirstStart choice() const;

protected:
    /// Gives the buttons mnemonics.
    void showEvent(QShowEvent *event) override;

private:
    /// These make a group of radio buttons, the first of which is checked.
    QGroupBox *makePlaces();
    QGroupBox *makeBeginnings();
    /// Databases can be imported only from a location.
    void updateImport();

    QButtonGroup *m_places;
    QButtonGroup *m_beginnings;
};
