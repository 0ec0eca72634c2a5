#include "Engine/Notes/IdentifierSet.h"

#include <algorithm>

namespace {

std::array<char, Operation::IdentifierSize> bytesOf(const OperationId &identifier) {
    std::array<char, Operation::IdentifierSize> bytes{};
    std::copy(identifier.begin(), identifier.end(), bytes.begin());
    return bytes;
}

}  // namespace

void IdentifierSet::add(const OperationId &identifier) {
    if (identifier.size() == Operation::IdentifierSize) {
        m_identifiers.push_back(bytesOf(identifier));
    } else {
        m_others.insert(identifier);
    }
}

void IdentifierSet::add(const QList<OperationId> &identifiers) {
    for (const OperationId &identifier : identifiers) {
        add(identifier);
    }
}

void IdentifierSet::sort() {
    std::sort(m_identifiers.begin(), m_identifiers.end());
}

bool IdentifierSet::contains(const OperationId &identifier) const {
    return identifier.size() == Operation::IdentifierSize
               ? std::binary_search(m_identifiers.begin(), m_identifiers.end(), bytesOf(identifier))
               : m_others.contains(identifier);
}
