#pragma once

#include <QtWidgets/QWidget>

class EventLog;

/// Shows the application's log.
class LogWindow : public QWidget {
    Q_OBJECT
public:
    /// `log` outlives the window.
    explicit LogWindow(EventLog *log, QWidget *parent = nullptr);
};
