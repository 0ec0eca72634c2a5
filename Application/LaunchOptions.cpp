#include "Application/LaunchOptions.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <cstdlib>

namespace {

/// The first synchronization of large databases takes long.
constexpr std::chrono::seconds SynchronizationTimeout(3600);
constexpr std::chrono::seconds CommandTimeout(300);

const QString VerifyCommand = QStringLiteral("verify");

QString tr(const char *text) {
    return QCoreApplication::translate("LaunchOptions", text);
}

/// Whether an option of Qt is followed by a value. QGuiApplication and QApplication document them,
/// except for the last four, which the X11 platform plug-in accepts.
const QHash<QString, bool> &optionsOfQt() {
    static const QHash<QString, bool> hasValue = {
        {QStringLiteral("platform"), true},        {QStringLiteral("platformpluginpath"), true},
        {QStringLiteral("platformtheme"), true},   {QStringLiteral("plugin"), true},
        {QStringLiteral("qwindowgeometry"), true}, {QStringLiteral("qwindowicon"), true},
        {QStringLiteral("qwindowtitle"), true},    {QStringLiteral("reverse"), false},
        {QStringLiteral("session"), true},         {QStringLiteral("style"), true},
        {QStringLiteral("stylesheet"), true},      {QStringLiteral("widgetcount"), false},
        {QStringLiteral("display"), true},         {QStringLiteral("name"), true},
        {QStringLiteral("nograb"), false},         {QStringLiteral("dograb"), false}};
    return hasValue;
}

/// Removes the options that QApplication reads itself, each with one or two dashes. `platform` is
/// set to whether one of them selects the platform plug-in.
QStringList withoutOptionsOfQt(const QStringList &arguments, bool &platform) {
    static const QRegularExpression form(QStringLiteral("\\A--?(\\w+)(=.*)?\\z"),
                                         QRegularExpression::DotMatchesEverythingOption);
    QStringList others = arguments.mid(0, 1);
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QRegularExpressionMatch match = form.match(arguments.at(i));
        const auto option = optionsOfQt().constFind(match.captured(1));
        if (arguments.at(i) == QLatin1StringView("--")) {
            return others + arguments.mid(i);
        }
        if (!match.hasMatch() || option == optionsOfQt().constEnd()) {
            others.append(arguments.at(i));
            continue;
        }
        platform = platform || option.key() == QLatin1StringView("platform");
        // The value is the next argument.
        i += *option && match.captured(2).isEmpty() ? 1 : 0;
    }
    return others;
}

bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

/// Returns the command that the arguments state; empty if they state none.
std::optional<ShellCommand> commandIn(QStringList arguments, bool json) {
    using Name = ShellCommand::Name;
    const auto name =
        arguments.isEmpty() ? std::nullopt : ShellCommand::named(arguments.takeFirst());
    if (!name || (json && *name != Name::Status) ||
        (*name != Name::Synchronize && arguments.size() != (*name == Name::Check ? 1 : 0))) {
        return {};
    }
    return ShellCommand{.name = *name, .arguments = arguments, .json = json};
}

std::chrono::seconds defaultTimeout(ShellCommand::Name name) {
    return name == ShellCommand::Name::Synchronize ? SynchronizationTimeout : CommandTimeout;
}

/// Returns the number of seconds in `text`, and sets whether it is a valid one.
std::chrono::seconds secondsIn(const QString &text, bool &isValid) {
    const int seconds = text.toInt(&isValid);
    isValid = isValid && seconds > 0;
    return std::chrono::seconds(seconds);
}

}  // namespace

LaunchOptions LaunchOptions::parse(const QStringList &arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Notes and documents, synchronized with the locations you choose."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption profile(QStringLiteral("profile"), tr("Use the profile in DIR."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"), tr("Write a picture of Sync Preferences to FILE, then exit."),
        QStringLiteral("FILE.png"));
    const QCommandLineOption describe(
        QStringLiteral("describe"),
        tr("Print the profile's databases, locations, states and schedules as JSON, then exit."));
    const QCommandLineOption appearance(QStringLiteral("appearance"),
                                        tr("Use light or dark colors instead of the desktop's."),
                                        QStringLiteral("light|dark"));
    const QCommandLineOption sandboxed(
        QStringLiteral("sandboxed"),
        tr("Restrict the profile to folders that you have granted access to, or not."),
        QStringLiteral("on|off"));
    const QCommandLineOption repair(
        QStringLiteral("repair"),
        tr("With “verify”: synchronize with every location and repair what is damaged there. "
           "Velmora must not be running with the same profile."));
    const QCommandLineOption json(QStringLiteral("json"),
                                  tr("With “verify” and “status”: print the result as JSON."));
    const QCommandLineOption timeout(QStringLiteral("timeout"),
                                     tr("With “sync”, “status” and “check”: give up after this "
                                        "time and exit with 3. The default "
                                        "is %1 for “sync” and %2 for the others.")
                                         .arg(SynchronizationTimeout.count())
                                         .arg(CommandTimeout.count()),
                                     QStringLiteral("SECONDS"));
    const QCommandLineOption removals(
        QStringLiteral("removals"),
        tr("With “sync”: if more than half of the notes of a database, and more than ten, would be "
           "removed, keep or remove them. Otherwise they are listed, and nothing is changed."),
        QStringLiteral("keep|remove"));
    parser.addPositionalArgument(
        VerifyCommand,
        tr("Check the profile and every sync location and print what was found, then exit with 0 "
           "if all is well, 1 if there are problems, or 2 if something could not be checked."),
        u'[' + VerifyCommand + u']');
    parser.addPositionalArgument(
        QStringLiteral("sync"),
        tr("Synchronize these databases, or all, with their locations. Like the next two, this "
           "asks "
           "Velmora if it is running. Exits with 0 if all is well, 1 if something failed, or 2 if "
           "the command could not be carried out."),
        QStringLiteral("| sync [DATABASE…]"));
    parser.addPositionalArgument(
        QStringLiteral("status"),
        tr("Print whether everything is synchronized. Exits with 1 if something is not."),
        QStringLiteral("| status [--json]"));
    parser.addPositionalArgument(
        QStringLiteral("check"),
        tr("Check whether the location with this title or address can be read and written. Exits "
           "with 1 if it cannot."),
        QStringLiteral("| check LOCATION"));
    parser.addOptions(
        {profile, screenshot, describe, appearance, sandboxed, repair, json, timeout, removals});
    bool selectsPlatform = false;
    parser.process(withoutOptionsOfQt(arguments, selectsPlatform));

    LaunchOptions options;
    options.profile = parser.isSet(profile)
                          ? parser.value(profile)
                          : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    options.screenshot = parser.value(screenshot);
    options.describe = parser.isSet(describe);
    options.verify = parser.positionalArguments() == QStringList{VerifyCommand};
    options.repair = parser.isSet(repair);
    options.json = parser.isSet(json);
    options.command = commandIn(parser.positionalArguments(), options.json);
    bool isTimeoutKnown = options.command || !parser.isSet(timeout);
    if (options.command) {
        options.timeout = parser.isSet(timeout) ? secondsIn(parser.value(timeout), isTimeoutKnown)
                                                : defaultTimeout(options.command->name);
    }
    const auto decision = ShellCommand::removalsNamed(parser.value(removals));
    const bool isSync = options.command && options.command->name == ShellCommand::Name::Synchronize;
    const bool isDecisionKnown = !parser.isSet(removals) || (isSync && decision);
    if (isSync) {
        options.command->removals = decision.value_or(RemovalDecision::Later);
    }
    options.appearance = parser.value(appearance);
    options.hasNoDisplay = !selectsPlatform && !hasDisplay();
    const QStringList switches{QStringLiteral("off"), QStringLiteral("on")};
    const qsizetype sandbox = switches.indexOf(parser.value(sandboxed));
    if (sandbox >= 0) {
        options.sandboxed = sandbox == 1;
    }

    const bool isAppearanceKnown =
        QStringList({{}, QStringLiteral("light"), QStringLiteral("dark")})
            .contains(options.appearance);
    const bool isSandboxKnown = !parser.isSet(sandboxed) || options.sandboxed.has_value();
    const bool isTask = options.verify || options.command;
    const bool isCommandKnown =
        isTask ? !options.describe && options.screenshot.isEmpty() && !options.sandboxed &&
                     (options.verify || !options.repair)
               : parser.positionalArguments().isEmpty() && !options.repair && !options.json;
    if (!isAppearanceKnown || !isSandboxKnown || !isTimeoutKnown || options.profile.isEmpty() ||
        !isDecisionKnown || !isCommandKnown) {
        parser.showHelp(parser.positionalArguments().isEmpty() ? EXIT_FAILURE
                                                               : ShellResult::NotDone);
    }
    return options;
}
