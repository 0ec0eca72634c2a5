#pragma once

#include <QtCore/QProcess>
#include <QtCore/QStringList>

/// An X server without a screen, on which other processes show their windows, and its keyboard.
/// There is no window manager: focus() gives the keyboard to a window. Failures throw
/// std::runtime_error. Must be used on one thread.
class VirtualDisplay {
public:
    /// Exits the process with CannotRunExitCode, after writing the reason to standard error, if
    /// Xvfb, xdotool or xprop is not installed.
    static void require();

    /// Starts a server with a free display number.
    VirtualDisplay();
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay &) = delete;
    VirtualDisplay &operator=(const VirtualDisplay &) = delete;

    /// The value of DISPLAY.
    QString name() const { return m_name; }

    /// Returns the ID of the visible window whose title matches the regular expression; empty if
    /// there is none.
    QString window(const QString &title) const;
    /// Makes `watcher` print a line with the title of the window, now and after each change.
    /// Returns when it has printed the first.
    void watchTitle(QProcess &watcher, const QString &window) const;
    bool hasFocus(const QString &window) const;
    /// Waits until the window has the keyboard.
    void focus(const QString &window) const;

    /// Presses keys one after the other, for example "alt+n".
    void press(const QStringList &keys) const;
    /// Types ASCII text.
    void type(const QString &text) const;
    /// Begins to type ASCII text, at the speed of a fast typist. `typist` is the process that does
    /// it until all is typed.
    void beginToType(QProcess &typist, const QString &text) const;

private:
    void start(QProcess &process, const QString &program, const QStringList &arguments) const;
    /// Returns what xdotool prints, or an empty string if it fails.
    QString run(const QStringList &arguments) const;

    QProcess m_server;
    QString m_name;
};
