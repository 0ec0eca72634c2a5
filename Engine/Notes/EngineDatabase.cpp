#include "Engine/Notes/EngineDatabase.h"

#include <chrono>
#include <utility>

#include "Engine/Notes/DerivedTables.h"
#include "Engine/Profile/ProfileDatabase.h"
#include "Platform/KeyValue/KeyValue.h"

namespace {

/// After merges have announced more changes than these, they announce nothing for this long, so
/// that the receivers take a small part of the time only, however many steps a merge has.
constexpr qsizetype FewChanges = 50;
constexpr std::chrono::milliseconds PauseAfterMany(100);

}  // namespace

EngineDatabase::EngineDatabase(const ProfileDatabase &profile, const Row &row)
    : m_profile(profile),
      m_log(profile, row.id, row.lastOperationAtOpening),
      m_rows(profile, row.id),
      m_row(row) {
    m_pause.setSingleShot(true);
    m_pause.setInterval(PauseAfterMany);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        if (!m_merged.isEmpty()) {
            announceMerged();
        }
    });
}

Expected<QList<Note>> EngineDatabase::notes() const {
    return m_rows.notes();
}

Expected<QList<NoteRow>> EngineDatabase::rows(qint64 from, int count) const {
    return m_rows.rows(from, count);
}

Expected<QList<NoteRow>> EngineDatabase::rowsAt(qint64 position) const {
    return m_rows.rowsAt(position);
}

Expected<Note> EngineDatabase::completeNote(const Note &note) const {
    return m_rows.completeNote(note);
}

Expected<bool> EngineDatabase::hasMoreEdits(const QString &UUID, qsizetype count) const {
    return m_rows.hasMoreEdits(UUID, count);
}

Expected<qint64> EngineDatabase::countOfConflicts() const {
    return DerivedTables::countOfConflicts(m_profile, m_row.id);
}

Expected<void> EngineDatabase::saveNote(Note &note) {
    Note saved = note;
    if (Expected<void> written = write([&] { return m_log.save(saved); }); !written) {
        return written;
    }
    note = saved;
    announceNotes();
    return {};
}

Expected<bool> EngineDatabase::removeNote(const Note &note) {
    bool isRemoved = false;
    return write([&] { return m_log.remove(note).map([&](bool removed) { isRemoved = removed; }); })
        .map([&] {
            announceNotes();
            return isRemoved;
        });
}

Expected<void> EngineDatabase::resolveConflict(Note &kept, const Note &removed) {
    Note resolved = kept;
    if (Expected<void> written = write([&] { return m_log.resolveConflict(resolved, removed); });
        !written) {
        return written;
    }
    kept = resolved;
    announceNotes();
    return {};
}

Expected<QList<NoteVersion>> EngineDatabase::deletedNotes(const VersionsPart &part) const {
    return m_log.history().deletedNotes(part);
}

Expected<QList<NoteVersion>> EngineDatabase::earlierVersions(const Note &note,
                                                             const VersionsPart &part) const {
    QStringList UUIDs{note.UUID};
    // A copy has the versions of the note, too.
    if (!note.conflict.isEmpty() && note.conflict != note.UUID) {
        UUIDs.append(note.conflict);
    }
    return m_log.history().versions(UUIDs, part);
}

Expected<Note> EngineDatabase::noteOfVersion(const NoteVersion &version) const {
    return m_log.history().note(version);
}

Expected<void> EngineDatabase::write(const std::function<Expected<void>()> &changes) const {
    return m_profile.write([&] {
        return changes().and_then(
            [this] { return NoteHistory::prune(m_profile, QDateTime::currentDateTime()); });
    });
}

Expected<void> EngineDatabase::setName(const QString &name) {
    return m_profile
        .write([&] {
            const Expected<void> logged = isInbox() ? Expected<void>() : m_log.setName(name);
            return logged.and_then([&] { return writeName(name); });
        })
        .map([&] {
            m_row.name = name;
            KeyValue::announce<&QVDatabase::nameChanged>(this);
        });
}

Expected<void> EngineDatabase::merge(const Merge &merge,
                                     const std::function<Expected<void>()> &changes) {
    QString name;
    const auto writeMerged = [&](const QString &mergedName) {
        name = mergedName;
        const Expected<void> named = name == m_row.name ? Expected<void>() : writeName(name);
        return named.and_then(changes);
    };
    if (Expected<void> written = write([&] { return mergeLog(merge).and_then(writeMerged); });
        !written) {
        return written;
    }
    for (const Operation &operation : merge.operations) {
        m_damaged.remove(operation.id);
    }
    announceMerge();
    if (name != m_row.name) {
        m_row.name = name;
        KeyValue::announce<&QVDatabase::nameChanged>(this);
    }
    return {};
}

void EngineDatabase::addDamaged(const QList<NoteInspection::DamagedOperation> &operations) {
    for (const NoteInspection::DamagedOperation &operation : operations) {
        // Reading again what cannot be read does no harm.
        if (operation.isOfContents && m_log.isDamaged(operation.id).value_or(true)) {
            m_damaged.insert(operation.id);
        }
    }
}

Expected<bool> EngineDatabase::removeDamagedCopy(const Operation &damaged) {
    Expected<bool> isRemoved = false;
    const Expected<void> written = write([&] {
        isRemoved = m_log.removeDamagedCopy(damaged);
        return isRemoved.map([](bool) {});
    });
    if (!written) {
        return failure(written.error());
    }
    if (*isRemoved) {
        m_damaged.remove(damaged.id);
        announceNotes();
    }
    return isRemoved;
}

Expected<void> EngineDatabase::eraseReturned(const QList<OperationId> &returned) {
    return write([&] { return m_log.eraseReturned(returned); }).map([this] { announceNotes(); });
}

bool EngineDatabase::isComparisonDue(const QString &store) const {
    return m_comparisons.value(store).hasExpired();
}

void EngineDatabase::setCompared(const QString &store, std::chrono::milliseconds validity) {
    m_comparisons.insert(store, QDeadlineTimer(validity));
}

void EngineDatabase::announceMerge() {
    m_merged.unite(m_log.takeChangedPositions());
    if (!m_pause.isActive()) {
        announceMerged();
    }
}

void EngineDatabase::announceMerged() {
    const QSet<qint64> merged = std::exchange(m_merged, {});
    if (merged.size() > FewChanges) {
        m_pause.start();
    }
    Q_EMIT notesChanged(merged);
}

void EngineDatabase::announceNotes() {
    Q_EMIT notesChanged(m_log.takeChangedPositions());
}

Expected<QString> EngineDatabase::mergeLog(const Merge &merge) const {
    const Expected<void> merged =
        m_log.renew(merge.operationsToKeep, merge.supersededByAll).and_then([&] {
            const bool isEmpty = merge.operations.isEmpty() && merge.superseded.isEmpty();
            return isEmpty ? Expected<void>()
                           : m_log.merge(merge.operations, merge.superseded, merge.place);
        });
    if (!merged) {
        return failure(merged.error());
    }
    if (isInbox()) {
        return m_row.name;
    }
    return m_log.name().map(
        [this](const QString &name) { return name.isEmpty() ? m_row.name : name; });
}

Expected<void> EngineDatabase::writeName(const QString &name) const {
    return m_profile.run(QStringLiteral("UPDATE databases SET name = CAST(? AS TEXT) WHERE id = ?"),
                         {ProfileDatabase::exactText(name), m_row.id});
}

Expected<void> EngineDatabase::setOpen(bool isOpen) {
    return m_profile
        .write([&] {
            return m_profile.run(QStringLiteral("UPDATE databases SET is_open = ? WHERE id = ?"),
                                 {isOpen, m_row.id});
        })
        .map([&] {
            m_row.isOpen = isOpen;
            KeyValue::announce<&NoteDatabase::openChanged>(this);
        });
}
