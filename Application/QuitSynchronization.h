#pragma once

#include <QtCore/QObject>

#include "Application/SynchronizationSummary.h"

class MainWindow;

/// The last synchronization before the program quits. Must be used on the main thread.
class QuitSynchronization : public QObject {
    Q_OBJECT
public:
    /// `window` is not owned and must outlive this object.
    explicit QuitSynchronization(MainWindow *window);

    /// Names the changes that are not synchronized and asks whether to synchronize them. Then
    /// synchronizes these and what is to be synchronized when a database is closed, showing the
    /// progress, for at most five minutes, and at most half a minute without any progress. What
    /// could not be synchronized is named once more, with the next steps. Runs nested event loops.
    /// Returns false if the user decides not to quit.
    bool run();

private:
    using Item = SynchronizationSummary::Item;
    enum class Choice { Synchronize, Quit, Stay };

    /// Returns the enabled states of open databases that are to be synchronized when these are
    /// closed, whether or not they have unsent changes.
    static QVSyncStates closingStates();
    /// Returns the items with unsent changes, without those of `except`. Blocks for the profile.
    static QList<Item> unsentItems(const QVSyncStates &except);
    /// Asks in a nested event loop; names eight items at most. Closing the question is
    /// Choice::Stay.
    Choice askAbout(const QList<Item> &unsent) const;
    /// Returns false if the user decides not to quit.
    bool synchronize(const QVSyncStates &states) const;
    /// Names what of `states` still has unsent changes, with the failure if there was one, and
    /// takes the next step that the user chooses. Returns Choice::Quit without a question if there
    /// is nothing to name.
    Choice confirmFailure(const QVSyncStates &states) const;
    /// Shows the box of confirmFailure() for `unsent`, which is not empty.
    Choice askAboutFailed(const QList<Item> &unsent) const;

    MainWindow *const m_window;
};
