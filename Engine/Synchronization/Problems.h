#pragma once

#include <QtCore/QList>

#include "Engine/Foundation/EngineError.h"

/// The problems with single records that a task has found. Only the first are kept and the others
/// counted, so that a store cannot exhaust the memory of this computer. A value. Must not be used
/// on two threads at a time.
class Problems {
public:
    /// Number of problems that are kept.
    static constexpr qsizetype MostKept = 1000;

    /// Counts `problem`, and keeps it if fewer than MostKept are.
    void add(const Error &problem);
    /// Adds those of another task.
    void add(const Problems &others);
    /// Returns the first MostKept.
    const QList<Error> &kept() const { return m_kept; }
    /// Returns the number of all problems.
    qint64 count() const { return m_count; }

private:
    QList<Error> m_kept;
    qint64 m_count = 0;
};
