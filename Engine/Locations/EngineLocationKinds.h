#pragma once

#include "Engine/Locations/EngineLocationKind.h"

/// The kinds of locations of an engine. Immutable, thus thread-safe.
class EngineLocationKinds {
public:
    /// The schemes of the kinds must differ.
    explicit EngineLocationKinds(QList<EngineLocationKind> kinds = {});

    /// Returns the kind whose schemes contain that of `URL`. Any other URL, a nil one included,
    /// is of a kind whose stores fail in every operation. The reference is valid as long as this
    /// object.
    const EngineLocationKind &kindForURL(const Url &URL) const;

private:
    const QList<EngineLocationKind> m_kinds;
    const EngineLocationKind m_unknown;
};
