#pragma once

#include <QtCore/QSet>
#include <array>
#include <vector>

#include "Engine/Notes/Operation.h"

/// Identifiers of operations in little memory: a database can have millions of them. A value.
/// Several threads may call contains() at the same time, but none while another one changes it.
class IdentifierSet {
public:
    void add(const OperationId &identifier);
    void add(const QList<OperationId> &identifiers);
    /// Must be called between the last add() and the first contains(). O(n log n).
    void sort();
    /// O(log n).
    bool contains(const OperationId &identifier) const;

private:
    using Bytes = std::array<char, Operation::IdentifierSize>;

    std::vector<Bytes> m_identifiers;
    /// Those of another size, which only damage leaves.
    QSet<OperationId> m_others;
};
