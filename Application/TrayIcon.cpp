#include "Application/TrayIcon.h"

#include <QtCore/QDateTime>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include "Application/SynchronizationMonitor.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr int IconSize = 64;

}  // namespace

TrayIcon::TrayIcon(SynchronizationMonitor *monitor, QObject *parent)
    : QObject(parent), m_monitor(monitor) {
    makeMenu();
    m_icon.setContextMenu(&m_menu);
    connect(&m_icon, &QSystemTrayIcon::activated, this, [this](auto reason) {
        if (reason == QSystemTrayIcon::Trigger) {
            Q_EMIT windowRequested();
        }
    });
    connect(m_monitor, &SynchronizationMonitor::changed, this, &TrayIcon::showState);
    showState();
    m_icon.show();
}

void TrayIcon::makeMenu() {
    m_stateAction = m_menu.addAction(QString());
    m_stateAction->setEnabled(false);
    m_menu.addSeparator();
    m_menu.addAction(tr("&Sync All Now"), this, &TrayIcon::synchronizationRequested);
    constexpr int hour = 60 * 60;
    m_pauseHourAction = m_menu.addAction(tr("&Pause for an Hour"), this, [this] {
        Q_EMIT pauseRequested(QDateTime::currentDateTime().addSecs(hour));
    });
    m_pauseDayAction = m_menu.addAction(tr("Pause until &Tomorrow"), this, [this] {
        Q_EMIT pauseRequested(QDate::currentDate().addDays(1).startOfDay());
    });
    m_resumeAction = m_menu.addAction(tr("&Resume"), this, &TrayIcon::resumeRequested);
    m_menu.addSeparator();
    m_menu.addAction(tr("Show &Velmora"), this, &TrayIcon::windowRequested);
    m_menu.addAction(tr("&Quit"), this, &TrayIcon::quitRequested);
}

void TrayIcon::setPaused(bool isPaused) {
    m_isPaused = isPaused;
    showState();
}

void TrayIcon::showState() {
    const QString state = m_isPaused && !m_monitor->isRunning()
                              ? tr("Paused")
                              : PlainText::message(m_monitor->text());
    // Names may contain the mark of a shortcut.
    m_stateAction->setText(QString(state).replace(u'&', QStringLiteral("&&")));
    m_icon.setToolTip(state.toHtmlEscaped());
    m_icon.setIcon(icon());
    m_pauseHourAction->setVisible(!m_isPaused);
    m_pauseDayAction->setVisible(!m_isPaused);
    m_resumeAction->setVisible(m_isPaused);
}

QIcon TrayIcon::icon() const {
    QIcon application = QApplication::windowIcon();
    QStyle::StandardPixmap badge = QStyle::SP_MessageBoxWarning;
    if (m_monitor->isRunning()) {
        badge = QStyle::SP_BrowserReload;
    } else if (m_isPaused) {
        badge = QStyle::SP_MediaPause;
    } else if (!m_monitor->summary().failure()) {
        return application;
    }
    QPixmap pixmap = application.pixmap(IconSize, IconSize);
    QPainter painter(&pixmap);
    constexpr int half = IconSize / 2;
    QApplication::style()->standardIcon(badge).paint(&painter, half, half, half, half);
    return pixmap;
}
