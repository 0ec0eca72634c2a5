#include "Engine/Notes/Transaction.h"
#include "Engine/Synchronization/CleanSession.h"
#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Support/Failure.h"
#include "Support/MemoryStore.h"
#include "Support/RunSession.h"
#include "Support/TestHost.h"
#include "Support/TestMain.h"

/// What a session writes to a store and removes from it while profile or store are not what they
/// should be.
class StoreSessionTest : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<TestHost> m_host;
    MemoryStore::Blobs m_blobs;

    const ProfileDatabase &profile() const { return m_host->engine().profile(); }

    void saveNote(const QString &title) {
        Note note{{}, title, title, {}};
        QVERIFY(m_host->inbox()->saveNote(note));
    }

    template <class Session>
    Expected<void> run(MemoryStore::Fault writeFault = MemoryStore::Fault::None) {
        Session session(profile(), m_host->library(),
                        {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store")});
        const auto before = m_blobs.size();
        // The first write is torn, but not what follows it.
        MemoryStore store(m_blobs, [&] {
            return m_blobs.size() == before ? writeFault : MemoryStore::Fault::None;
        });
        return runSession(session, store);
    }

    QSet<QString> titles() {
        QSet<QString> titles;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            titles.insert(note.title);
        }
        return titles;
    }

    QSet<QString> titlesOnAnotherComputer() {
        m_host->goToComputer(QStringLiteral("Other"));
        return run<SyncSession>() ? titles() : QSet<QString>();
    }

private Q_SLOTS:
    void init() {
        m_host = std::make_unique<TestHost>();
        m_blobs.clear();
        for (const QString &title : {QStringLiteral("a"), QStringLiteral("b")}) {
            saveNote(title);
            QVERIFY(run<SyncSession>());
        }
    }
    void cleanup() { m_host.reset(); }

    void cleaningUpKeepsWhatTheProfileHasLost() {
        QVERIFY(profile().run(QStringLiteral("DELETE FROM operations WHERE title = 'a'")));
        QCOMPARE(titles(), QSet{QStringLiteral("b")});
        QVERIFY(run<CleanSession>());
        QCOMPARE(titlesOnAnotherComputer(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void synchronizingAfterCleaningUpRestoresWhatTheProfileHasLost() {
        QVERIFY(profile().run(QStringLiteral("DELETE FROM operations WHERE title = 'a'")));
        QVERIFY(run<CleanSession>());
        QVERIFY(run<SyncSession>());
        QCOMPARE(titles(), (QSet{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void nothingIsSupersededBeforeItsSuccessorIsWritten() {
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (Note note : notes) {
            note.text = QString(Transaction::UsualSize, u'x');
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        const MemoryStore::Blobs before = m_blobs;
        QVERIFY(run<SyncSession>());
        QCOMPARE(m_blobs.size(), before.size() + notes.size());
        for (const auto &[name, record] : m_blobs) {
            if (name.startsWith(QLatin1StringView("transactions/"))) {
                const auto transaction = Transaction::decoded(record, name);
                QVERIFY(transaction && transaction->superseded.isEmpty());
            }
        }
    }

    void aRecordOfWhichTheStoreKeepsHalfIsWrittenAgain() {
        saveNote(QStringLiteral("c"));
        const Expected<void> synchronized = run<SyncSession>(MemoryStore::Fault::HalfKept);
        QCOMPARE(code(synchronized), EngineErrorCode::DamagedRecord);
        QVERIFY(description(synchronized).contains(QStringLiteral("transactions/@inbox/")));
        QVERIFY(run<SyncSession>());
        QCOMPARE(titlesOnAnotherComputer(),
                 (QSet{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    }

    void cleaningUpRemovesNothingIfTheStoreKeepsHalf() {
        const MemoryStore::Blobs before = m_blobs;
        QCOMPARE(code(run<CleanSession>(MemoryStore::Fault::HalfKept)),
                 EngineErrorCode::DamagedRecord);
        QCOMPARE(m_blobs, before);
    }
};

VELMORA_TEST(StoreSessionTest)
#include "StoreSessionTest.moc"
