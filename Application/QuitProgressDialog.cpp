#include "Application/QuitProgressDialog.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>
#include <chrono>

#include "Application/SynchronizationMonitor.h"
#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr std::chrono::seconds LongestPause(30);
constexpr std::chrono::minutes LongestWait(5);
constexpr int FullBar = 100;
/// In widths of a letter.
constexpr int LabelWidth = 60;

}  // namespace

QuitProgressDialog::QuitProgressDialog(SynchronizationMonitor *monitor, QWidget *parent)
    : QDialog(parent),
      m_monitor(monitor),
      m_label(PlainText::label()),
      m_bar(new QProgressBar),
      m_longestPause(LongestPause) {
    setWindowTitle(tr("Quit Velmora"));
    new HeightKeeper(this);
    m_label->setMinimumWidth(fontMetrics().averageCharWidth() * LabelWidth);
    m_bar->setAccessibleName(tr("Progress of the synchronization"));
    m_bar->setTextVisible(false);
    auto *buttons = new QDialogButtonBox;
    auto *quit = buttons->addButton(tr("&Quit Now"), QDialogButtonBox::DestructiveRole);
    quit->setToolTip(
        tr("Stop the synchronization and quit. The next one continues where it stopped."));
    buttons->addButton(QDialogButtonBox::Cancel);
    connect(quit, &QPushButton::clicked, this, [this] { stop(QuitNow); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    layout->addWidget(buttons);

    for (QTimer *timer : {&m_idleTimer, &m_limitTimer}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] { stop(Finished); });
    }
    setLimits(LongestPause, LongestWait);
    connect(m_monitor, &SynchronizationMonitor::changed, this, &QuitProgressDialog::showProgress);
    showProgress();
}

void QuitProgressDialog::setLimits(std::chrono::milliseconds pause,
                                   std::chrono::milliseconds wait) {
    m_longestPause = pause;
    m_idleTimer.start(pause);
    m_limitTimer.start(wait);
}

void QuitProgressDialog::showProgress() {
    const QVSyncProgress progress = m_monitor->progress();
    const QString activity = m_monitor->activity();
    m_label->setText(activity.isEmpty() ? tr("Synchronizing before quitting…")
                                        : PlainText::message(activity));
    m_bar->setMaximum(progress.total == 0 ? 0 : FullBar);
    m_bar->setValue(
        progress.total == 0 ? 0 : static_cast<int>(progress.done * FullBar / progress.total));
    if (progress != m_shown) {
        m_shown = progress;
        m_idleTimer.start(m_longestPause);
    }
}

void QuitProgressDialog::stop(int result) {
    // Ends first, because the synchronization reports its end.
    done(result);
    m_monitor->stop();
}
