#pragma once

#include <QtCore/QProcess>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>
#include <QtCore/QVariant>
#include <QtDBus/QDBusConnection>

class QDBusPendingCall;

/// The windows of other processes as assistive technology reads and uses them (AT-SPI over D-Bus).
/// A widget is named by its accessible name, which for most is the text that it shows. Menus that
/// are open are not part of it. Failures throw std::runtime_error. Functions process events while
/// they wait. Must be used on the main thread.
class AccessibleScreen {
public:
    /// States of a widget; the values are those of AT-SPI.
    enum class State : uint { Active = 1, Checked = 4, Focused = 12, Selected = 23 };

    /// Exits the process with CannotRunExitCode, after writing the reason to standard error, if
    /// AT-SPI is not installed.
    static void require();

    /// Starts the accessibility bus of the session bus. The processes must be started after this
    /// object, with the variable QT_LINUX_ACCESSIBILITY_ALWAYS_ON, see ShownProgram::useSession().
    explicit AccessibleScreen(const QString &sessionBus);
    /// Ends the bus.
    ~AccessibleScreen();
    AccessibleScreen(const AccessibleScreen &) = delete;
    AccessibleScreen &operator=(const AccessibleScreen &) = delete;

    /// The accessibility bus.
    const QDBusConnection &bus() const { return m_bus; }

    /// Returns the names, descriptions and texts of all widgets that are shown.
    QStringList texts() const;
    /// Waits until a text that contains `part` is shown. Returns whether there is one in time.
    bool awaitText(const QString &part) const;
    /// Waits until no text that contains `part` is shown. Returns those that are still shown then.
    QStringList awaitNoText(const QString &part) const;
    /// Waits for the widget `name`, in the widget or window `place` if that is not empty, that
    /// offers `action`, and requests it. An empty `action` is the first one of a widget that is no
    /// row of a list, such as to press a button. Returns whether there is one in time; does not
    /// wait for the effect.
    bool perform(const QString &name, const QString &place = {}, const QString &action = {}) const;

    /// Returns the names of the widgets of that role, such as "list item", that are in `state`.
    QStringList names(const QString &role, State state) const;
    /// Returns the role and the name of what has the keyboard, such as "button OK".
    QString focused() const;

private:
    /// A widget in another process.
    struct Widget {
        QString service;
        QString path;
        /// The index of the widget that contains it; negative for a process.
        qsizetype parent = -1;
        QString name = {};
        QString description = {};
        QString role = {};
        /// The text in it; empty unless it can be selected.
        QString contents = {};
        /// Bits.
        quint64 states = 0;

        bool isIn(State state) const { return (states >> static_cast<uint>(state) & 1U) != 0; }
    };

    QDBusPendingCall call(const Widget &widget, const char *interface, const char *function,
                          const QVariantList &arguments = {}) const;
    QDBusPendingCall property(const Widget &widget, const char *interface, const char *name) const;
    /// Returns the widgets in the reply that lists those in `parent`.
    static QList<Widget> children(const QVariant &reply, qsizetype parent);
    /// Returns the processes, windows and widgets that are shown, each after what contains it.
    QList<Widget> widgets() const;
    /// Removes from `level` what is not shown, reads the rest, and returns what it contains.
    /// `first` is the index of the first one in widgets().
    QList<Widget> readLevel(QList<Widget> &level, qsizetype first) const;
    /// Requests the action of the first such widget. Returns whether there is one.
    bool performNow(const QString &name, const QString &place, const QString &action) const;
    /// Returns the index of the action that perform() means; negative if `widget` has none.
    int indexOfAction(const Widget &widget, const QString &action) const;

    /// Contains the socket of the bus.
    QTemporaryDir m_folder;
    QProcess m_launcher;
    QDBusConnection m_bus;
};
