#include "Application/BackgroundMode.h"

#include <QtCore/QDateTime>
#include <QtCore/QPointer>
#include <QtDBus/QDBusConnection>
#include <QtGui/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QSystemTrayIcon>
#include <chrono>

#include "Application/ApplicationError.h"
#include "Application/DesktopNotifier.h"
#include "Application/Interface/SyncPlugIn.h"
#include "Application/MainWindow.h"
#include "Application/PresentIfFailed.h"
#include "Application/QuitGuard.h"
#include "Application/SynchronizationMonitor.h"
#include "Application/TrayIcon.h"
#include "Application/VelmoraApplication.h"
#include "Host/QVSyncPlugin.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

/// How often the clock is compared with the end of a pause, since a computer may sleep meanwhile.
constexpr std::chrono::seconds PauseCheck(30);

}  // namespace

const QString BackgroundMode::Key = QStringLiteral("QVKeepSynchronizingInBackground");

BackgroundMode::BackgroundMode(MainWindow *window, QuitGuard *guard, SyncPlugIn *sync)
    : m_window(window),
      m_guard(guard),
      m_sync(sync),
      m_panel(QStringLiteral("org.kde.StatusNotifierWatcher"), QDBusConnection::sessionBus()) {
    m_action = new QAction(tr("Keep Synchronizing in the &Background"), this);
    m_action->setCheckable(true);
    m_window->addToolsAction(m_action);
    m_hideAction = new QAction(tr("&Hide Window"), this);
    m_hideAction->setShortcut(QKeySequence::Close);
    m_window->addToolsAction(m_hideAction);
    connect(m_hideAction, &QAction::triggered, m_window, &QWidget::close);
    const Expected<bool> isChosen = UserDefaults::boolForKey(Key);
    if (!isChosen) {
        NSApp()->presentError(isChosen.error());
    }
    const bool isWanted = isChosen.value_or(false);
    m_action->setChecked(isWanted);
    connect(m_action, &QAction::toggled, this, &BackgroundMode::setEnabled);
    connect(m_window->monitor(), &SynchronizationMonitor::changed, this,
            &BackgroundMode::notifyOfChanges);
    connect(static_cast<VelmoraApplication *>(qApp), &VelmoraApplication::questionShown, this,
            [this](const QString &text) { notify(tr("Velmora asks for a decision"), text); });
    m_hasFailed = m_window->monitor()->summary().failure().has_value();
    notifyOfConflicts();
    connect(&m_panel, &QDBusServiceWatcher::serviceUnregistered, this, &BackgroundMode::losePanel);
    connect(&m_panel, &QDBusServiceWatcher::serviceRegistered, this, &BackgroundMode::findPanel);
    apply(isWanted && hasPlace());
    if (isWanted && !m_icon) {
        // Later, when the window is shown.
        QMetaObject::invokeMethod(this, &BackgroundMode::presentMissingPlace, Qt::QueuedConnection);
    }
}

BackgroundMode::~BackgroundMode() = default;

void BackgroundMode::setEnabled(bool isEnabled) {
    if (isEnabled && !hasPlace()) {
        m_action->setChecked(false);
        NSApp()->presentError({.domain = ApplicationErrorDomain,
                               .localizedDescription =
                                   tr("Velmora cannot stay in the background, because this desktop "
                                      "shows no icons of programs. Turn them on in the desktop's "
                                      "settings and try again.")});
        return;
    }
    presentIfFailed(UserDefaults::setValue(Key, isEnabled));
    apply(isEnabled);
}

bool BackgroundMode::hasPlace() const {
    return QSystemTrayIcon::isSystemTrayAvailable() && !m_hasLostPanel;
}

void BackgroundMode::losePanel() {
    m_hasLostPanel = true;
    if (m_icon) {
        apply(false);
        m_window->show();
        presentMissingPlace();
    }
}

void BackgroundMode::findPanel() {
    m_hasLostPanel = false;
    if (m_action->isChecked() && !m_icon && hasPlace()) {
        apply(true);
    }
}

void BackgroundMode::presentMissingPlace() {
    NSApp()->presentError(
        {.domain = ApplicationErrorDomain,
         .localizedDescription =
             tr("Velmora cannot stay in the background at present, because the desktop shows no "
                "icons of programs. It ends when its window is closed. Turn the icons on in the "
                "desktop's settings, and start Velmora again."),
         .recoveryOptions = {{tr("Do Not Stay in the Background"), [action = QPointer(m_action)] {
                                  if (action) {
                                      action->setChecked(false);
                                  }
                              }}}});
}

void BackgroundMode::apply(bool isEnabled) {
    m_guard->setHiding(isEnabled);
    m_hideAction->setEnabled(isEnabled);
    QApplication::setQuitOnLastWindowClosed(!isEnabled);
    if (isEnabled) {
        makeIcon();
    } else {
        m_icon.reset();
        pauseUntil({});
    }
}

void BackgroundMode::makeIcon() {
    m_icon = std::make_unique<TrayIcon>(m_window->monitor());
    connect(m_icon.get(), &TrayIcon::windowRequested, m_window, &MainWindow::bringToFront);
    connect(m_icon.get(), &TrayIcon::synchronizationRequested, this,
            &BackgroundMode::synchronizeAll);
    connect(m_icon.get(), &TrayIcon::pauseRequested, this, &BackgroundMode::pauseUntil);
    connect(m_icon.get(), &TrayIcon::resumeRequested, this, [this] { pauseUntil({}); });
    connect(m_icon.get(), &TrayIcon::quitRequested, m_window, &MainWindow::quit);
}

void BackgroundMode::synchronizeAll() {
    m_window->monitor()->update();
    QVSyncStates states;
    const QList<SynchronizationSummary::Item> items = m_window->monitor()->summary().items();
    for (const SynchronizationSummary::Item &item : items) {
        states.append(item.state);
    }
    QVSyncPlugin::plugin()->dispatcher()->performSynchronizationsWithSynchronizationStates(states);
}

void BackgroundMode::pauseUntil(const QDateTime &end) {
    m_sync->pauseUntil(end);
    m_pauseTimer.disconnect(this);
    m_pauseTimer.stop();
    if (m_icon) {
        m_icon->setPaused(end.isValid());
    }
    if (end.isValid()) {
        connect(&m_pauseTimer, &QTimer::timeout, this, [this, end] {
            if (QDateTime::currentDateTime() >= end) {
                pauseUntil({});
            }
        });
        m_pauseTimer.start(PauseCheck);
    }
}

void BackgroundMode::notifyOfChanges() {
    if (m_window->monitor()->isRunning()) {
        return;
    }
    const std::optional<Error> failure = m_window->monitor()->summary().failure();
    if (failure && !m_hasFailed) {
        notify(tr("A synchronization failed"), failure->localizedDescription);
    }
    m_hasFailed = failure.has_value();
    notifyOfConflicts();
}

void BackgroundMode::notifyOfConflicts() {
    const Expected<qint64> conflicts = countOfConflicts();
    if (!conflicts) {
        // The window presents that notes cannot be read.
        return;
    }
    if (m_conflicts && *conflicts > *m_conflicts) {
        notify(tr("A note was edited on two computers"),
               tr("Velmora has kept both edits. Open the note to choose one."));
    }
    m_conflicts = *conflicts;
}

Expected<qint64> BackgroundMode::countOfConflicts() const {
    qint64 count = 0;
    const auto databases = m_sync->library()->knownDatabases();
    for (const auto &database : databases) {
        Expected<qint64> conflicts = database->countOfConflicts();
        if (!conflicts) {
            return conflicts;
        }
        count += *conflicts;
    }
    return count;
}

void BackgroundMode::notify(const QString &title, const QString &text) const {
    if (m_icon && !QApplication::activeWindow()) {
        DesktopNotifier::show(title, text);
    }
}
