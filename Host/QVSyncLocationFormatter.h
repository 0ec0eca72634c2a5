#pragma once

#include <QtCore/QString>
#include <memory>

#include "Host/ClassRegistry.h"
#include "Platform/Foundation/Url.h"

class QPixmap;

/// Describes a location for display. A formatter is created for one URL, which does not change; the
/// caller owns it. Must be used on the main thread.
class HOST_EXPORT QVSyncLocationFormatter {
public:
    /// The class object, see HostClass.
    class HOST_EXPORT Class : public HostClass {
    public:
        /// The name under which a host registers the class object.
        static constexpr QLatin1StringView Name{"QVSyncLocationFormatter"};
        /// Implements QVSyncLocationFormatter::formatterForLocationWithURL().
        virtual std::unique_ptr<QVSyncLocationFormatter> formatterForLocationWithURL(
            const Url &URL) const = 0;
    };
    /// Returns a formatter for `URL`. Never null, also for a nil URL or an unknown scheme. Raises
    /// an AssertionFailure if the host has no class "QVSyncLocationFormatter".
    static std::unique_ptr<QVSyncLocationFormatter> formatterForLocationWithURL(const Url &URL);

    virtual ~QVSyncLocationFormatter();

    /// Returns the name of the location, such as the host or the folder. Localized where it is no
    /// proper name; never contains a password.
    virtual QString title() const = 0;
    /// Returns an icon of 32 by 32 device-independent pixels at a device pixel ratio of at least 2,
    /// so that it is sharp on every screen. Never null.
    virtual QPixmap icon() const = 0;
    /// Returns the kind of the location, as localizedSyncString() has it for the keys "Dropbox",
    /// "Local Sync Store", "WebDAV" and "Direct Connection", or "Unknown Location" for a nil URL
    /// and a scheme that this host does not know.
    virtual QString locationType() const = 0;
};
