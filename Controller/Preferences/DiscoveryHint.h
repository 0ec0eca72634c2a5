#pragma once

#include "Platform/Network/ServiceDiscovery.h"

/// What the sheet of a direct connection says as long as no computer was found. An object of its
/// form. Must be used on the main thread.
class DiscoveryHint : public QObject {
    Q_OBJECT
    /// The reason and the next step, for the user.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
public:
    explicit DiscoveryHint(QObject *parent = nullptr);

    QString text() const;

Q_SIGNALS:
    void textChanged();

private:
    ServiceDiscovery m_discovery;
};
