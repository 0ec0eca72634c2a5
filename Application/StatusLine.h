#pragma once

#include <QtWidgets/QWidget>

class NotificationLabel;
class QProgressBar;
class QPushButton;
class SynchronizationMonitor;

/// A line that shows what the synchronization does, with a button that stops it, or how it stands,
/// with a button that requests the failures; a text that is too long is wrapped. Its height is at
/// least that of a button, so that it does not jump when one appears or disappears. Must be used on
/// the main thread.
class StatusLine : public QWidget {
    Q_OBJECT
public:
    /// `monitor` is not owned, must not be null, and must outlive this object. The line follows it
    /// from now on.
    explicit StatusLine(SynchronizationMonitor *monitor, QWidget *parent = nullptr);

Q_SIGNALS:
    /// Emitted when the user wants to read what failed.
    void failureRequested();

private:
    /// Updates all parts from the monitor.
    void showStatus();

    SynchronizationMonitor *const m_monitor;
    QProgressBar *const m_bar;
    NotificationLabel *const m_label;
    QPushButton *const m_stopButton;
    QPushButton *const m_detailsButton;
};
