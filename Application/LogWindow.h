#pragma once

#include <QtWidgets/QWidget>

class EventLog;

/// A window that shows the application's log and scrolls to new entries. Closing it hides it, and
/// the log goes on. Must be used on the main thread.
class LogWindow : public QWidget {
    Q_OBJECT
public:
    /// `log` is not owned, must not be null, and must outlive the window. With a parent, the window
    /// stays above it and is deleted with it.
    explicit LogWindow(EventLog *log, QWidget *parent = nullptr);
};
