#include "Application/StatusLine.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>

#include "Application/SynchronizationMonitor.h"
#include "Platform/Interface/NotificationLabel.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr int BarMaximum = 100;
/// In widths of a letter.
constexpr int BarWidth = 12;

}  // namespace

StatusLine::StatusLine(SynchronizationMonitor *monitor, QWidget *parent)
    : QWidget(parent),
      m_monitor(monitor),
      m_bar(new QProgressBar),
      m_label(new NotificationLabel),
      m_stopButton(new QPushButton(tr("&Stop"))),
      m_detailsButton(new QPushButton(tr("&What Failed…"))) {
    setObjectName(QStringLiteral("synchronizationStatus"));
    m_bar->setAccessibleName(tr("Progress of the synchronization"));
    m_bar->setTextVisible(false);
    m_bar->setFixedWidth(fontMetrics().averageCharWidth() * BarWidth);
    m_label->setWordWrap(true);
    m_stopButton->setToolTip(
        tr("Stop all synchronizations. The next one continues where they stopped."));
    connect(m_stopButton, &QPushButton::clicked, m_monitor, &SynchronizationMonitor::stop);
    connect(m_detailsButton, &QPushButton::clicked, this, &StatusLine::failureRequested);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_bar);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_stopButton);
    layout->addWidget(m_detailsButton);
    // The line keeps its height while no button is visible.
    setMinimumHeight(m_stopButton->sizeHint().height());
    connect(m_monitor, &SynchronizationMonitor::changed, this, &StatusLine::showStatus);
    showStatus();
}

void StatusLine::showStatus() {
    const QVSyncProgress progress = m_monitor->progress();
    m_bar->setVisible(m_monitor->isRunning());
    m_bar->setMaximum(progress.total == 0 ? 0 : BarMaximum);
    m_bar->setValue(
        progress.total == 0 ? 0 : static_cast<int>(progress.done * BarMaximum / progress.total));
    m_label->setText(PlainText::message(m_monitor->text()));
    m_label->setQuiet(m_monitor->isRunning());
    m_stopButton->setVisible(m_monitor->isStoppable());
    m_detailsButton->setVisible(!m_monitor->isRunning() && m_monitor->summary().failure());
}
