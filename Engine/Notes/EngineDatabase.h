#pragma once

#include "Engine/Notes/NoteLog.h"

/// A database of the profile. Its notes are read from there each time.
class EngineDatabase : public NoteDatabase {
    Q_OBJECT
public:
    enum class Kind { Inbox, Ordinary };

    /// `profile` holds the database already, and must outlive this.
    EngineDatabase(const ProfileDatabase &profile, const QString &UUID, const QString &name,
                   Kind kind, bool isOpen);

    QString UUID() const override { return m_UUID; }
    QString name() const override { return m_name; }
    bool isInbox() const override { return m_kind == Kind::Inbox; }
    bool isOpen() const override { return m_isOpen; }
    QList<Note> notes() const override;
    std::optional<Error> saveNote(Note &note) override;
    std::optional<Error> removeNote(const QString &noteUUID) override;

    const NoteLog &log() const { return m_log; }

    /// The library's: saves, then announces.
    std::optional<Error> setName(const QString &name);
    std::optional<Error> setOpen(bool isOpen);
    /// Takes over what others have done and whatever `changes` writes besides, in one transaction,
    /// then announces it.
    std::optional<Error> merge(const QList<Transaction> &transactions,
                               const std::function<std::optional<Error>()> &changes);

private:
    /// The inbox is called in the person's language, so its name stays in the profile.
    std::optional<Error> writeName(const QString &name) const;

    const ProfileDatabase &m_profile;
    const NoteLog m_log;
    const QString m_UUID;
    QString m_name;
    const Kind m_kind;
    bool m_isOpen;
};
