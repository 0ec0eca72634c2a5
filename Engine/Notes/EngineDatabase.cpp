#include "Engine/Notes/EngineDatabase.h"

#include "Engine/Profile/ProfileDatabase.h"
#include "Platform/KeyValue/KeyValue.h"

EngineDatabase::EngineDatabase(const ProfileDatabase &profile, const QString &UUID,
                               const QString &name, Kind kind, bool isOpen)
    : m_profile(profile),
      m_log(profile, UUID),
      m_UUID(UUID),
      m_name(name),
      m_kind(kind),
      m_isOpen(isOpen) {}

QList<Note> EngineDatabase::notes() const {
    return m_log.notes();
}

std::optional<Error> EngineDatabase::saveNote(Note &note) {
    Note saved = note;
    if (std::optional<Error> error = m_profile.write([&] { return m_log.save(saved); })) {
        return error;
    }
    note = saved;
    Q_EMIT notesChanged();
    return {};
}

std::optional<Error> EngineDatabase::removeNote(const QString &noteUUID) {
    if (std::optional<Error> error = m_profile.write([&] { return m_log.remove(noteUUID); })) {
        return error;
    }
    Q_EMIT notesChanged();
    return {};
}

std::optional<Error> EngineDatabase::setName(const QString &name) {
    if (std::optional<Error> error = m_profile.write([&] {
            const std::optional<Error> logError = isInbox() ? std::nullopt : m_log.setName(name);
            return logError ? logError : writeName(name);
        })) {
        return error;
    }
    m_name = name;
    KeyValue::announce<&QVDatabase::nameChanged>(this);
    return {};
}

std::optional<Error> EngineDatabase::merge(const QList<Transaction> &transactions,
                                           const std::function<std::optional<Error>()> &changes) {
    QString name = m_name;
    if (std::optional<Error> error = m_profile.write([&]() -> std::optional<Error> {
            for (const Transaction &transaction : transactions) {
                if (std::optional<Error> mergeError = m_log.merge(transaction)) {
                    return mergeError;
                }
            }
            const QString logName = isInbox() ? QString() : m_log.name();
            name = logName.isEmpty() ? m_name : logName;
            const std::optional<Error> nameError = name == m_name ? std::nullopt : writeName(name);
            return nameError ? nameError : changes();
        })) {
        return error;
    }
    Q_EMIT notesChanged();
    if (name != m_name) {
        m_name = name;
        KeyValue::announce<&QVDatabase::nameChanged>(this);
    }
    return {};
}

std::optional<Error> EngineDatabase::writeName(const QString &name) const {
    return m_profile.run(QStringLiteral("UPDATE databases SET name = ? WHERE uuid = ?"),
                         {name, m_UUID});
}

std::optional<Error> EngineDatabase::setOpen(bool isOpen) {
    if (std::optional<Error> error = m_profile.run(
            QStringLiteral("UPDATE databases SET is_open = ? WHERE uuid = ?"), {isOpen, m_UUID})) {
        return error;
    }
    m_isOpen = isOpen;
    KeyValue::announce<&NoteDatabase::openChanged>(this);
    return {};
}
