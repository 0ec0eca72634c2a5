#pragma once

#include <QtCore/QDeadlineTimer>
#include <QtCore/QObject>

class MainWindow;

/// Synchronizes before the user closes the main window: what is to be synchronized when a database
/// is closed and, if the user wants that, what else is not synchronized yet. The user can quit at
/// any time without waiting. An error or a question that is not closed yet keeps the window open,
/// also one that comes up meanwhile. Must be used on the main thread.
class QuitGuard : public QObject {
    Q_OBJECT
public:
    /// Guards `window`, which becomes the parent: its event for closing is held back until the
    /// questions are answered, and while they are shown, further ones are ignored. What the user
    /// typed is saved first.
    explicit QuitGuard(MainWindow *window);

    /// Lets the window close without a question or a synchronization, because the session or the
    /// process ends. In effect for a minute from the latest call, since the end of a session can be
    /// cancelled. Questions that are already shown stay.
    void allowEnd();
    /// Sets whether closing the window only saves and hides it, unless the user has chosen to quit.
    void setHiding(bool isHiding) { m_isHiding = isHiding; }

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    /// Saves everything and hides the window, unless the user keeps a text that cannot be saved.
    /// Quits later if the user has chosen that meanwhile. May run a nested event loop.
    void hideWindow();
    /// Saves, asks and synchronizes; runs nested event loops. Returns whether the window may close.
    bool prepareToQuit();

    MainWindow *const m_window;
    QDeadlineTimer m_end;
    bool m_isHiding = false;
    /// Whether the user has chosen to quit; until the next event for closing.
    bool m_isQuitting = false;
    /// Whether the user is being asked.
    bool m_isAsking = false;
};
