#include "Application/VerificationOutput.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonArray>
#include <cstdlib>

#include "Platform/Foundation/TerminalText.h"

namespace {

using Outcome = VerificationReport::Outcome;

QString verificationText(const char *text) {
    return QCoreApplication::translate("VerificationOutput", text);
}

QString headline(const VerificationReport::Part &part) {
    switch (part.outcome) {
        case Outcome::Sound:
            return verificationText("%1: no problems (%2).").arg(part.name, part.extent);
        case Outcome::Problems:
            return verificationText("%1: problems were found (%2).").arg(part.name, part.extent);
        case Outcome::NotChecked:
            break;
    }
    return verificationText("%1: could not be checked.").arg(part.name);
}

QString conclusion(Outcome outcome, VerificationMode mode) {
    switch (outcome) {
        case Outcome::Sound:
            return verificationText("Everything is in order.");
        case Outcome::Problems:
            return mode == VerificationMode::Repair
                       ? verificationText(
                             "Problems remain. Do what is said above, then run “velmora verify” "
                             "again.")
                       : verificationText(
                             "Problems were found. “velmora verify --repair” synchronizes and "
                             "repairs what this computer can repair.");
        case Outcome::NotChecked:
            break;
    }
    return verificationText(
        "Some parts could not be checked. Remove the cause that is named above, then try again.");
}

QString name(Outcome outcome) {
    switch (outcome) {
        case Outcome::Sound:
            return QStringLiteral("sound");
        case Outcome::Problems:
            return QStringLiteral("problems");
        case Outcome::NotChecked:
            break;
    }
    return QStringLiteral("not checked");
}

QJsonObject json(const VerificationReport::Part &part) {
    return {{QStringLiteral("name"), part.name},
            {QStringLiteral("outcome"), name(part.outcome)},
            {QStringLiteral("extent"), part.extent},
            {QStringLiteral("repairs"), QJsonArray::fromStringList(part.repairs)},
            {QStringLiteral("problems"), QJsonArray::fromStringList(part.problems)}};
}

}  // namespace

QString VerificationOutput::text(const VerificationReport &report, VerificationMode mode) {
    QStringList lines;
    for (const VerificationReport::Part &part : report.parts) {
        lines.append(TerminalText::line(headline(part)));
        for (const QString &sentence : part.repairs + part.problems) {
            lines.append(QStringLiteral("    ") + TerminalText::line(sentence));
        }
    }
    lines.append(conclusion(report.outcome(), mode));
    return lines.join(u'\n') + u'\n';
}

QJsonObject VerificationOutput::json(const VerificationReport &report) {
    QJsonArray parts;
    for (const VerificationReport::Part &part : report.parts) {
        parts.append(::json(part));
    }
    return {{QStringLiteral("outcome"), name(report.outcome())}, {QStringLiteral("parts"), parts}};
}

int VerificationOutput::exitCode(Outcome outcome) {
    constexpr int problemsFound = 1;
    constexpr int notChecked = 2;
    if (outcome == Outcome::Sound) {
        return EXIT_SUCCESS;
    }
    return outcome == Outcome::Problems ? problemsFound : notChecked;
}
