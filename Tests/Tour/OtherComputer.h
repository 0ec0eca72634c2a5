#pragma once

#include <QtCore/QProcess>

/// The person's other computer: a process with a profile, a keyring and a server of its own, whose
/// person does what they are told here. What fails raises a TourFailure. One thread.
class OtherComputer {
public:
    /// The argument with which this program is that computer.
    static inline const QString Role = QStringLiteral("--be-the-other-computer");
    /// What this program does then.
    static int be(int argumentCount, char **arguments);

    /// A database in its profile, and what is in it.
    static inline const QString Database = QStringLiteral("Travel");
    static inline const QString NoteTitle = QStringLiteral("Night Train");
    static inline const QString NoteText =
        QStringLiteral("Leaves at 21:40 from platform 3.\nTake the upper berth.");
    /// What is appended to a note.
    static inline const QString Edit = QStringLiteral("\nAdded on the other computer.");

    /// Starts it, and waits until its server serves.
    OtherComputer();
    ~OtherComputer();
    OtherComputer(const OtherComputer &) = delete;
    OtherComputer &operator=(const OtherComputer &) = delete;

    quint16 port() const { return m_port; }
    /// Waits until it shows the code of another computer that wants to connect.
    QString awaitCode();
    /// Lets that computer connect.
    void allow();
    /// Puts `Database` into the folder store `package`.
    void putDatabase(const QString &package);
    /// Takes the database `name` from there, appends `Edit` to a note of it, and puts that back.
    void editNote(const QString &package, const QString &name, const QString &title);

private:
    void tell(const QString &command);
    /// What follows `start` in the next line that begins with it.
    QString awaitLine(const QString &start);

    QProcess m_process;
    quint16 m_port = 0;
};
