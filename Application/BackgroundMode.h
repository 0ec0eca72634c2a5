#pragma once

#include <QtCore/QTimer>
#include <QtDBus/QDBusServiceWatcher>
#include <memory>

#include "Platform/Foundation/Expected.h"

class MainWindow;
class QAction;
class QuitGuard;
class SyncPlugIn;
class TrayIcon;

/// The setting to keep Velmora running when its window is closed, with an icon in the desktop's
/// panel and notifications of what needs the user. It is off until the user turns it on in the
/// window's menu. Without a place for the icon, the window stays, closing it ends the program, and
/// the user reads why. Must be used on the main thread.
class BackgroundMode : public QObject {
    Q_OBJECT
public:
    /// None of the arguments is owned; all must outlive this object. Adds the setting to the menu
    /// of `window`.
    BackgroundMode(MainWindow *window, QuitGuard *guard, SyncPlugIn *sync);
    ~BackgroundMode() override;

    /// The key of the setting in the user defaults.
    static const QString Key;

private:
    /// Applies and saves the setting. Refused with a message if the desktop has no place for the
    /// icon.
    void setEnabled(bool isEnabled);
    /// Makes or removes the icon; the window can be hidden only while there is one.
    void apply(bool isEnabled);
    /// Returns whether the desktop has a place for the icon.
    bool hasPlace() const;
    /// The desktop's panel has ended: shows the window, which would be out of reach otherwise.
    void losePanel();
    /// The desktop's panel has started.
    void findPanel();
    /// Presents why Velmora does not stay in the background, although the user has chosen that.
    void presentMissingPlace();
    void makeIcon();
    void synchronizeAll();
    /// Pauses the automatic synchronizations; an invalid date resumes them.
    void pauseUntil(const QDateTime &end);
    /// Notifies the user when the first synchronization fails, and of new conflicts.
    void notifyOfChanges();
    /// Notifies the user if there are more conflicts than when they could be read last.
    void notifyOfConflicts();
    /// Returns the number of notes with conflicting edits.
    Expected<qint64> countOfConflicts() const;
    /// Shows a notification if the setting is on and the user is working in another program.
    void notify(const QString &title, const QString &text) const;

    MainWindow *const m_window;
    QuitGuard *const m_guard;
    SyncPlugIn *const m_sync;
    QAction *m_action = nullptr;
    QAction *m_hideAction = nullptr;
    /// Null while the setting is off.
    std::unique_ptr<TrayIcon> m_icon;
    QDBusServiceWatcher m_panel;
    /// Qt does not notice that the panel has ended.
    bool m_hasLostPanel = false;
    /// Ends the pause.
    QTimer m_pauseTimer;
    bool m_hasFailed = false;
    /// The number of notes with conflicting edits when it could be read last. Empty before.
    std::optional<qint64> m_conflicts;
};
