#pragma once

#include <QtWidgets/QWidget>

class EventLog;

/// A window that shows the application's log and scrolls to new entries. Must be used on the main
/// thread.
class LogWindow : public QWidget {
    Q_OBJECT
public:
    /// `log` is not owned and must outlive the window.
    explicit LogWindow(EventLog *log, QWidget *parent = nullptr);
};
