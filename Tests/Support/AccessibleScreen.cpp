#include "Support/AccessibleScreen.h"

#include <sys/prctl.h>

#include <QtCore/QFileInfo>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCall>
#include <QtDBus/QDBusVariant>
#include <QtTest/QtTest>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "Support/AwaitReply.h"
#include "Support/EventTimeout.h"
#include "Support/Namespaces.h"

namespace {

const QString Launcher = QStringLiteral("/usr/libexec/at-spi-bus-launcher");
const QString ConnectionName = QStringLiteral("accessible-screen");
constexpr char Accessible[] = "org.a11y.atspi.Accessible";
constexpr char Action[] = "org.a11y.atspi.Action";
constexpr char Text[] = "org.a11y.atspi.Text";
constexpr quint64 ShownState = 1U << 25U;

QString addressOfBus(const QString &sessionBus) {
    QDBusConnection session =
        QDBusConnection::connectToBus(sessionBus, ConnectionName + QStringLiteral("-session"));
    const QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    QString address;
    const bool isThere = QTest::qWaitFor(
        [&] {
            address = awaitReply(session.asyncCall(question, EventTimeout))
                          .arguments()
                          .value(0)
                          .toString();
            return address.startsWith(QStringLiteral("unix:"));
        },
        EventTimeout);
    QDBusConnection::disconnectFromBus(ConnectionName + QStringLiteral("-session"));
    if (!isThere) {
        throw std::runtime_error("The accessibility bus does not start.");
    }
    return address;
}

/// Waits for the reply and returns its only value; null if it is an error, since widgets may
/// disappear at any time.
QVariant valueOf(const QDBusPendingCall &call) {
    const QDBusMessage reply = awaitReply(call);
    const QVariant value =
        reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
}

/// Returns the states as bits.
quint64 statesIn(const QVariant &reply) {
    QList<uint> states;
    if (reply.canConvert<QDBusArgument>()) {
        reply.value<QDBusArgument>() >> states;
    }
    return states.value(0) | static_cast<quint64>(states.value(1)) << 32U;
}

/// Returns the names of a list of actions.
QStringList actionNames(const QVariant &reply) {
    QStringList names;
    if (!reply.canConvert<QDBusArgument>()) {
        return names;
    }
    const auto list = reply.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QString description;
        QString keys;
        list.beginStructure();
        list >> name >> description >> keys;
        list.endStructure();
        names.append(name);
    }
    list.endArray();
    return names;
}

}  // namespace

void AccessibleScreen::require() {
    if (!QFileInfo(Launcher).isExecutable()) {
        std::fprintf(stderr, "%s is not installed.\n", qPrintable(Launcher));
        std::exit(CannotRunExitCode);
    }
}

AccessibleScreen::AccessibleScreen(const QString &sessionBus) : m_bus(QString()) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), sessionBus);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    environment.remove(QStringLiteral("DISPLAY"));
    m_launcher.setProcessEnvironment(environment);
    // It then ends the bus that it has started.
    m_launcher.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_launcher.start(Launcher, {QStringLiteral("--launch-immediately")});
    m_bus = QDBusConnection::connectToBus(addressOfBus(sessionBus), ConnectionName);
}

AccessibleScreen::~AccessibleScreen() {
    QDBusConnection::disconnectFromBus(ConnectionName);
    m_launcher.terminate();
    m_launcher.waitForFinished();
}

QDBusPendingCall AccessibleScreen::call(const Widget &widget, const char *interface,
                                        const char *function, const QVariantList &arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(
        widget.service, widget.path, QLatin1StringView(interface), QLatin1StringView(function));
    message.setArguments(arguments);
    return m_bus.asyncCall(message, EventTimeout);
}

QDBusPendingCall AccessibleScreen::property(const Widget &widget, const char *interface,
                                            const char *name) const {
    return call(widget, "org.freedesktop.DBus.Properties", "Get",
                {QString::fromLatin1(interface), QString::fromLatin1(name)});
}

QList<AccessibleScreen::Widget> AccessibleScreen::children(const QVariant &reply,
                                                           qsizetype parent) {
    QList<Widget> found;
    if (!reply.canConvert<QDBusArgument>()) {
        return found;
    }
    const auto list = reply.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString service;
        QDBusObjectPath path;
        list.beginStructure();
        list >> service >> path;
        list.endStructure();
        found.append({service, path.path(), parent});
    }
    list.endArray();
    return found;
}

QList<AccessibleScreen::Widget> AccessibleScreen::widgets() const {
    const Widget desktop{QStringLiteral("org.a11y.atspi.Registry"),
                         QStringLiteral("/org/a11y/atspi/accessible/root")};
    QList<Widget> level = children(valueOf(call(desktop, Accessible, "GetChildren")), -1);
    QList<Widget> all;
    while (!level.isEmpty()) {
        const QList<Widget> next = readLevel(level, all.size());
        all += level;
        level = next;
    }
    return all;
}

QList<AccessibleScreen::Widget> AccessibleScreen::readLevel(QList<Widget> &level,
                                                            qsizetype first) const {
    // Many calls at once, because each takes long on a busy computer.
    QList<QDBusPendingCall> states;
    for (const Widget &each : std::as_const(level)) {
        states.append(call(each, Accessible, "GetState"));
    }
    QList<Widget> shown;
    for (qsizetype i = 0; i < level.size(); ++i) {
        level[i].states = statesIn(valueOf(states[i]));
        if ((level[i].states & ShownState) != 0 || level[i].parent < 0) {
            shown.append(level[i]);
        }
    }
    level = shown;
    QList<QDBusPendingCall> calls;
    for (const Widget &each : std::as_const(level)) {
        calls += {call(each, Accessible, "GetChildren"), property(each, Accessible, "Name"),
                  property(each, Accessible, "Description"), call(each, Accessible, "GetRoleName"),
                  call(each, Text, "GetText", {0, -1})};
    }
    QList<Widget> next;
    for (qsizetype i = 0; i < level.size(); ++i) {
        const auto reply = calls.constBegin() + i * calls.size() / level.size();
        next += children(valueOf(reply[0]), first + i);
        level[i].name = valueOf(reply[1]).toString();
        level[i].description = valueOf(reply[2]).toString();
        level[i].role = valueOf(reply[3]).toString();
        level[i].contents = valueOf(reply[4]).toString();
    }
    return next;
}

QStringList AccessibleScreen::texts() const {
    QStringList texts;
    for (const Widget &each : widgets()) {
        texts.append({each.name, each.description, each.contents});
    }
    texts.removeAll(QString());
    return texts;
}

bool AccessibleScreen::awaitText(const QString &part) const {
    return QTest::qWaitFor([&] { return !texts().filter(part).isEmpty(); }, EventTimeout);
}

QStringList AccessibleScreen::awaitNoText(const QString &part) const {
    QStringList shown;
    std::ignore = QTest::qWaitFor(
        [&] {
            shown = texts().filter(part);
            return shown.isEmpty();
        },
        EventTimeout);
    return shown;
}

QStringList AccessibleScreen::names(const QString &role, State state) const {
    QStringList names;
    for (const Widget &each : widgets()) {
        if (each.role == role && each.isIn(state)) {
            names.append(each.name);
        }
    }
    return names;
}

QString AccessibleScreen::focused() const {
    const QList<Widget> all = widgets();
    const auto isInActiveWindow = [&](const Widget &widget) {
        qsizetype i = widget.parent;
        while (i >= 0 && !all[i].isIn(State::Active)) {
            i = all[i].parent;
        }
        return i >= 0;
    };
    // The current rows of lists in other windows count as focused, too.
    for (const Widget &each : all) {
        if (each.isIn(State::Focused) && isInActiveWindow(each)) {
            return each.role + u' ' + each.name;
        }
    }
    return {};
}

bool AccessibleScreen::perform(const QString &name, const QString &place,
                               const QString &action) const {
    return QTest::qWaitFor([&] { return performNow(name, place, action); }, EventTimeout);
}

bool AccessibleScreen::performNow(const QString &name, const QString &place,
                                  const QString &action) const {
    const QList<Widget> all = widgets();
    const auto isInPlace = [&](const Widget &widget) {
        qsizetype i = place.isEmpty() ? -1 : widget.parent;
        while (i >= 0 && all[i].name != place) {
            i = all[i].parent;
        }
        return place.isEmpty() || i >= 0;
    };
    for (const Widget &each : all) {
        const int index = each.name == name && isInPlace(each) ? indexOfAction(each, action) : -1;
        if (index >= 0) {
            // The reply comes when a dialog that this opens is closed.
            call(each, Action, "DoAction", {index});
            return true;
        }
    }
    return false;
}

int AccessibleScreen::indexOfAction(const Widget &widget, const QString &action) const {
    const QStringList names = actionNames(valueOf(call(widget, Action, "GetActions")));
    if (action.isEmpty()) {
        return names.isEmpty() || widget.role == QStringLiteral("list item") ? -1 : 0;
    }
    return static_cast<int>(names.indexOf(action));
}
