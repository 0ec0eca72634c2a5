#pragma once

#include "Host/NoteDatabase.h"

class ProfileDatabase;

/// A database as the engine keeps it; its notes are read from the profile each time.
class EngineNoteDatabase : public NoteDatabase {
    Q_OBJECT
public:
    /// `profile` outlives the database.
    EngineNoteDatabase(ProfileDatabase *profile, const QString &UUID, const QString &name,
                       bool isInbox, bool isOpen);

    QString UUID() const override { return m_UUID; }
    QString name() const override { return m_name; }
    bool isInbox() const override { return m_isInbox; }
    bool isOpen() const override { return m_isOpen; }
    QList<Note> notes() const override;
    std::optional<Error> saveNote(Note &note) override;
    std::optional<Error> removeNote(const QString &noteUUID) override;

    // For the library, after it has changed the profile; these announce, and nothing more.
    void setName(const QString &name);
    void setOpen(bool open);

private:
    ProfileDatabase *const m_profile;
    const QString m_UUID;
    QString m_name;
    const bool m_isInbox;
    bool m_isOpen;
};
