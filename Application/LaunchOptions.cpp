#include "Application/LaunchOptions.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>
#include <array>
#include <cstdlib>

#include "Application/ApplicationError.h"
#include "Platform/Foundation/Expected.h"
#include "Platform/Foundation/TerminalText.h"

namespace {

/// The first synchronization of large databases takes long.
constexpr std::chrono::seconds SynchronizationTimeout(3600);
constexpr std::chrono::seconds CommandTimeout(300);

const QString VerifyCommand = QStringLiteral("verify");
const QString SyncCommand = QStringLiteral("sync");
const QString StatusCommand = QStringLiteral("status");
const QString CheckCommand = QStringLiteral("check");

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
    const auto name =
        arguments.isEmpty() ? std::nullopt : ShellCommand::named(arguments.takeFirst());
    return name ? std::optional(ShellCommand{.name = *name, .arguments = arguments, .json = json})
                : std::nullopt;
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
    /// Returns the options, or an error for the user if one is not valid, or they do not fit
    /// together, or an argument is not understood.
    Expected<LaunchOptions> read() const;
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
    /// The command, which may be missing, and the time for it.
    struct TimedCommand {
        std::optional<ShellCommand> command;
        std::chrono::seconds timeout{0};
    };

    Expected<TimedCommand> readCommand() const;
    /// Returns the value of `option`, which the names must contain; nothing if it is not set.
    template <class Value>
    Expected<std::optional<Value>> readChoice(const QCommandLineOption &option,
                                              const QMap<QString, Value> &values) const;
    Error invalidValue(const QCommandLineOption &option) const;
    /// Fails if the command does not exist, or if an option or argument is not one of the command,
    /// or, without a command, of the program.
    Expected<void> checkFit() const;
    Expected<void> checkArguments() const;
};

void CommandLine::describeCommands() {
    parser.addPositionalArgument(
        VerifyCommand,
        tr("Check the profile and every sync location and print what was found, then exit with 0 "
           "if all is well, 1 if there are problems, or 2 if something could not be checked."),
        u'[' + VerifyCommand + u']');
    parser.addPositionalArgument(
        SyncCommand,
        tr("Synchronize these databases, or all, with their locations. Like the next two, this "
           "is done by Velmora if it is running. Exits with 0 if all is well, 1 if something "
           "failed, or 2 if "
           "the command could not be carried out."),
        QStringLiteral("| sync [DATABASE…]"));
    parser.addPositionalArgument(
        StatusCommand,
        tr("Print whether everything is synchronized. Exits with 1 if something is not."),
        QStringLiteral("| status [--json]"));
    parser.addPositionalArgument(
        CheckCommand,
        tr("Check whether the location with this title or address can be read and written. Exits "
           "with 1 if it cannot."),
        QStringLiteral("| check LOCATION"));
}

Expected<LaunchOptions> CommandLine::read() const {
    if (Expected<void> fit = checkFit(); !fit) {
        return failure(fit.error());
    }
    const auto timed = readCommand();
    const auto looks =
        readChoice<QString>(appearance, {{QStringLiteral("light"), QStringLiteral("light")},
                                         {QStringLiteral("dark"), QStringLiteral("dark")}});
    const auto restricts =
        readChoice<bool>(sandboxed, {{QStringLiteral("on"), true}, {QStringLiteral("off"), false}});
    const auto contents =
        readChoice<FirstContents>(begin, {{QStringLiteral("empty"), FirstContents::Inbox},
                                          {QStringLiteral("examples"), FirstContents::Welcome}});
    if (!timed || !looks || !restricts || !contents) {
        return failure(!timed       ? timed.error()
                       : !looks     ? looks.error()
                       : !restricts ? restricts.error()
                                    : contents.error());
    }
    const LaunchOptions options{
        .profile = parser.isSet(profile)
                       ? parser.value(profile)
                       : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation),
        .screenshot = parser.value(screenshot),
        .describe = parser.isSet(describe),
        .verify = parser.positionalArguments() == QStringList{VerifyCommand},
        .repair = parser.isSet(repair),
        .json = parser.isSet(json),
        .command = timed->command,
        .timeout = timed->timeout,
        .begin = *contents,
        .preferences = parser.isSet(preferences),
        .appearance = looks->value_or(QString()),
        .sandboxed = *restricts};
    if (options.profile.isEmpty()) {
        return failure(invalidValue(profile));
    }
    return options;
}

Expected<CommandLine::TimedCommand> CommandLine::readCommand() const {
    TimedCommand timed{commandIn(parser.positionalArguments(), parser.isSet(json))};
    if (!timed.command) {
        return timed;
    }
    const auto seconds = parser.isSet(timeout) ? secondsIn(parser.value(timeout))
                                               : defaultTimeout(timed.command->name);
    if (!seconds) {
        return failure(invalidValue(timeout));
    }
    timed.timeout = *seconds;
    const auto decision = ShellCommand::removalsNamed(parser.value(removals));
    if (parser.isSet(removals) && !decision) {
        return failure(invalidValue(removals));
    }
    if (timed.command->name == ShellCommand::Name::Synchronize) {
        timed.command->removals = decision.value_or(RemovalDecision::Later);
    }
    return timed;
}

template <class Value>
Expected<std::optional<Value>> CommandLine::readChoice(const QCommandLineOption &option,
                                                       const QMap<QString, Value> &values) const {
    const auto value = values.constFind(parser.value(option));
    if (value == values.constEnd() && parser.isSet(option)) {
        return failure(invalidValue(option));
    }
    return value == values.constEnd() ? std::nullopt : std::optional<Value>(*value);
}

Error CommandLine::invalidValue(const QCommandLineOption &option) const {
    const QString value = parser.value(option);
    if (&option == &profile) {
        return applicationError(tr("“--profile” needs a folder as its value."));
    }
    if (&option == &timeout) {
        return applicationError(tr("“%1” cannot be the value of “--timeout”. Use a number of "
                                   "seconds greater than 0.")
                                    .arg(value));
    }
    return applicationError(tr("“%1” cannot be the value of “--%2”. Use one of these: %3")
                                .arg(value, option.names().constFirst(), option.valueName()));
}

Expected<void> CommandLine::checkFit() const {
    struct Use {
        const QCommandLineOption &option;
        /// Empty for options that need no command and fit none.
        QStringList commands;
    };
    const std::array uses{Use{begin, {}},
                          Use{preferences, {}},
                          Use{screenshot, {}},
                          Use{describe, {}},
                          Use{sandboxed, {}},
                          Use{repair, {VerifyCommand}},
                          Use{json, {VerifyCommand, StatusCommand}},
                          Use{timeout, {SyncCommand, StatusCommand, CheckCommand}},
                          Use{removals, {SyncCommand}}};
    const QString command = parser.positionalArguments().value(0);
    for (const Use &use : uses) {
        if (!parser.isSet(use.option)) {
            continue;
        }
        const QString name = use.option.names().constFirst();
        if (command.isEmpty() && !use.commands.isEmpty()) {
            return failure(applicationError(
                tr("“--%1” needs one of these commands: %2").arg(name, use.commands.join(u'|'))));
        }
        if (!command.isEmpty() && !use.commands.contains(command)) {
            return failure(applicationError(
                tr("“--%1” cannot be used with the command “%2”. Leave one of them out.")
                    .arg(name, command)));
        }
    }
    return checkArguments();
}

Expected<void> CommandLine::checkArguments() const {
    const QStringList arguments = parser.positionalArguments();
    const QStringList commands{VerifyCommand, SyncCommand, StatusCommand, CheckCommand};
    const QString command = arguments.value(0);
    if (!arguments.isEmpty() && !commands.contains(command)) {
        return failure(applicationError(
            tr("“%1” is not a command. Use one of these: %2").arg(command, commands.join(u'|'))));
    }
    if (command == CheckCommand && arguments.size() != 2) {
        return failure(applicationError(
            tr("The command “check” needs one argument: the title or the address of a location.")));
    }
    if ((command == VerifyCommand || command == StatusCommand) && arguments.size() > 1) {
        return failure(applicationError(
            tr("The command “%1” has no arguments. Leave “%2” out.").arg(command, arguments[1])));
    }
    return {};
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
    Expected<LaunchOptions> options = commandLine.read();
    if (!options) {
        TerminalText::printError(options.error().localizedDescription);
        std::exit(commandLine.exitCodeOfMistake());
    }
    options->hasNoDisplay = !own.selectsPlatform && !hasDisplay();
    return *options;
}
