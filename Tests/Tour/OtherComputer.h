#pragma once

#include <QtCore/QProcess>

/// The user's other computer: a process with its own profile, keyring and server, controlled by
/// this class. Failures raise a TourFailure. Must be used on one thread.
class OtherComputer {
public:
    /// The argument that makes this program act as that computer.
    static inline const QString Role = QStringLiteral("--be-the-other-computer");
    /// The main function in that role.
    static int be(int argumentCount, char **arguments);

    /// A database in its profile, and a note in it.
    static inline const QString Database = QStringLiteral("Travel");
    static inline const QString NoteTitle = QStringLiteral("Night Train");
    static inline const QString NoteText =
        QStringLiteral("Leaves at 21:40 from platform 3.\nTake the upper berth.");
    /// The text that editNote() appends.
    static inline const QString Edit = QStringLiteral("\nAdded on the other computer.");

    /// Starts the process and blocks until its server is serving.
    OtherComputer();
    ~OtherComputer();
    OtherComputer(const OtherComputer &) = delete;
    OtherComputer &operator=(const OtherComputer &) = delete;

    quint16 port() const { return m_port; }
    /// Blocks until it shows the code of a computer that wants to connect, and returns the code.
    QString awaitCode();
    /// Accepts that computer.
    void allow();
    /// Synchronizes `Database` with the folder store `package`.
    void putDatabase(const QString &package);
    /// Synchronizes the database `name` with the store, appends `Edit` to one of its notes, and
    /// synchronizes again.
    void editNote(const QString &package, const QString &name, const QString &title);

private:
    void tell(const QString &command);
    /// Blocks for the next line that begins with `start`, and returns the rest of it.
    QString awaitLine(const QString &start);

    QProcess m_process;
    quint16 m_port = 0;
};
