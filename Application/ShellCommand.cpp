#include "Application/ShellCommand.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <array>

namespace {

struct NameText {
    ShellCommand::Name name;
    const char *text;
};

constexpr std::array CommandNames{NameText{ShellCommand::Name::Synchronize, "sync"},
                                  NameText{ShellCommand::Name::Status, "status"},
                                  NameText{ShellCommand::Name::Check, "check"}};

struct DecisionText {
    RemovalDecision decision;
    const char *text;
};

constexpr std::array Decisions{DecisionText{RemovalDecision::Keep, "keep"},
                               DecisionText{RemovalDecision::Remove, "remove"}};

QByteArray lineOf(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

}  // namespace

std::optional<ShellCommand::Name> ShellCommand::named(const QString &text) {
    for (const NameText &each : CommandNames) {
        if (text == QLatin1StringView(each.text)) {
            return each.name;
        }
    }
    return {};
}

std::optional<RemovalDecision> ShellCommand::removalsNamed(const QString &text) {
    for (const DecisionText &each : Decisions) {
        if (text == QLatin1StringView(each.text)) {
            return each.decision;
        }
    }
    return {};
}

QByteArray ShellCommand::toLine() const {
    QString text;
    QString decision;
    for (const DecisionText &each : Decisions) {
        decision = each.decision == removals ? QString::fromLatin1(each.text) : decision;
    }
    for (const NameText &each : CommandNames) {
        text = each.name == name ? QString::fromLatin1(each.text) : text;
    }
    return lineOf({{QStringLiteral("command"), text},
                   {QStringLiteral("arguments"), QJsonArray::fromStringList(arguments)},
                   {QStringLiteral("json"), json},
                   {QStringLiteral("removals"), decision}});
}

std::optional<ShellCommand> ShellCommand::fromLine(const QByteArray &line) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const auto name = named(object[QStringLiteral("command")].toString());
    if (!name) {
        return {};
    }
    ShellCommand command{.name = *name,
                         .json = object[QStringLiteral("json")].toBool(),
                         .removals = removalsNamed(object[QStringLiteral("removals")].toString())
                                         .value_or(RemovalDecision::Later)};
    const QJsonArray arguments = object[QStringLiteral("arguments")].toArray();
    for (const QJsonValue argument : arguments) {
        command.arguments.append(argument.toString());
    }
    return command;
}

QByteArray ShellResult::toLine() const {
    return lineOf({{QStringLiteral("exitCode"), exitCode},
                   {QStringLiteral("output"), output},
                   {QStringLiteral("errors"), errors}});
}

std::optional<ShellResult> ShellResult::fromLine(const QByteArray &line) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const QJsonValue code = object[QStringLiteral("exitCode")];
    if (!code.isDouble()) {
        return {};
    }
    return ShellResult{code.toInt(), object[QStringLiteral("output")].toString(),
                       object[QStringLiteral("errors")].toString()};
}
