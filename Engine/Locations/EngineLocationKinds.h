#pragma once

#include "Engine/Locations/EngineLocationKind.h"

/// The kinds of locations of an engine. Immutable, thus thread-safe. It is shared by the locations,
/// which look up their kind at each use.
class EngineLocationKinds {
public:
    /// `operations` starts the operations of stores of no kind in `kinds`; it must not be null. The
    /// schemes of the kinds must be distinct; the first kind with a scheme wins otherwise. `kinds`
    /// may be empty, as in tests of locations alone.
    explicit EngineLocationKinds(const std::shared_ptr<StoreOperations> &operations,
                                 QList<EngineLocationKind> kinds = {});

    /// Returns the kind whose schemes contain that of `URL`. Any other URL, including nil, has a
    /// kind whose stores fail in every operation. The reference is valid as long as this object.
    /// O(number of kinds). Schemes are compared exactly, so that one in upper case is of no kind in
    /// the table.
    const EngineLocationKind &kindForURL(const Url &URL) const;

private:
    /// In the order in which a URL is tested.
    const QList<EngineLocationKind> m_kinds;
    /// The kind of URLs that no other kind matches.
    const EngineLocationKind m_unknown;
};
