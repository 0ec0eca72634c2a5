#pragma once

#include <QtCore/QList>

#include "Application/Interface/QuestionPresenter.h"
#include "Host/QVApplication.h"

class SyncEngine;

/// Application object of a test that records its calls.
class TestApplication : public QVApplication, public QuestionPresenter {
public:
    struct LogEntry {
        QString title;
        QString info;
        bool operator==(const LogEntry &) const = default;
    };

    /// Becomes NSApp while it exists.
    TestApplication();
    ~TestApplication() override;

    void setEngine(SyncEngine *engine) { m_engine = engine; }
    const QList<Error> &presentedErrors() const { return m_presentedErrors; }
    const QList<LogEntry> &logEntries() const { return m_logEntries; }
    const QList<Question> &questions() const { return m_questions; }
    /// Sets the answer to every later question (default: refused).
    void answerQuestions(bool accepting) { m_isAccepting = accepting; }
    const QList<RemovalQuestion> &removalQuestions() const { return m_removalQuestions; }
    /// Sets the answer to every later question about a removal (default: later).
    void decideRemovals(RemovalDecision decision) { m_removalDecision = decision; }
    /// Leaves every later question about a removal open.
    void leaveRemovalsOpen() { m_removalDecision = std::nullopt; }
    /// Answers the last question that was left open.
    void answerOpenRemoval(RemovalDecision decision) { m_openRemovals.last()(decision); }
    /// Answers the first one.
    void answerFirstOpenRemoval(RemovalDecision decision) { m_openRemovals.first()(decision); }

    std::shared_ptr<QVDatabase> inbox() const override;
    void logItemCmd(const QString &title, const QString &info) override;
    void presentError(const Error &error) override;
    Withdrawal ask(const Question &question, std::function<void(bool)> handler) override;
    void askAboutRemoval(const RemovalQuestion &question,
                         std::function<void(RemovalDecision)> handler) override;

private:
    SyncEngine *m_engine = nullptr;
    QList<Error> m_presentedErrors;
    QList<LogEntry> m_logEntries;
    QList<Question> m_questions;
    bool m_isAccepting = false;
    QList<RemovalQuestion> m_removalQuestions;
    std::optional<RemovalDecision> m_removalDecision = RemovalDecision::Later;
    QList<std::function<void(RemovalDecision)>> m_openRemovals;
};
