#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <chrono>

#include "Support/VirtualDisplay.h"

/// The program `velmora` with its windows on a display, as a user starts it, with a home folder,
/// settings and a profile of its own. Failures throw std::runtime_error. Must be used on one
/// thread.
class ShownProgram {
public:
    /// `program` is the path of the executable. `display` is not owned and must outlive this
    /// object. Starts nothing.
    ShownProgram(const QString &program, const VirtualDisplay &display);
    /// Kills the process if it is running, and fails the current test if the profile or a folder
    /// with which it synchronizes is damaged, see Verification::lastingProblems.
    ~ShownProgram();
    ShownProgram(const ShownProgram &) = delete;
    ShownProgram &operator=(const ShownProgram &) = delete;

    /// The home folder of the program.
    QString home() const { return m_folder.path(); }
    /// The folder of the profile, which the first start creates.
    QString profile() const { return m_folder.filePath(QStringLiteral("profile")); }
    /// Sets a variable of the environment for the next start.
    void setVariable(const QString &name, const QString &value);

    /// Lets the next process use the session bus at this address, and an AccessibleScreen of that
    /// bus read its windows.
    void useSession(const QString &busAddress);

    /// Starts the process, by default with both windows and, in a new profile, the examples.
    void start(const QStringList &options = {QStringLiteral("--begin"), QStringLiteral("examples"),
                                             QStringLiteral("--preferences")});
    /// The ID of the process that was started.
    qint64 processId() const { return m_process.processId(); }
    /// Blocks until both windows are shown and the main window has the keyboard.
    void awaitWindows();
    QString mainWindow() const { return m_mainWindow; }
    QString preferencesWindow() const { return m_preferencesWindow; }
    /// Whether the main window shows that there is text that is not saved.
    bool isShownAsModified();
    /// Whether it has shown that at any time since awaitWindows() or the last call of this
    /// function.
    bool takeWasShownAsModified();

    /// Ends the process with SIGKILL.
    void kill();
    /// Sends SIGTERM.
    void terminate() { m_process.terminate(); }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    /// Blocks until the process has ended. Returns whether it has done so by itself, with success.
    bool awaitEnd();
    /// How long the main thread of the process that was started last has waited for a processor,
    /// because others used it; awaitEnd() keeps it up to date to the end.
    std::chrono::nanoseconds delayByOthers();

private:
    /// Reads how the title of the main window has changed.
    void readTitles();

    const VirtualDisplay &m_display;
    const QString m_program;
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QProcess m_process;
    std::chrono::nanoseconds m_delayByOthers{0};
    /// Prints the title of the main window whenever it changes.
    QProcess m_titles;
    bool m_isModified = false;
    bool m_wasModified = false;
    QString m_mainWindow;
    QString m_preferencesWindow;
};
