#pragma once

#include "Controller/Preferences/QVSynchronizationSelection.h"
#include "Platform/KeyValue/KeyValue.h"

/// Clears the error of a row of the location list as soon as something newer is known: when a job
/// of the selected database with the location ends, and when the location's URL is set. It does so
/// for every row, also for one that has no view. Must be used on the main thread.
class ErrorExpiry : public QObject {
    Q_OBJECT
public:
    /// Observes `selection` from now on until it is destroyed. It must not be null and becomes the
    /// parent.
    explicit ErrorExpiry(QVSynchronizationSelection *selection);

private:
    /// Observes the state of the row's database at its location, which may be another one now.
    void observeState();
    /// Sets the row's error to none.
    void clearError() const;

    QVSynchronizationSelection *const m_selection;
    KeyValue::Observation m_URL;
    KeyValue::Observation m_selected;
    KeyValue::Observation m_lastSynced;
    KeyValue::Observation m_result;
};
