#include "Support/AskedUser.h"

#include <QtCore/QCoreApplication>
#include <algorithm>
#include <utility>

QuestionPresenter::Withdrawal AskedUser::ask(const Question &question,
                                             std::function<void(bool)> handler) {
    m_asked.append(question);
    if (m_answer) {
        QMetaObject::invokeMethod(
            qApp,
            [handler = std::move(handler), accepted = m_answer(question)] { handler(accepted); },
            Qt::QueuedConnection);
        return [] {};
    }
    const qsizetype number = m_asked.size();
    m_waiting->push_back({number, question, std::move(handler)});
    return [waiting = std::weak_ptr(m_waiting), number] {
        const auto open = waiting.lock();
        if (!open) {
            return;
        }
        const auto found = std::find_if(open->begin(), open->end(),
                                        [&](const Waiting &one) { return one.number == number; });
        if (found != open->end()) {
            const Waiting withdrawn = *found;
            open->erase(found);
            withdrawn.handler(false);
        }
    };
}

void AskedUser::answerAll(const std::function<bool(const Question &)> &answer) {
    m_answer = answer;
    for (const Waiting &one : std::exchange(*m_waiting, {})) {
        one.handler(answer(one.question));
    }
}
