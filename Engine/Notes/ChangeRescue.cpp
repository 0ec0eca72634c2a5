#include "Engine/Notes/ChangeRescue.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Notes/NoteLog.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Engine/Profile/ReadOnlyConnection.h"

namespace {

class Rescue {
public:
    Rescue(const ReadOnlyConnection &source, const ProfileDatabase &target)
        : m_source(source), m_target(target) {}

    Expected<void> run() {
        return readKnown()
            .and_then([this] { return addDatabases(); })
            .and_then([this] { return addOperations(); })
            .and_then([this] { return supersede(); });
    }

    const ChangeRescue::Findings &findings() const { return m_findings; }

private:
    Expected<void> readKnown() {
        return m_target.read(
            QStringLiteral("SELECT digest FROM operations UNION ALL SELECT digest FROM superseded"),
            {}, [this](const QSqlQuery &row) { m_known.insert(row.value(0).toByteArray()); });
    }

    /// Remembers that something cannot be read. Returns the error if the disk is full: it could be
    /// read otherwise.
    Expected<void> noteFailure(const Expected<void> &read) {
        if (read || isEngineError(read.error(), EngineErrorCode::ProfileDiskFull)) {
            return read;
        }
        m_findings.isComplete = false;
        return {};
    }

    Expected<void> addDatabases() {
        Expected<void> added;
        const Expected<void> read =
            m_source.read(QStringLiteral("SELECT id, uuid, CAST(name AS BLOB), is_inbox"
                                         " FROM databases NOT INDEXED"),
                          [&](const QSqlQuery &row) {
                              added = added.and_then([&] { return addDatabase(row); });
                          });
        return added.and_then([&] { return noteFailure(read); });
    }

    Expected<void> addDatabase(const QSqlQuery &row) {
        const qint64 id = row.value(0).toLongLong();
        const QString UUID = row.value(1).toString();
        const QString name = ProfileDatabase::exactText(row.value(2));
        // A new profile has another inbox.
        const Expected<QVariant> found = m_target.value(
            QStringLiteral("SELECT id FROM databases WHERE uuid = ? OR (? AND is_inbox)"),
            {UUID, row.value(3).toBool()});
        if (!found) {
            return failure(found.error());
        }
        if (found->isValid()) {
            m_databases.insert(id, found->toLongLong());
        } else if (Operation::isUUID(UUID)) {
            return NoteLog::insertDatabase(m_target, UUID, Operation::isName(name) ? name : UUID)
                .map([&](qint64 added) { m_databases.insert(id, added); });
        }
        return {};
    }

    /// Reads the table from its beginning and, if that fails at some place, from its end.
    Expected<void> addOperations() {
        for (const char *order : {"ASC", "DESC"}) {
            const Expected<void> read = m_source.read(
                QStringLiteral("SELECT %1, database FROM operations NOT INDEXED ORDER BY id %2")
                    .arg(OperationTable::Columns, QLatin1StringView(order)),
                [this](const QSqlQuery &row) { take(row); });
            if (Expected<void> merged = merge(); !merged) {
                return merged;
            }
            if (Expected<void> noted = noteFailure(read); read || !noted) {
                return noted;
            }
        }
        return {};
    }

    void take(const QSqlQuery &row) {
        const Operation operation = OperationTable::operationIn(row);
        const qint64 database =
            m_databases.value(row.value(OperationTable::ColumnCount).toLongLong());
        const bool isKnown =
            m_known.contains(operation.id) || m_known.contains(operation.computedId());
        if (operation.isSound() && database) {
            m_notes[database].insert(operation.note);
        } else if (!isKnown) {
            m_findings.damaged.append({operation.id, operation.title, true});
            // It may be read from the end again.
            m_known.insert(operation.id);
        }
        if (isKnown || !operation.isSound() || !database || !m_merged) {
            return;
        }
        m_known.insert(operation.id);
        m_pending[database].operations.append(operation);
        m_pendingSize += operation.title.size() + operation.text.size();
        if (m_pendingSize > Transaction::UsualSize) {
            m_merged = merge();
        }
    }

    /// Adds the pending operations.
    Expected<void> merge() {
        for (auto each = m_pending.cbegin(); each != m_pending.cend() && m_merged; ++each) {
            m_merged = NoteLog(m_target, each.key()).merge(each.value());
            m_findings.added += each.value().operations.size();
        }
        m_pending.clear();
        m_pendingSize = 0;
        return m_merged;
    }

    Expected<void> supersede() {
        QHash<qint64, QSet<OperationId>> superseded;
        const Expected<void> read = m_source.read(
            QStringLiteral("SELECT database, digest FROM superseded"), [&](const QSqlQuery &row) {
                superseded[m_databases.value(row.value(0).toLongLong())].insert(
                    row.value(1).toByteArray());
            });
        Expected<void> done = noteFailure(read);
        for (auto each = superseded.cbegin(); each != superseded.cend(); ++each) {
            done = done.and_then([&] { return supersede(each.key(), each.value()); });
        }
        return done;
    }

    Expected<void> supersede(qint64 database, const QSet<OperationId> &superseded) {
        const QSet<QString> &notes = m_notes[database];
        Transaction transaction;
        return m_target
            .read(QStringLiteral("SELECT digest, note_uuid FROM operations WHERE database = ?"),
                  {database},
                  [&](const QSqlQuery &row) {
                      const OperationId identifier = row.value(0).toByteArray();
                      if (superseded.contains(identifier) &&
                          notes.contains(row.value(1).toString())) {
                          transaction.superseded.append(identifier);
                      }
                  })
            .and_then([&] { return NoteLog(m_target, database).merge(transaction); });
    }

    const ReadOnlyConnection &m_source;
    const ProfileDatabase &m_target;
    /// The operations that the backup contains or knows to be superseded.
    QSet<OperationId> m_known;
    /// The ids of the databases in the target by those in the source.
    QHash<qint64, qint64> m_databases;
    /// The notes with an intact operation in the source, by the id of the database in the target.
    QHash<qint64, QSet<QString>> m_notes;
    QHash<qint64, Transaction> m_pending;
    qsizetype m_pendingSize = 0;
    Expected<void> m_merged;
    ChangeRescue::Findings m_findings;
};

}  // namespace

Expected<ChangeRescue::Findings> ChangeRescue::run(const QString &damaged,
                                                   const ProfileDatabase &restored) {
    const auto source = ReadOnlyConnection::open(damaged, ReadOnlyConnection::Sharing::Shared);
    if (!source && isEngineError(source.error(), EngineErrorCode::ProfileDiskFull)) {
        return failure(source.error());
    }
    if (!source) {
        return Findings{.added = 0, .damaged = {}, .isComplete = false};
    }
    Rescue rescue(**source, restored);
    return restored.write([&] { return rescue.run(); }).map([&] { return rescue.findings(); });
}
