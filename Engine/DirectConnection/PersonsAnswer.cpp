#include "Engine/DirectConnection/PersonsAnswer.h"

#include <QtCore/QDeadlineTimer>
#include <condition_variable>
#include <mutex>
#include <optional>

#include "Engine/Foundation/MainThreadQueue.h"

namespace {

/// How soon a cancellation is noticed.
constexpr std::chrono::milliseconds Slice(100);

}  // namespace

struct PersonsAnswer::State {
    void set(bool isAccepted) {
        const std::lock_guard lock(mutex);
        answer = isAccepted;
        answered.notify_all();
    }

    std::mutex mutex;
    std::condition_variable answered;
    std::optional<bool> answer;
};

PersonsAnswer::PersonsAnswer(const Question &question) : m_state(std::make_shared<State>()) {
    MainThreadQueue::post([question, state = m_state] {
        if (QuestionPresenter *presenter = QuestionPresenter::shared()) {
            presenter->ask(question, [state](bool isAccepted) { state->set(isAccepted); });
        } else {
            state->set(false);
        }
    });
}

bool PersonsAnswer::wait(const PZFuture &future, std::chrono::milliseconds patience) const {
    const QDeadlineTimer deadline(patience);
    std::unique_lock lock(m_state->mutex);
    while (!m_state->answer && !future.isCancelled() && !deadline.hasExpired()) {
        m_state->answered.wait_for(lock, Slice);
    }
    return m_state->answer.value_or(false);
}
