#pragma once

#include "Engine/Locations/LocationKind.h"

/// The kinds of locations of an engine. Immutable, thus thread-safe.
class LocationKinds {
public:
    /// The schemes of the kinds must differ.
    explicit LocationKinds(QList<LocationKind> kinds = {});

    /// Returns the kind whose schemes contain that of `URL`. Any other URL, a nil one included,
    /// is of a kind whose stores fail in every operation. The reference is valid as long as this
    /// object.
    const LocationKind &kindForURL(const Url &URL) const;

private:
    const QList<LocationKind> m_kinds;
    const LocationKind m_unknown;
};
