#pragma once

#include <QtWidgets/QMenu>
#include <QtWidgets/QSystemTrayIcon>

class SynchronizationMonitor;

/// The icon in the desktop's panel: it shows how the synchronization stands, and its menu controls
/// it. It changes nothing itself: its owner carries out what the user requests. A desktop without a
/// place for icons shows none, see QSystemTrayIcon::isSystemTrayAvailable(). Must be used on the
/// main thread.
class TrayIcon : public QObject {
    Q_OBJECT
public:
    /// Shows the icon until this object is destroyed. `monitor` is not owned and must outlive it.
    explicit TrayIcon(SynchronizationMonitor *monitor, QObject *parent = nullptr);

    /// Shows whether the automatic synchronizations are paused, and offers to pause or resume them.
    /// They are not paused at first.
    void setPaused(bool isPaused);

Q_SIGNALS:
    /// Emitted when the user chooses these, from the event loop. Clicking the icon requests the
    /// window, too.
    void windowRequested();
    void synchronizationRequested();
    /// `end` is valid and in the future.
    void pauseRequested(const QDateTime &end);
    void resumeRequested();
    void quitRequested();

private:
    void makeMenu();
    /// Updates the icon, its tool tip and the menu.
    void showState();
    /// Returns the icon for the present state.
    QIcon icon() const;

    SynchronizationMonitor *const m_monitor;
    bool m_isPaused = false;
    QSystemTrayIcon m_icon;
    QMenu m_menu;
    QAction *m_stateAction = nullptr;
    QAction *m_pauseHourAction = nullptr;
    QAction *m_pauseDayAction = nullptr;
    QAction *m_resumeAction = nullptr;
};
