#pragma once

#include "Engine/Notes/DerivedTables.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Support/MemoryStore.h"
#include "Support/RunSession.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// Base of tests that run sessions between the inbox of a profile and a store in memory.
class SessionTestCase : public QObject {
    Q_OBJECT
protected:
    const ProfileDatabase &profile() const { return m_host->engine().profile(); }

    void saveNote(const QString &title) {
        Note note{{}, title, title, {}};
        QVERIFY(m_host->inbox()->saveNote(note));
    }

    static StoreSession::Subject subject() {
        return {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store")};
    }

    template <class Session>
    Session newSession() {
        return Session(profile(), m_host->library(), subject());
    }

    template <class Session>
    Expected<void> run() {
        Session session = newSession<Session>();
        MemoryStore store(m_blobs);
        return runSession(session, store);
    }

    /// After a synchronization, profile and store are sound and contain the same.
    void verifySound() {
        QVERIFY(run<SyncSession>());
        verifyDerived();
        MemoryStore store(m_blobs);
        QCOMPARE(Verification::problems(profile(), m_host->library(), subject(), store),
                 QStringList());
        const VerificationReport report = m_host->engine().verify(VerificationMode::Report);
        QCOMPARE(Verification::problems(report), QStringList());
    }

    /// After a synchronization, the profile has recorded that the store lacks nothing.
    void verifyDerived() const {
        const qint64 database = m_host->library().synchronizedDatabase(InboxUUID)->log().database();
        const KnownTransactions known(profile(), subject().store, database);
        QVERIFY(known.isComplete().value());
        QVERIFY(!known.hasUnwritten().value());
        QVERIFY(DerivedTables::check(profile(), database).value().isEmpty());
    }

    /// Begins with one record in the store for each of `titles`.
    void beginWithNotes(const QStringList &titles) {
        m_host = std::make_unique<TestHost>();
        m_blobs.clear();
        for (const QString &title : titles) {
            saveNote(title);
            QVERIFY(run<SyncSession>());
        }
    }

    std::unique_ptr<TestHost> m_host;
    MemoryStore::Blobs m_blobs;
};
