#pragma once

#include "Engine/Locations/EngineLocationKind.h"
#include "Host/QVSyncLocationFormatter.h"

/// Shows a location according to its kind. Immutable. Must be used on the main thread, since it
/// makes a QPixmap.
class EngineLocationFormatter : public QVSyncLocationFormatter {
public:
    /// `kind` is the kind of `URL`; it is not needed afterwards. The title is never empty: it
    /// defaults to the name of the kind.
    EngineLocationFormatter(const Url &URL, const EngineLocationKind &kind);

    QString title() const override { return m_title; }
    /// Returns the icon at 32 by 32 pixels and a device pixel ratio of 2, rendered at each call.
    QPixmap icon() const override;
    QString locationType() const override { return m_locationType; }

private:
    const QString m_iconName;
    const QString m_locationType;
    const QString m_title;
};
