#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <chrono>

#include "Host/QVSyncProgress.h"

class QLabel;
class QProgressBar;
class SynchronizationMonitor;

/// Shows how far the last synchronization is. Its owner ends it with Finished. By itself it ends
/// with QuitNow when the user chooses that, with Finished after a time limit, and with Rejected if
/// the user decides not to quit; all three stop the synchronization. Must be used on the main
/// thread.
class QuitProgressDialog : public QDialog {
    Q_OBJECT
public:
    /// Results besides QDialog::Rejected.
    enum Result { Finished = QDialog::Accepted, QuitNow };

    /// The time limits begin here, not when the dialog is shown: 5 minutes in all, and 30 s since
    /// the progress last changed. Shows what `monitor` reports whenever that changes. `monitor`
    /// must not be null, is not owned and must outlive this object.
    QuitProgressDialog(SynchronizationMonitor *monitor, QWidget *parent);

    /// Sets both limits, from now on.
    void setLimits(std::chrono::milliseconds pause, std::chrono::milliseconds wait);

    /// Called for Cancel, Escape and the dialog's close button.
    void reject() override { stop(Rejected); }

private:
    /// Reads the progress. If it has changed, the time limit without progress begins again.
    void showProgress();
    /// Ends the dialog with `result`, then all synchronizations, also those that the dialog's owner
    /// has not started. The end of a synchronization must not end the dialog before.
    void stop(int result);

    SynchronizationMonitor *const m_monitor;
    QLabel *const m_label;
    QProgressBar *const m_bar;
    /// Ends the wait: after any progress it begins again, and in any case after a longer time.
    QTimer m_idleTimer;
    QTimer m_limitTimer;
    std::chrono::milliseconds m_longestPause;
    /// The progress that was read last.
    QVSyncProgress m_shown;
};
