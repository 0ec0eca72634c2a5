#pragma once

#include <QtWidgets/QWidget>
#include <functional>
#include <memory>

#include "Host/LocationAdding.h"
#include "Platform/Foundation/Expected.h"

class LocationRemovals;
class PaneArea;
class PreferencePane;
class QVSyncLocation;
class UndoBar;

/// A window that shows a preference pane, which scrolls if the screen is too small. It deletes
/// itself when it is closed. Must be used on the main thread.
class PreferencesWindow : public QWidget {
    Q_OBJECT
public:
    /// Takes ownership of `pane`, which must not be null, loads its view and selects it. The window
    /// is not shown yet. Raises an AssertionFailure if the form of the pane cannot be loaded.
    explicit PreferencesWindow(std::unique_ptr<PreferencePane> pane, QWidget *parent = nullptr);
    /// Destroys the pane. Does not deselect it, so a window that was not closed has not saved
    /// everything.
    ~PreferencesWindow() override;

    /// Shows below the pane which location was removed, with a button that undoes that. Afterwards
    /// a pane of `makePane` replaces the present one, since the list of locations announces no
    /// changes. `removals` is not owned and must outlive this window. Must be called once.
    void showRemovals(LocationRemovals *removals,
                      std::function<Expected<std::unique_ptr<PreferencePane>>()> makePane);

    /// Restores the place of the window, the selected database and the selected location from the
    /// user's settings, and keeps them there from now on, and whether the window is open. Must be
    /// called before the window is shown.
    void remember();
    /// Returns whether a window that remembers that was open when the program ended; true if there
    /// was none.
    static bool wasOpen();
    static void setWasOpen(bool wasOpen);

    /// Shows the editor of `location`, which must not be null, if the pane offers that and no other
    /// sheet is open. The window must be shown.
    void editLocation(const std::shared_ptr<QVSyncLocation> &location);

    /// Lets the user add a location, if the pane offers that, see
    /// LocationAdding::addLocationOfKind(). The window must be shown.
    void addLocation(const QString &kind, LocationAdding::Next next);

    /// Closes the window even if its settings cannot be saved, which is presented as an error.
    void closeInAnyCase();

protected:
    /// Deselects the pane, which saves its settings. If they cannot be saved, presents an error,
    /// and the window stays open.
    void closeEvent(QCloseEvent *event) override;
    /// Gives the buttons mnemonics.
    void showEvent(QShowEvent *event) override;

private:
    /// Loads the view of the pane, shows it and selects the pane.
    void showPane(std::unique_ptr<PreferencePane> pane);
    void updateRemovals();
    void undoRemoval();
    /// These have no effect on a pane that is no PaneSelection.
    QString selectedDatabase() const;
    QString selectedAddress() const;
    void select(const QString &database, const std::shared_ptr<QVSyncLocation> &location);

    PaneArea *m_area;
    std::unique_ptr<PreferencePane> m_pane;
    bool m_closesInAnyCase = false;
    bool m_remembers = false;
    /// Null before showRemovals(), as is the bar.
    LocationRemovals *m_removals = nullptr;
    std::function<Expected<std::unique_ptr<PreferencePane>>()> m_makePane;
    UndoBar *m_removalBar = nullptr;
};
