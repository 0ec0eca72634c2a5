#include "Application/QuitGuard.h"

#include <QtCore/QEvent>
#include <chrono>

#include "Application/MainWindow.h"
#include "Application/QuitSynchronization.h"

namespace {

constexpr std::chrono::minutes EndOfSession(1);

}  // namespace

QuitGuard::QuitGuard(MainWindow *window) : QObject(window), m_window(window) {
    m_window->installEventFilter(this);
}

void QuitGuard::allowEnd() {
    m_end.setRemainingTime(EndOfSession);
}

bool QuitGuard::eventFilter(QObject *object, QEvent *event) {
    if (event->type() != QEvent::Close || !m_end.hasExpired()) {
        return QObject::eventFilter(object, event);
    }
    if (m_isAsking || !prepareToQuit()) {
        event->ignore();
        return true;
    }
    return false;
}

bool QuitGuard::prepareToQuit() {
    m_isAsking = true;
    const bool isReady = m_window->leaveText() && QuitSynchronization(m_window).run();
    m_isAsking = false;
    return isReady;
}
