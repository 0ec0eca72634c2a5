#pragma once

#include "Platform/Network/ServiceDiscovery.h"

/// What the sheet of a direct connection says as long as no computer was found. An object of its
/// form. Must be used on the main thread.
class DiscoveryHint : public QObject {
    Q_OBJECT
    /// The reason and the next step, for the user.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)
public:
    /// Begins to observe the daemon, without waiting for it. `parent` may be null.
    explicit DiscoveryHint(QObject *parent = nullptr);

    /// Computed at each call; never empty.
    QString text() const;

Q_SIGNALS:
    /// Emitted when the daemon that finds computers becomes available or stops responding.
    void textChanged();

private:
    ServiceDiscovery m_discovery;
};
