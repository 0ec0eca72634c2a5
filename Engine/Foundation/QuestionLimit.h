#pragma once

#include <QtCore/QDeadlineTimer>
#include <chrono>

/// Decides when the user may be asked about the same thing again: one question at a time, and after
/// each that was not accepted a pause, which is twice as long as the one before.
class QuestionLimit {
public:
    struct Pauses {
        std::chrono::milliseconds first;
        std::chrono::milliseconds longest;
    };

    explicit QuestionLimit(const Pauses &pauses) : m_pauses(pauses), m_next(pauses.first) {}

    /// Returns whether a question may be asked now. It is then open until close() is called.
    bool open();
    /// Called when the open question was accepted, or when it was refused or withdrawn. Has no
    /// effect if none is open.
    void close(bool isAccepted);

private:
    Pauses m_pauses;
    std::chrono::milliseconds m_next;
    /// Expired unless a question was not accepted.
    QDeadlineTimer m_pause{0};
    bool m_isOpen = false;
};
