#include "Engine/Synchronization/SyncSession.h"
#include "Host/InboxUUID.h"
#include "Support/Failure.h"
#include "Support/MemoryStore.h"
#include "Support/Replica.h"
#include "Support/RunSession.h"
#include "Support/TestMain.h"
#include "Support/Verification.h"

/// Two computers with copies of one profile, and a profile that was restored from an old copy.
class CopiedProfileTest : public QObject {
    Q_OBJECT

    MemoryStore::Blobs m_blobs;

    void synchronize(Replica &replica) {
        const StoreSession::Subject subject{InboxUUID, QStringLiteral("Inbox"),
                                            QStringLiteral("store")};
        SyncSession session(replica.profile(), replica.library(), subject);
        MemoryStore store(m_blobs);
        QCOMPARE(description(runSession(session, store)), QString());
        QCOMPARE(Verification::problems(replica.profile(), replica.library(), subject, store),
                 QStringList());
    }

    static QList<Note> notes(Replica &replica) {
        return replica.library().inbox()->notes().value();
    }

    /// A profile with one note that was not sent to any store.
    static std::unique_ptr<Replica> replicaWithNote() {
        auto replica = std::make_unique<Replica>();
        Note note{{}, QStringLiteral("Note"), QStringLiteral("text"), {}};
        return replica->library().inbox()->saveNote(note) ? std::move(replica) : nullptr;
    }

private Q_SLOTS:
    void init() { m_blobs.clear(); }

    void aNoteThatTheCopyHasSentStaysDeleted() {
        const auto original = replicaWithNote();
        original->copyProfile();
        Replica other;
        other.replaceProfile(*original);
        synchronize(other);
        QVERIFY(original->library().inbox()->removeNote(notes(*original).first()));
        synchronize(*original);
        QVERIFY(notes(*original).isEmpty());
        synchronize(other);
        QVERIFY(notes(other).isEmpty());
    }

    void anEditReplacesWhatTheCopyHasSent() {
        const auto original = replicaWithNote();
        original->copyProfile();
        Replica other;
        other.replaceProfile(*original);
        synchronize(other);
        Note note = notes(*original).first();
        note.text = QStringLiteral("edited");
        QVERIFY(original->library().inbox()->saveNote(note));
        for (Replica *replica : {original.get(), &other}) {
            synchronize(*replica);
            QCOMPARE(notes(*replica).size(), 1);
            QCOMPARE(notes(*replica).first().text, QStringLiteral("edited"));
        }
    }

    void aRestoredProfileGetsBackWhatItHadSent() {
        const auto replica = replicaWithNote();
        replica->copyProfile();
        Note note = notes(*replica).first();
        note.text = QStringLiteral("edited");
        QVERIFY(replica->library().inbox()->saveNote(note));
        Note second{{}, QStringLiteral("Second"), {}, {}};
        QVERIFY(replica->library().inbox()->saveNote(second));
        synchronize(*replica);
        const QList<Note> sent = notes(*replica);
        replica->replaceProfile(*replica);
        QCOMPARE(notes(*replica).size(), 1);
        synchronize(*replica);
        QCOMPARE(notes(*replica), sent);
    }
};

VELMORA_TEST(CopiedProfileTest)
#include "CopiedProfileTest.moc"
