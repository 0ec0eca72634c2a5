#pragma once

#include <QtCore/QSet>
#include <array>
#include <vector>

#include "Engine/Notes/Operation.h"

/// Identifiers of operations in little memory: a database can have millions of them. A value.
/// Several threads may call contains() at the same time, but none while another one changes it.
class IdentifierSet {
public:
    /// Adds identifiers, which may be in the set already. sort() must be called after the last one.
    /// O(1) for each, amortized.
    void add(const OperationId &identifier);
    void add(const QList<OperationId> &identifiers);
    /// Must be called between the last add() and the first contains(). O(n log n).
    void sort();
    /// Returns whether the identifier was added. O(log n).
    bool contains(const OperationId &identifier) const;

private:
    using Bytes = std::array<char, Operation::IdentifierSize>;

    std::vector<Bytes> m_identifiers;
    /// Those of another size, which only damage leaves.
    QSet<OperationId> m_others;
};
