#pragma once

#include "Engine/Locations/EngineLocationKind.h"
#include "Host/QVSyncLocationFormatter.h"

/// Shows a location by the entry of its kind. Must be used on the main thread.
class EngineLocationFormatter : public QVSyncLocationFormatter {
public:
    /// `kind`: that of `URL`.
    EngineLocationFormatter(const Url &URL, const EngineLocationKind &kind);

    QString title() const override { return m_title; }
    QPixmap icon() const override;
    QString locationType() const override { return m_locationType; }

private:
    const QString m_iconName;
    const QString m_locationType;
    const QString m_title;
};
