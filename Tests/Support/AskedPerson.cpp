#include "Support/AskedPerson.h"

#include <QtCore/QCoreApplication>
#include <utility>

void AskedPerson::ask(const Question &question, std::function<void(bool)> handler) {
    m_asked.append(question);
    if (!m_answer) {
        m_waiting.push_back({question, std::move(handler)});
        return;
    }
    QMetaObject::invokeMethod(
        qApp, [handler = std::move(handler), accepted = m_answer(question)] { handler(accepted); },
        Qt::QueuedConnection);
}

void AskedPerson::answerAll(const std::function<bool(const Question &)> &answer) {
    m_answer = answer;
    for (const Waiting &one : std::exchange(m_waiting, {})) {
        one.handler(answer(one.question));
    }
}
