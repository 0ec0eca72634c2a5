#pragma once

#include <QtWidgets/QDialog>

#include "Application/FirstStart.h"
#include "Host/LocationOffers.h"

class QAbstractButton;
class QButtonGroup;
class QGroupBox;

/// Asks a user who starts Velmora for the first time where notes are kept in sync and how to begin.
/// Escape and closing the window choose the default. Must be used on the main thread.
class FirstStartDialog : public QDialog {
    Q_OBJECT
public:
    /// `offers` are the kinds of locations that the user can choose; without any, that is left for
    /// later. The name of the button of each is that of the kind with "Button".
    explicit FirstStartDialog(QList<LocationOffer> offers, QWidget *parent = nullptr);

    /// Shows the dialog, running a nested event loop, and returns what the user has chosen.
    static FirstStart ask(const QList<LocationOffer> &offers);

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

    const QList<LocationOffer> m_offers;
    QButtonGroup *m_places;
    QButtonGroup *m_beginnings;
};
