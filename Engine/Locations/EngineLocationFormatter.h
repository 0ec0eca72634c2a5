#pragma once

#include "Host/QVSyncLocationFormatter.h"

class EngineLocationFormatter : public QVSyncLocationFormatter {
public:
    explicit EngineLocationFormatter(const Url &URL);

    QString title() const override { return m_title; }
    QPixmap icon() const override;
    QString locationType() const override { return m_locationType; }

private:
    QString m_title;
    QString m_iconName;
    QString m_locationType;
};
