#include <stdexcept>

#include "Support/SessionTestCase.h"

/// An upload that a reader takes for a damaged record completes while the record is set aside.
class UnfinishedUploadTest : public SessionTestCase {
    Q_OBJECT
private:
    QString recordWith(const QByteArray &title) const {
        const auto found = std::find_if(m_blobs.begin(), m_blobs.end(), [&](const auto &blob) {
            return blob.second.contains(title);
        });
        return found == m_blobs.end() ? QString() : found->first;
    }
    QStringList titles() const {
        QStringList titles;
        const QList<Note> notes = m_host->inbox()->notes().value();
        for (const Note &note : notes) {
            titles.append(note.title);
        }
        titles.sort();
        return titles;
    }

    /// Synchronizes a computer that has not read the record `name`, of which the second half
    /// arrives before the operation number `operation`. Returns the number of operations.
    int readWhileUploading(const QString &name, int operation) {
        const QByteArray complete = m_blobs[name];
        m_blobs[name].truncate(complete.size() / 2);
        int count = 0;
        MemoryStore store(m_blobs, [&] {
            if (++count == operation && m_blobs.contains(name)) {
                m_blobs[name] = complete;
            }
            return MemoryStore::Fault::None;
        });
        SyncSession session = newSession<SyncSession>();
        if (!runSession(session, store)) {
            throw std::runtime_error("the record was not set aside");
        }
        return count;
    }

private Q_SLOTS:
    void cleanup() { m_host.reset(); }

    void losesNoWordWheneverItCompletes() {
        const QStringList all{QStringLiteral("first"), QStringLiteral("second")};
        int removals = 0;
        int operation = 0;
        int count = 0;
        do {
            ++operation;
            m_host.reset();
            beginWithNotes(all);
            const QString name = recordWith("second");
            m_host->goToComputer(QStringLiteral("Reader"));
            count = readWhileUploading(name, operation);
            removals += m_blobs.contains(name) ? 0 : 1;
            // The computer that has uploaded it notices that it has disappeared.
            m_host->goToComputer(QStringLiteral("Profile"));
            verifySound();
            QCOMPARE(titles(), all);
            m_host->goToComputer(QStringLiteral("Reader"));
            verifySound();
            QCOMPARE(titles(), all);
        } while (count >= operation);
        QVERIFY(removals > 0);
    }
};

VELMORA_TEST(UnfinishedUploadTest)
#include "UnfinishedUploadTest.moc"
