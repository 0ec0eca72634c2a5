#pragma once

#include <QtCore/QMutex>
#include <QtCore/QThread>

#include "Host/QVSyncStore.h"
#include "Support/TestLocation.h"

/// Future that records the thread that cancelled it.
class ScriptedFuture : public PZFuture {
public:
    void cancel() override { m_cancellingThread = QThread::currentThread(); }
    bool isCancelled() const override { return m_cancellingThread != nullptr; }
    void cascadeCancellationToFuture(const std::shared_ptr<PZFuture> & /*future*/) override {}
    void passControlToFuture(const std::shared_ptr<PZFuture> & /*future*/) override {}

    QThread *cancellingThread() const { return m_cancellingThread; }

private:
    std::atomic<QThread *> m_cancellingThread = nullptr;
};

/// The results of the steps of a store, delivered on a thread of the pool, and a record of the
/// steps. Used where no real store can be brought to produce a result.
class StoreScript {
public:
    std::optional<Error> openError;
    std::optional<QVRemoteDatabases> databases;
    std::optional<Error> fetchError;
    std::optional<Error> closeError;

    /// Holds back the results of later steps.
    void hold() { m_isHeld = true; }
    /// Delivers the results, also of later steps.
    void release();
    /// Returns the steps so far ("open", "fetch", "close"), in order. Thread-safe.
    QStringList steps() const;
    /// Returns the future of the last step of that name.
    std::shared_ptr<ScriptedFuture> future(const QString &step) const;

    std::shared_ptr<PZFuture> begin(const QString &step, std::function<void()> answer);

private:
    mutable QMutex m_mutex;
    QStringList m_steps;
    QHash<QString, std::shared_ptr<ScriptedFuture>> m_futures;
    QList<std::function<void()>> m_waiting;
    bool m_isHeld = false;
};

/// A database in a scripted store.
class ScriptedRecord : public QVRemoteDatabase {
public:
    ScriptedRecord(const QString &UUID, const QString &name,
                   const std::shared_ptr<QVSyncStore> &store)
        : m_UUID(UUID), m_metadata(name), m_store(store) {}

    QString UUID() const override { return m_UUID; }
    QVRemoteDatabaseMetadata *metadata() const override { return &m_metadata; }
    std::shared_ptr<QVSyncStore> store() const override { return m_store; }

private:
    class Metadata : public QVRemoteDatabaseMetadata {
    public:
        explicit Metadata(const QString &name) : m_name(name) {}
        QString name() const override { return m_name; }

    private:
        const QString m_name;
    };

    const QString m_UUID;
    mutable Metadata m_metadata;
    const std::shared_ptr<QVSyncStore> m_store;
};

/// A location whose stores follow a script. It stores its states as the engine's locations do.
class ScriptedLocation : public QVSyncLocation,
                         public std::enable_shared_from_this<ScriptedLocation> {
public:
    /// `script` must outlive every store.
    explicit ScriptedLocation(StoreScript *script);

    Url URL() const override { return m_states->URL(); }
    void setURL(const Url &URL) override;
    QVSyncStates synchronizationStates() const override {
        return m_states->synchronizationStates();
    }
    std::shared_ptr<QVSyncState> stateForDatabaseWithUUID(const QString &UUID) const override {
        return m_states->stateForDatabaseWithUUID(UUID);
    }
    std::shared_ptr<QVSyncState> addStateForDatabaseWithUUID(const QString &UUID,
                                                             const QString &name) override {
        return m_states->addStateForDatabaseWithUUID(UUID, name);
    }
    std::shared_ptr<QVSyncStore> createStore() override;

    std::shared_ptr<QVRemoteDatabase> record(const QString &UUID, const QString &name = {}) {
        return std::make_shared<ScriptedRecord>(UUID, name, createStore());
    }
    /// Called before each store is created.
    std::function<void()> willCreateStore;

private:
    StoreScript *const m_script;
    const std::shared_ptr<EngineSyncLocation> m_states = locationWithoutEngine();
};
