#include "Engine/DirectConnection/UserConfirmation.h"

#include <optional>
#include <utility>

#include "Engine/Foundation/CancellableWait.h"
#include "Platform/Foundation/MainQueue.h"

struct UserConfirmation::State {
    void set(bool isAccepted) {
        const std::lock_guard lock(mutex);
        answer = isAccepted;
        answered.notify_all();
    }

    std::mutex mutex;
    std::condition_variable_any answered;
    std::optional<bool> answer;
    /// Closes the question; empty unless it is open. Used on the main thread only.
    QuestionPresenter::Withdrawal withdraw;
};

UserConfirmation::UserConfirmation(const Question &question) : m_state(std::make_shared<State>()) {
    MainQueue::dispatchAsync([question, asker = std::weak_ptr(m_state)] {
        const std::shared_ptr<State> state = asker.lock();
        if (!state) {
            return;
        }
        if (QuestionPresenter *presenter = QuestionPresenter::ofApplication()) {
            state->withdraw = presenter->ask(question, [state](bool isAccepted) {
                state->withdraw = nullptr;
                state->set(isAccepted);
            });
        } else {
            state->set(false);
        }
    });
}

UserConfirmation::~UserConfirmation() {
    MainQueue::dispatchAsync([state = m_state] {
        if (const auto withdraw = std::exchange(state->withdraw, nullptr)) {
            withdraw();
        }
    });
}

bool UserConfirmation::wait(const EngineFuture &future, std::chrono::milliseconds timeout) const {
    std::unique_lock lock(m_state->mutex);
    CancellableWait(future, QDeadlineTimer(timeout)).until(m_state->answered, lock, [this] {
        return m_state->answer.has_value();
    });
    return m_state->answer.value_or(false);
}
