#pragma once

#include <QtNetwork/QHostAddress>
#include <chrono>
#include <list>

#include "Engine/Foundation/QuestionLimit.h"

/// Decides when the user may be asked whether to allow a computer: one question at a time, for each
/// address as QuestionLimit allows, and only so many questions that are not accepted in an hour. A
/// stranger thus keeps other computers out while the question about it is open; one with many
/// addresses can use up the questions of an hour, which a new object asks again. Not thread-safe.
/// The state lasts as long as the object, which is that of a server; nothing is stored.
class PeerQuestions {
public:
    /// Maximum number of addresses that are remembered; beyond it, that of the oldest question is
    /// forgotten.
    static constexpr size_t MostPeers = 100;

    /// `mostInAnHour` is the number of questions that are not accepted, for all addresses together.
    PeerQuestions(const QuestionLimit::Pauses &pauses, qsizetype mostInAnHour)
        : m_pauses(pauses), m_mostInAnHour(mostInAnHour) {}

    /// Returns whether a question about the computer with this address may be asked now. It is then
    /// open until close() is called, so each call that returns true needs exactly one call of
    /// close().
    bool open(const QHostAddress &peer);
    /// Called when the open question was accepted, or when it was refused or withdrawn. There must
    /// be an open one.
    void close(bool isAccepted);

private:
    struct Peer {
        QHostAddress address;
        QuestionLimit limit;
    };

    const QuestionLimit::Pauses m_pauses;
    const qsizetype m_mostInAnHour;
    /// In the order of their last questions, of which the last one may be open.
    std::list<Peer> m_peers;
    /// When the questions that were not accepted count no more, in order.
    std::list<QDeadlineTimer> m_refusals;
    bool m_isOpen = false;
};
