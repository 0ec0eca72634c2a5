#pragma once

#include "Host/QVRemoteDatabase.h"

/// The metadata of a database in a store. Immutable; owned by its EngineRemoteDatabase, of which it
/// is a QObject child, and therefore valid as long as that.
class EngineRemoteDatabaseMetadata : public QVRemoteDatabaseMetadata {
    Q_OBJECT
public:
    /// `name` was written by another computer and may be any text.
    explicit EngineRemoteDatabaseMetadata(const QString &name) : m_name(name) {}
    QString name() const override { return m_name; }

private:
    const QString m_name;
};
