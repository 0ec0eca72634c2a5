#pragma once

#include <chrono>
#include <memory>

#include "Application/Interface/QuestionPresenter.h"
#include "Engine/Foundation/EngineFuture.h"

/// A question to the person, from a thread that can wait for the answer. Any thread.
class PersonsAnswer {
public:
    /// Shows the question from the main thread's event loop, unless this object is destroyed
    /// before.
    explicit PersonsAnswer(const Question &question);

    /// Waits until it is answered, `future` is cancelled or the `patience` is over; whether it was
    /// accepted. Never on the main thread.
    bool wait(const EngineFuture &future, std::chrono::milliseconds patience) const;

private:
    struct State;
    const std::shared_ptr<State> m_state;
};
