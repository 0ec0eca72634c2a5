#pragma once

#include <QtCore/QList>
#include <memory>

#include "Engine/Locations/EngineLocationKind.h"
#include "Host/QVSyncLocationFormatter.h"

class QVSyncLocation;

/// Shows a location according to its kind, as it was when this object was created: it does not
/// follow changes of the location. Immutable. Must be used on the main thread, since it makes a
/// QPixmap.
class EngineLocationFormatter : public QVSyncLocationFormatter {
public:
    /// `kind` is the kind of `URL`, see EngineLocationKinds::kindForURL(); neither is needed
    /// afterwards. The title is never empty: it defaults to the name of the kind. It comes from the
    /// URL, so it may contain any text and must be shown as plain text.
    EngineLocationFormatter(const Url &URL, const EngineLocationKind &kind);
    /// As above, but with a title that distinguishes the location from all others in `locations`,
    /// to which it need not belong: the address, without a password, if another one has the same
    /// title. `locations` must be EngineSyncLocations.
    EngineLocationFormatter(const Url &URL, const EngineLocationKind &kind,
                            const QList<std::shared_ptr<QVSyncLocation>> &locations);

    QString title() const override { return m_title; }
    /// Returns the icon at 32 by 32 pixels and a device pixel ratio of 2, rendered at each call. It
    /// is a null pixmap if Qt's SVG plug-in is missing.
    QPixmap icon() const override;
    /// Returns the localized name of the kind.
    QString locationType() const override { return m_locationType; }

private:
    const QString m_iconName;
    const QString m_locationType;
    const QString m_title;
};
