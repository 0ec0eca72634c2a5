#pragma once

#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Support/MemoryStore.h"
#include "Support/RunSession.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// Base of tests that run sessions between the inbox of a profile and a store in memory.
class SessionTestCase : public QObject {
    Q_OBJECT
protected:
    const ProfileDatabase &profile() const { return m_host->engine().profile(); }

    void saveNote(const QString &title) {
        Note note{{}, title, title, {}};
        QVERIFY(m_host->inbox()->saveNote(note));
    }

    template <class Session>
    Session newSession() {
        return Session(profile(), m_host->library(),
                       {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store")});
    }

    template <class Session>
    Expected<void> run() {
        Session session = newSession<Session>();
        MemoryStore store(m_blobs);
        return runSession(session, store);
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
