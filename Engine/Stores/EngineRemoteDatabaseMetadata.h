#pragma once

#include "Host/QVRemoteDatabase.h"

/// The metadata of a database in a store. Immutable; owned by its EngineRemoteDatabase.
class EngineRemoteDatabaseMetadata : public QVRemoteDatabaseMetadata {
    Q_OBJECT
public:
    explicit EngineRemoteDatabaseMetadata(const QString &name) : m_name(name) {}
    QString name() const override { return m_name; }

private:
    const QString m_name;
};
