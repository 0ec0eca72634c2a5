#include "Application/LaunchOptions.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <cstdlib>

#include "Platform/Foundation/TerminalText.h"

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

/// The arguments without the options that QApplication reads itself.
struct OwnArguments {
    QStringList arguments;
    /// Whether one of those options selects the platform plug-in.
    bool selectsPlatform = false;
};

/// Removes the options of Qt, each with one or two dashes.
OwnArguments withoutOptionsOfQt(const QStringList &arguments) {
    static const QRegularExpression form(QStringLiteral("\\A--?(\\w+)(=.*)?\\z"),
                                         QRegularExpression::DotMatchesEverythingOption);
    OwnArguments own{.arguments = arguments.mid(0, 1)};
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QRegularExpressionMatch match = form.match(arguments.at(i));
        const auto option = optionsOfQt().constFind(match.captured(1));
        if (arguments.at(i) == QLatin1StringView("--")) {
            own.arguments.append(arguments.mid(i));
            return own;
        }
        if (!match.hasMatch() || option == optionsOfQt().constEnd()) {
            own.arguments.append(arguments.at(i));
            continue;
        }
        own.selectsPlatform = own.selectsPlatform || option.key() == QLatin1StringView("platform");
        // The value is the next argument.
        i += *option && match.captured(2).isEmpty() ? 1 : 0;
    }
    return own;
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

/// Returns the number of seconds in `text`, or nothing if that is not a positive number.
std::optional<std::chrono::seconds> secondsIn(const QString &text) {
    bool isNumber = false;
    const int seconds = text.toInt(&isNumber);
    return isNumber && seconds > 0 ? std::optional(std::chrono::seconds(seconds)) : std::nullopt;
}

/// The options and arguments that --help describes.
struct CommandLine {
    CommandLine() {
        parser.setApplicationDescription(
            tr("Notes and documents, synchronized with the locations you choose."));
        parser.addHelpOption();
        parser.addVersionOption();
        describeCommands();
        parser.addOptions({profile, begin, preferences, screenshot, describe, appearance, sandboxed,
                           repair, json, timeout, removals});
    }

    void describeCommands();
    /// Reads the options into `options`. Returns whether each of them is valid.
    bool read(LaunchOptions &options) const;
    /// Returns whether the options fit together and all arguments are understood.
    bool isConsistent(const LaunchOptions &options) const;
    /// Returns the exit code if this is wrong. For the commands, 1 means that something failed.
    int exitCodeOfMistake() const {
        return parser.positionalArguments().isEmpty() ? EXIT_FAILURE
                                                      : static_cast<int>(ShellResult::NotDone);
    }

    QCommandLineParser parser;
    const QCommandLineOption profile{QStringLiteral("profile"), tr("Use the profile in DIR."),
                                     QStringLiteral("DIR")};
    const QCommandLineOption begin{
        QStringLiteral("begin"),
        tr("Begin a new profile without notes or with examples, and ask no question."),
        QStringLiteral("empty|examples")};
    const QCommandLineOption preferences{QStringLiteral("preferences"),
                                         tr("Open Sync Preferences, too.")};
    const QCommandLineOption screenshot{
        QStringLiteral("screenshot"), tr("Write a picture of Sync Preferences to FILE, then exit."),
        QStringLiteral("FILE.png")};
    const QCommandLineOption describe{
        QStringLiteral("describe"),
        tr("Print the profile's databases, locations, states and schedules as JSON, then exit.")};
    const QCommandLineOption appearance{QStringLiteral("appearance"),
                                        tr("Use light or dark colors instead of the desktop's."),
                                        QStringLiteral("light|dark")};
    const QCommandLineOption sandboxed{
        QStringLiteral("sandboxed"),
        tr("Restrict the profile to folders that you have granted access to, or not."),
        QStringLiteral("on|off")};
    const QCommandLineOption repair{
        QStringLiteral("repair"),
        tr("With “verify”: synchronize with every location and repair what is damaged there. "
           "Velmora must not be running with the same profile.")};
    const QCommandLineOption json{QStringLiteral("json"),
                                  tr("With “verify” and “status”: print the result as JSON.")};
    const QCommandLineOption timeout{QStringLiteral("timeout"),
                                     tr("With “sync”, “status” and “check”: give up after this "
                                        "time and exit with 3. The default "
                                        "is %1 for “sync” and %2 for the others.")
                                         .arg(SynchronizationTimeout.count())
                                         .arg(CommandTimeout.count()),
                                     QStringLiteral("SECONDS")};
    const QCommandLineOption removals{
        QStringLiteral("removals"),
        tr("With “sync”: if more than half of the notes of a database, and more than ten, would be "
           "removed, keep or remove them. Otherwise they are listed, and nothing is changed."),
        QStringLiteral("keep|remove")};

private:
    bool readCommand(LaunchOptions &options) const;
    bool readSandboxed(LaunchOptions &options) const;
    bool readBegin(LaunchOptions &options) const;
};

void CommandLine::describeCommands() {
    parser.addPositionalArgument(
        VerifyCommand,
        tr("Check the profile and every sync location and print what was found, then exit with 0 "
           "if all is well, 1 if there are problems, or 2 if something could not be checked."),
        u'[' + VerifyCommand + u']');
    parser.addPositionalArgument(
        QStringLiteral("sync"),
        tr("Synchronize these databases, or all, with their locations. Like the next two, this "
           "is done by Velmora if it is running. Exits with 0 if all is well, 1 if something "
           "failed, or 2 if "
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
}

bool CommandLine::read(LaunchOptions &options) const {
    options.profile = parser.isSet(profile)
                          ? parser.value(profile)
                          : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    options.screenshot = parser.value(screenshot);
    options.describe = parser.isSet(describe);
    options.verify = parser.positionalArguments() == QStringList{VerifyCommand};
    options.repair = parser.isSet(repair);
    options.json = parser.isSet(json);
    options.appearance = parser.value(appearance);
    const bool isAppearanceKnown =
        QStringList({{}, QStringLiteral("light"), QStringLiteral("dark")})
            .contains(options.appearance);
    const bool isCommandValid = readCommand(options);
    options.preferences = parser.isSet(preferences);
    return readSandboxed(options) && readBegin(options) && isCommandValid && isAppearanceKnown &&
           !options.profile.isEmpty();
}

bool CommandLine::readCommand(LaunchOptions &options) const {
    options.command = commandIn(parser.positionalArguments(), options.json);
    if (!options.command) {
        return !parser.isSet(timeout) && !parser.isSet(removals);
    }
    const auto seconds = parser.isSet(timeout) ? secondsIn(parser.value(timeout))
                                               : defaultTimeout(options.command->name);
    options.timeout = seconds.value_or(std::chrono::seconds(0));
    const auto decision = ShellCommand::removalsNamed(parser.value(removals));
    const bool isSync = options.command->name == ShellCommand::Name::Synchronize;
    if (isSync) {
        options.command->removals = decision.value_or(RemovalDecision::Later);
    }
    return seconds && (!parser.isSet(removals) || (isSync && decision));
}

bool CommandLine::readSandboxed(LaunchOptions &options) const {
    const QStringList switches{QStringLiteral("off"), QStringLiteral("on")};
    if (const qsizetype state = switches.indexOf(parser.value(sandboxed)); state >= 0) {
        options.sandboxed = state == 1;
    }
    return !parser.isSet(sandboxed) || options.sandboxed;
}

bool CommandLine::readBegin(LaunchOptions &options) const {
    if (parser.value(begin) == QLatin1StringView("empty")) {
        options.begin = FirstContents::Inbox;
    } else if (parser.value(begin) == QLatin1StringView("examples")) {
        options.begin = FirstContents::Welcome;
    }
    return !parser.isSet(begin) || options.begin;
}

bool CommandLine::isConsistent(const LaunchOptions &options) const {
    if (options.verify || options.command) {
        return !options.describe && options.screenshot.isEmpty() && !options.sandboxed &&
               !options.begin && !options.preferences && (options.verify || !options.repair);
    }
    return parser.positionalArguments().isEmpty() && !options.repair && !options.json;
}

}  // namespace

LaunchOptions LaunchOptions::parse(const QStringList &arguments) {
    CommandLine commandLine;
    const OwnArguments own = withoutOptionsOfQt(arguments);
    if (!commandLine.parser.parse(own.arguments)) {
        TerminalText::printError(commandLine.parser.errorText());
        std::exit(commandLine.exitCodeOfMistake());
    }
    commandLine.parser.process(own.arguments);
    LaunchOptions options;
    options.hasNoDisplay = !own.selectsPlatform && !hasDisplay();
    if (!commandLine.read(options) || !commandLine.isConsistent(options)) {
        commandLine.parser.showHelp(commandLine.exitCodeOfMistake());
    }
    return options;
}
