#include "Application/QuitGuard.h"

#include <QtCore/QEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <algorithm>
#include <chrono>
#include <utility>

#include "Application/MainWindow.h"
#include "Application/QuitSynchronization.h"

namespace {

constexpr std::chrono::minutes EndOfSession(1);

/// Brings an error or a question to the front that the user has not closed yet. Returns whether
/// there is one.
bool showOpenMessage() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget *each) {
        return qobject_cast<const QMessageBox *>(each) && each->isVisible() && each->isModal();
    });
    if (found == windows.end()) {
        return false;
    }
    (*found)->raise();
    (*found)->activateWindow();
    return true;
}

}  // namespace

QuitGuard::QuitGuard(MainWindow *window) : QObject(window), m_window(window) {
    m_window->installEventFilter(this);
    connect(m_window, &MainWindow::quitRequested, this, [this] { m_isQuitting = true; });
}

void QuitGuard::allowEnd() {
    m_end.setRemainingTime(EndOfSession);
}

bool QuitGuard::eventFilter(QObject *object, QEvent *event) {
    if (event->type() != QEvent::Close) {
        return QObject::eventFilter(object, event);
    }
    const bool isQuitting = std::exchange(m_isQuitting, false);
    if (!m_end.hasExpired()) {
        // A question would keep the session from ending. What cannot be saved is kept.
        m_window->saveAll();
        event->accept();
        return true;
    }
    const bool isHidden = m_isHiding && !isQuitting;
    if (!isHidden && !m_isAsking && prepareToQuit()) {
        if (m_isHiding) {
            // The program does not end with its last window then.
            QMetaObject::invokeMethod(
                qApp, [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
        }
        return false;
    }
    event->ignore();
    if (isHidden && !m_isAsking) {
        hideWindow();
    }
    return true;
}

void QuitGuard::hideWindow() {
    if (m_window->leaveText()) {
        m_window->saveAll();
        m_window->hide();
    }
    if (std::exchange(m_isQuitting, false)) {
        // Chosen while the user was asked about the text.
        QMetaObject::invokeMethod(m_window, &MainWindow::quit, Qt::QueuedConnection);
    }
}

bool QuitGuard::prepareToQuit() {
    m_isAsking = true;
    // What came up meanwhile would vanish unread.
    const bool isReady = !showOpenMessage() && m_window->leaveText() &&
                         QuitSynchronization(m_window).run() && !showOpenMessage() &&
                         m_window->leavePreferences();
    m_isAsking = false;
    // Chosen again meanwhile, which closes nothing.
    m_isQuitting = false;
    return isReady;
}
