#pragma once

#include <QtCore/QDateTime>

/// A time zone of this process in which it is about noon and the clock is changed by an hour soon.
/// The former zone returns with this object; there must be one at a time. No other thread may read
/// or change the environment meanwhile. Must be used on the main thread.
class ClockChange {
public:
    enum class Kind {
        /// The clock is set forward, so that an hour is skipped.
        Forward,
        /// The clock is set back, so that an hour comes twice.
        Back,
    };

    /// Changes the clock at 2:00 (Forward) or 3:00 (Back) of the next day.
    static ClockChange tomorrow(Kind kind);
    /// Changes the clock at `moment`, a full minute that is less than an hour away.
    static ClockChange at(const QDateTime &moment, Kind kind);
    /// Sets the former zone.
    ~ClockChange();
    ClockChange(const ClockChange &) = delete;
    ClockChange &operator=(const ClockChange &) = delete;

    /// Returns whether this system knows the zone. Otherwise nothing can be checked in it.
    bool isInEffect() const;

private:
    /// `moment` is the time of the change by the clock before it.
    ClockChange(Kind kind, const QDateTime &utcNow, const QDateTime &moment);

    /// The offset from UTC before the change, in hours, at which it is noon at `utcNow`.
    static int offsetAt(const QDateTime &utcNow);

    const bool m_hadZone;
    const QByteArray m_formerZone;
    const int m_offset;
};
