#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

#include "Host/QVSyncProgress.h"

class QLabel;
class QProgressBar;

/// Shows how far the last synchronization is. Its owner ends it with Finished. By itself it ends
/// with QuitNow when the user chooses that or after a time limit, and with Rejected if the user
/// decides not to quit; both stop the synchronization. Must be used on the main thread.
class QuitProgressDialog : public QDialog {
    Q_OBJECT
public:
    /// Results besides QDialog::Rejected.
    enum Result { Finished = QDialog::Accepted, QuitNow };

    explicit QuitProgressDialog(QWidget *parent);

    void reject() override { stop(Rejected); }

private:
    void showProgress();
    /// Ends the synchronization, then the dialog with `result`.
    void stop(int result);

    QLabel *const m_label;
    QProgressBar *const m_bar;
    /// Ends the wait: after any progress it begins again, and in any case after a longer time.
    QTimer m_idleTimer;
    QTimer m_limitTimer;
    QVSyncProgress m_shown;
};
