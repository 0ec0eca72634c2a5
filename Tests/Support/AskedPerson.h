#pragma once

#include <functional>
#include <vector>

#include "Support/TestApplication.h"

/// Application object of a test that controls when and how the user answers questions. Replaces the
/// TestHost's.
class AskedPerson : public TestApplication {
public:
    void ask(const Question &question, std::function<void(bool)> handler) override;

    /// Answers every question with `answer` from now on, including the waiting ones.
    void answerAll(const std::function<bool(const Question &)> &answer);
    /// Leaves questions open until the next call of answerAll().
    void think() { m_answer = nullptr; }
    const QList<Question> &asked() const { return m_asked; }

private:
    struct Waiting {
        Question question;
        std::function<void(bool)> handler;
    };

    QList<Question> m_asked;
    std::vector<Waiting> m_waiting;
    std::function<bool(const Question &)> m_answer;
};
