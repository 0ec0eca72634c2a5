#include <map>

#include "Benchmarks/Benchmark.h"
#include "Engine/Notes/EngineDatabase.h"
#include "Host/InboxUUID.h"
#include "Support/MemoryStore.h"
#include "Support/RunJob.h"
#include "Support/TestHost.h"

using Benchmark::require;

namespace {

constexpr int NoteCount = 200;
constexpr int EditCount = 2000;

/// A store that counts what is written.
class CountingStore : public MemoryStore {
public:
    using MemoryStore::MemoryStore;

    qint64 written() const { return m_written; }

protected:
    Expected<Written> writeBlob(const QString &name, const QByteArray &contents,
                                const EngineFuture &future) override {
        m_written += contents.size();
        return MemoryStore::writeBlob(name, contents, future);
    }

private:
    qint64 m_written = 0;
};

/// A computer that synchronizes after every edit.
class Author {
public:
    /// Synchronizes edits until there are `count`.
    void edit(int count) {
        for (; m_edits < count; ++m_edits) {
            m_bytes += save(m_edits);
            require(runJob(m_host.engine().profile(), m_host.library(),
                           {InboxUUID, QStringLiteral("Inbox"), QStringLiteral("store")}, m_store));
        }
    }

    /// Returns the number of bytes of the edits.
    qint64 bytes() const { return m_bytes; }
    qint64 written() const { return m_store->written(); }
    qint64 recordCount() const { return static_cast<qint64>(m_blobs.size()); }

private:
    /// Saves a new note, or another text of the one that was not edited for the longest time.
    qint64 save(int edit) {
        Note note;
        if (edit >= NoteCount) {
            note = m_notes[edit % NoteCount];
        }
        note.title = QStringLiteral("Note %1").arg(edit % NoteCount);
        note.text = QStringLiteral("What edit %1 says, line by line.\n").arg(edit).repeated(30);
        require(m_host.inbox()->saveNote(note));
        m_notes[edit % NoteCount] = note;
        return note.title.toUtf8().size() + note.text.toUtf8().size();
    }

    TestHost m_host;
    MemoryStore::Blobs m_blobs;
    const std::shared_ptr<CountingStore> m_store = std::make_shared<CountingStore>(m_blobs);
    std::map<int, Note> m_notes;
    int m_edits = 0;
    qint64 m_bytes = 0;
};

void measureCompaction(Benchmark::Report &report) {
    Author author;
    QList<Benchmark::Point> written;
    QList<Benchmark::Point> records;
    for (const int count : {EditCount / 8, EditCount / 4, EditCount / 2, EditCount}) {
        author.edit(count);
        written.append({double(count), double(author.written())});
        records.append({double(count), double(author.recordCount())});
    }
    report.add({QStringLiteral("Bytes written for 2,000 edits / bytes of the edits"),
                written.last().value, static_cast<double>(author.bytes()), QStringLiteral("bytes"),
                12.0, written});
    report.add({QStringLiteral("Records after 2,000 edits / 24"), records.last().value, 24,
                QStringLiteral("records"), 1.0, records});
}

const Benchmark::Suite compactionSuite(QStringLiteral("compaction"), &measureCompaction);

}  // namespace
