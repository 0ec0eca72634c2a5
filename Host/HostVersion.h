#pragma once

#include <QtCore/QString>

/// A version of the interface between a host and the pane. A value. Hosts and panes with the same
/// `major` work together; a greater `minor` has optional additions only, which the pane looks for
/// and can do without.
struct HostVersion {
    /// Changes when a host or a pane that was compiled before cannot be used any more.
    int major = 0;
    /// Changes when there is a new optional addition. 0 with each new `major`.
    int minor = 0;

    /// Compares both numbers.
    bool operator==(const HostVersion &) const = default;

    /// Returns the version as users know it, such as "1.0".
    QString text() const { return QStringLiteral("%1.%2").arg(major).arg(minor); }
};

/// The version of these headers. It is compiled into each host and into the pane. `major` is also
/// that of the libraries (SOVERSION).
inline constexpr HostVersion CurrentHostVersion{.major = 1, .minor = 0};
