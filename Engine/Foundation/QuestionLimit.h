#pragma once

#include <QtCore/QDeadlineTimer>
#include <chrono>

/// Decides when the user may be asked about the same thing again: one question at a time, and after
/// each that was not accepted a pause, which is twice as long as the one before. This protects the
/// user from a server that causes the same question again and again. Not thread-safe. The state
/// lasts as long as the object; nothing is stored.
class QuestionLimit {
public:
    /// The pause after the first question that was not accepted, and the longest one. Neither may
    /// be negative; `first` must not be longer than `longest`.
    struct Pauses {
        std::chrono::milliseconds first;
        std::chrono::milliseconds longest;
    };

    /// The first question may be asked at once.
    explicit QuestionLimit(const Pauses &pauses) : m_pauses(pauses), m_next(pauses.first) {}

    /// Returns whether a question may be asked now: none is open, and no pause lasts. It is then
    /// open until close() is called, so each call that returns true needs exactly one call of
    /// close().
    bool open();
    /// Called when the open question was accepted, or when it was refused or withdrawn. Has no
    /// effect if none is open. An accepted question resets the pauses; another may be asked at
    /// once.
    void close(bool isAccepted);

private:
    Pauses m_pauses;
    std::chrono::milliseconds m_next;
    /// Expired unless a question was not accepted.
    QDeadlineTimer m_pause{0};
    bool m_isOpen = false;
};
