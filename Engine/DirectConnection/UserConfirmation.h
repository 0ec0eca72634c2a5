#pragma once

#include <chrono>
#include <memory>

#include "Application/Interface/QuestionPresenter.h"
#include "Engine/Foundation/EngineFuture.h"

/// A question to the user, asked from a thread that can block for the answer. Thread-safe.
class UserConfirmation {
public:
    /// Presents the question later, from the main thread's event loop. Returns at once. Without a
    /// QuestionPresenter, it counts as refused.
    explicit UserConfirmation(const Question &question);
    /// Withdraws the question if it is not answered, later on the main thread. Does not block.
    ~UserConfirmation();
    UserConfirmation(const UserConfirmation &) = delete;
    UserConfirmation &operator=(const UserConfirmation &) = delete;

    /// Blocks until the user has answered, `future` is cancelled, or `timeout` has expired. Returns
    /// whether the user accepted. Must not be called on the main thread. A refusal, a timeout and a
    /// cancellation are not distinguished. May be called again; an answer does not change.
    bool wait(const EngineFuture &future, std::chrono::milliseconds timeout) const;

private:
    struct State;
    const std::shared_ptr<State> m_state;
};
