#pragma once

#include <QtCore/QString>
#include <QtGui/QPixmap>
#include <memory>

#include "Host/ClassRegistry.h"
#include "Platform/Foundation/Url.h"

/// How a location looks to a person. Made for one URL; main thread.
class HOST_EXPORT QVSyncLocationFormatter {
public:
    /// Registered as "QVSyncLocationFormatter".
    class HOST_EXPORT Class : public HostClass {
    public:
        /// Never nullptr, also for a nil URL or an unknown scheme.
        virtual std::unique_ptr<QVSyncLocationFormatter> formatterForLocationWithURL(
            const Url &URL) const = 0;
    };
    static std::unique_ptr<QVSyncLocationFormatter> formatterForLocationWithURL(const Url &URL);

    virtual ~QVSyncLocationFormatter();

    virtual QString title() const = 0;
    /// 32 by 32 in device-independent pixels, drawn for the densest screen.
    virtual QPixmap icon() const = 0;
    /// The name of the kind, localized with the table "Sync": "Dropbox", "Local Sync Store",
    /// "WebDAV", "Direct Connection".
    virtual QString locationType() const = 0;
};
