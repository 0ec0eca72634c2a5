#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "Platform/Foundation/DayChange.h"
#include "Platform/KeyValue/KeyValue.h"

class QVSyncState;

/// What the status of a row observes: the row, the states that it shows with their results, and the
/// day, which dates are relative to. Ends with this object, so that no handler is called
/// afterwards. Must be used on the main thread.
class RowObservation {
public:
    using Handler = std::function<void()>;

    /// `changed` is called when a new day begins and by observeResult(); it must not be empty.
    explicit RowObservation(Handler changed);

    /// Calls `handler` for each change of `keyPath`, until endRow(). `row` is not owned and must
    /// not be null.
    void observeRow(QObject *row, const char *keyPath, const Handler &handler);
    /// Calls `handler` for each change of `key`, until endStates(). `state` is not owned and must
    /// not be null.
    void observeState(QVSyncState *state, const char *key, const Handler &handler);
    /// Calls `changed` for each new result of `state`, until endStates(). Has no effect if the host
    /// offers no results. `state` is not owned and must not be null.
    void observeResult(QVSyncState *state);
    /// End what observeRow(), and what observeState() and observeResult() have begun. Idempotent.
    void endRow() { m_row.clear(); }
    void endStates() { m_states.clear(); }

private:
    const Handler m_changed;
    const std::shared_ptr<DayChange> m_dayChange = DayChange::shared();
    std::vector<KeyValue::Observation> m_row;
    std::vector<KeyValue::Observation> m_states;
    /// Receives the day's signal; must be the last member, so that it ends first.
    QObject m_context;
};
