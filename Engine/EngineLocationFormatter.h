#pragma once

#include "Host/QVSyncLocationFormatter.h"

/// Title, kind and icon of a location, by the scheme of its URL.
class EngineLocationFormatter : public QVSyncLocationFormatter {
public:
    class Class : public QVSyncLocationFormatter::Class {
    public:
        std::unique_ptr<QVSyncLocationFormatter> formatterForLocationWithURL(
            const Url &URL) const override;
    };

    explicit EngineLocationFormatter(const Url &URL);

    QString title() const override { return m_title; }
    QPixmap icon() const override;
    QString locationType() const override { return m_locationType; }

private:
    QString m_title;
    QString m_locationType;
    QString m_iconFile;
};
