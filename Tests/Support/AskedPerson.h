#pragma once

#include <functional>
#include <vector>

#include "Support/TestApplication.h"

/// The application object of a test that says itself when, and how, questions are answered. It
/// takes the place of the TestHost's.
class AskedPerson : public TestApplication {
public:
    void ask(const Question &question, std::function<void(bool)> handler) override;

    /// Every question is answered so from now on; those that wait too.
    void answerAll(const std::function<bool(const Question &)> &answer);
    /// From now on questions wait.
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
