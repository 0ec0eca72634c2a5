#include "Support/TestApplication.h"

#include <QtCore/QCoreApplication>

#include "Engine/Plugin/SyncEngine.h"

TestApplication::TestApplication() {
    setNSApp(this);
}

TestApplication::~TestApplication() {
    setNSApp(nullptr);
}

std::shared_ptr<QVDatabase> TestApplication::inbox() const {
    return m_engine && m_engine->library() ? m_engine->library()->inbox() : nullptr;
}

void TestApplication::logItemCmd(const QString &title, const QString &info) {
    m_logEntries.append({title, info});
}

void TestApplication::presentError(const Error &error) {
    m_presentedErrors.append(error);
}

QuestionPresenter::Withdrawal TestApplication::ask(const Question &question,
                                                   std::function<void(bool)> handler) {
    m_questions.append(question);
    QMetaObject::invokeMethod(
        qApp, [handler = std::move(handler), accepted = m_isAccepting] { handler(accepted); },
        Qt::QueuedConnection);
    return [] {};
}

void TestApplication::askAboutRemoval(const RemovalQuestion &question,
                                      std::function<void(RemovalDecision)> handler) {
    m_removalQuestions.append(question);
    if (!m_removalDecision) {
        m_openRemovals.append(std::move(handler));
        return;
    }
    QMetaObject::invokeMethod(
        qApp, [handler = std::move(handler), decision = *m_removalDecision] { handler(decision); },
        Qt::QueuedConnection);
}
