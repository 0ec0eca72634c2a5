#include "Application/QuitProgressDialog.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>
#include <chrono>

#include "Host/QVSyncDispatcher.h"
#include "Host/QVSyncPlugin.h"
#include "Host/QVSyncProgress.h"
#include "Platform/Interface/HeightKeeper.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr std::chrono::seconds LongestPause(30);
constexpr std::chrono::minutes LongestWait(5);
constexpr std::chrono::milliseconds UpdateInterval(100);
constexpr int FullBar = 100;
/// In widths of a letter.
constexpr int LabelWidth = 60;

}  // namespace

QuitProgressDialog::QuitProgressDialog(QWidget *parent)
    : QDialog(parent),
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
    auto *updates = new QTimer(this);
    connect(updates, &QTimer::timeout, this, &QuitProgressDialog::showProgress);
    updates->start(UpdateInterval);
    showProgress();
}

void QuitProgressDialog::setLimits(std::chrono::milliseconds pause,
                                   std::chrono::milliseconds wait) {
    m_longestPause = pause;
    m_idleTimer.start(pause);
    m_limitTimer.start(wait);
}

void QuitProgressDialog::showProgress() {
    const QVSyncDispatcher *dispatcher = QVSyncPlugin::plugin()->dispatcher();
    const QVSyncProgress progress = QVSyncProgress::of(dispatcher);
    const QString activity = dispatcher->activity();
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
    QVSyncProgress::stop(QVSyncPlugin::plugin()->dispatcher());
}
