#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Support/TestApplication.h"

/// Application object of a test that controls when and how the user answers questions. Replaces the
/// TestHost's.
class AskedUser : public TestApplication {
public:
    Withdrawal ask(const Question &question, std::function<void(bool)> handler) override;

    /// Answers every question with `answer` from now on, including the waiting ones.
    void answerAll(const std::function<bool(const Question &)> &answer);
    /// Leaves questions open until the next call of answerAll().
    void think() { m_answer = nullptr; }
    const QList<Question> &asked() const { return m_asked; }
    /// The number of questions that are open.
    qsizetype waiting() const { return std::ssize(*m_waiting); }

private:
    struct Waiting {
        qsizetype number;
        Question question;
        std::function<void(bool)> handler;
    };

    QList<Question> m_asked;
    /// Shared with the withdrawals, which may be called later.
    std::shared_ptr<std::vector<Waiting>> m_waiting = std::make_shared<std::vector<Waiting>>();
    std::function<bool(const Question &)> m_answer;
};
