#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/EngineDatabase.h"
#include "Engine/Notes/TransactionName.h"
#include "Support/Failure.h"
#include "Support/SessionTestCase.h"

namespace {

/// A store that tells what is about to be read.
class RewritingStore : public MemoryStore {
public:
    using WillRead = std::function<void(const QString &name)>;

    RewritingStore(Blobs &blobs, WillRead willRead)
        : MemoryStore(blobs), m_willRead(std::move(willRead)) {}

protected:
    Expected<QByteArray> readBlob(const QString &name, qint64 limit,
                                  const EngineFuture &future) override {
        m_willRead(name);
        return MemoryStore::readBlob(name, limit, future);
    }

private:
    const WillRead m_willRead;
};

}  // namespace

/// A session between whose listing and reading another computer rewrites a record.
class RewrittenRecordTest : public SessionTestCase {
    Q_OBJECT
private:
    static constexpr int Many = 12;
    static constexpr qsizetype LargeText = 6 << 20;
    const QString m_there = QStringLiteral("Other");

    /// The record that is rewritten.
    QString m_rewritten;

    static QString pathOf(const QByteArray &record) {
        return QStringLiteral("transactions/@inbox/") + TransactionName::of(record);
    }

    QStringList texts() const {
        QStringList texts;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            texts.append(note.text);
        }
        return texts;
    }

    /// Edits all notes on one computer, which another one does not know. What supersedes their
    /// former texts is not only in the record with the new ones.
    void editAll(const QString &text) {
        const QList<OperationId> former =
            m_host->library().synchronizedDatabase(InboxUUID)->log().operationIds().value();
        const MemoryStore::Blobs before = m_blobs;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (Note note : notes) {
            note.text = text;
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        QVERIFY(run<SyncSession>());
        for (const auto &[name, record] : m_blobs) {
            if (!before.contains(name)) {
                m_rewritten = name;
            }
        }
        const QByteArray superseding = Transaction{{}, former}.encoded();
        m_blobs[pathOf(superseding)] = superseding;
    }

    void rewrite() {
        const auto transaction = Transaction::decoded(m_blobs.at(m_rewritten), m_rewritten);
        m_blobs.erase(m_rewritten);
        const QByteArray record = transaction->encoded();
        m_rewritten = pathOf(record);
        m_blobs[m_rewritten] = record;
    }

    struct Run {
        QString result;
        qint64 problems = 0;
        /// Number of reads of the record.
        int reads = 0;
    };
    /// Synchronizes. The record is rewritten before each read for which `isTurn`, whose number from
    /// 1 on is passed.
    Run runWithRewrites(const std::function<bool(int read)> &isTurn) {
        Run run;
        RewritingStore store(m_blobs, [&](const QString &name) {
            if (name == m_rewritten && isTurn(++run.reads)) {
                rewrite();
            }
        });
        SyncSession session = newSession<SyncSession>();
        run.result = description(runSession(session, store));
        run.problems = session.problems().count();
        return run;
    }
    static bool isFirst(int read) { return read == 1; }

    void beginWith(int count) {
        QStringList titles;
        for (int i = 0; i < count; ++i) {
            titles.append(QString::number(i));
        }
        beginWithNotes(titles);
    }
    void letTheOtherKnow() {
        m_host->goToComputer(m_there);
        QVERIFY(run<SyncSession>());
        m_host->goToComputer(QStringLiteral("Profile"));
    }

private Q_SLOTS:
    void cleanup() {
        verifySound();
        m_host.reset();
    }

    void noNoteIsMissing_data() {
        QTest::addColumn<int>("count");
        QTest::newRow("few notes") << 2;
        // Otherwise, the user would be asked whether they shall be removed.
        QTest::newRow("many notes") << Many;
    }
    void noNoteIsMissing() {
        QFETCH(int, count);
        beginWith(count);
        letTheOtherKnow();
        editAll(QStringLiteral("new"));
        m_host->goToComputer(m_there);
        const Run run = runWithRewrites(&isFirst);
        QCOMPARE(run.result, QString());
        QCOMPARE(run.problems, 0);
        QCOMPARE(texts(), QStringList(count, QStringLiteral("new")));
    }

    void anImportFindsAllNotes() {
        beginWith(Many);
        editAll(QStringLiteral("new"));
        m_host->goToComputer(m_there);
        const Run run = runWithRewrites(&isFirst);
        QCOMPARE(run.result, QString());
        QCOMPARE(run.problems, 0);
        QCOMPARE(texts(), QStringList(Many, QStringLiteral("new")));
    }

    void whatIsRewrittenSeveralTimesIsRead() {
        beginWith(Many);
        letTheOtherKnow();
        editAll(QStringLiteral("new"));
        m_host->goToComputer(m_there);
        const Run run = runWithRewrites([](int read) { return read <= 4; });
        QCOMPARE(run.reads, 5);
        QCOMPARE(run.result, QString());
        QCOMPARE(run.problems, 0);
        QCOMPARE(texts(), QStringList(Many, QStringLiteral("new")));
    }

    /// More is read than is kept in memory, so all is read once more after the comparison.
    void whatIsRewrittenAfterItWasComparedIsRead() {
        beginWith(Many);
        letTheOtherKnow();
        QList<Note> notes = m_host->inbox()->notes().value();
        for (Note &note : notes.first(3)) {
            note.text = QString(LargeText, u'x');
            QVERIFY(m_host->inbox()->saveNote(note));
        }
        QVERIFY(run<SyncSession>());
        editAll(QStringLiteral("new"));
        m_host->goToComputer(m_there);
        const Run run = runWithRewrites([](int read) { return read == 2; });
        QCOMPARE(run.result, QString());
        QCOMPARE(run.problems, 0);
        // The order of the random names decides whether the record is kept in memory. Otherwise it
        // is rewritten before the second time, and read a third time.
        QVERIFY2(run.reads != 2, "what was rewritten was not read");
        QCOMPARE(texts(), QStringList(Many, QStringLiteral("new")));
    }

    void aStoreThatRewritesForEverChangesNothing() {
        beginWith(Many);
        letTheOtherKnow();
        editAll(QStringLiteral("new"));
        m_host->goToComputer(m_there);
        const QStringList before = texts();
        const Run run = runWithRewrites([](int) { return true; });
        QVERIFY2(run.result.contains(QStringLiteral("were replaced each time")),
                 qUtf8Printable(run.result));
        QVERIFY(run.reads < 10);
        QCOMPARE(texts(), before);
    }
};

VELMORA_TEST(RewrittenRecordTest)
#include "RewrittenRecordTest.moc"
