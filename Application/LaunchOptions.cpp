#include "Application/LaunchOptions.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QStandardPaths>
#include <cstdlib>

namespace {

QString tr(const char *text) {
    return QCoreApplication::translate("LaunchOptions", text);
}

bool hasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
           qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

}  // namespace

LaunchOptions LaunchOptions::parse(const QStringList &arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Notes and documents, synchronized with the places you choose."));
    parser.addHelpOption();
    const QCommandLineOption profile(QStringLiteral("profile"), tr("Use the profile in DIR."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"), tr("Write a picture of Sync Preferences to FILE, then exit."),
        QStringLiteral("FILE.png"));
    const QCommandLineOption describe(
        QStringLiteral("describe"),
        tr("Print the profile's databases, locations, states and schedules as JSON, then exit."));
    const QCommandLineOption appearance(QStringLiteral("appearance"),
                                        tr("Use light or dark colours instead of the desktop's."),
                                        QStringLiteral("light|dark"));
    parser.addOptions({profile, screenshot, describe, appearance});
    parser.process(arguments);

    LaunchOptions options;
    options.profile = parser.isSet(profile)
                          ? parser.value(profile)
                          : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    options.screenshot = parser.value(screenshot);
    options.describe = parser.isSet(describe);
    options.appearance = parser.value(appearance);
    options.hasNoDisplay = !hasDisplay();

    const bool isAppearanceKnown =
        QStringList({{}, QStringLiteral("light"), QStringLiteral("dark")})
            .contains(options.appearance);
    if (!isAppearanceKnown || options.profile.isEmpty() ||
        !parser.positionalArguments().isEmpty()) {
        parser.showHelp(EXIT_FAILURE);
    }
    return options;
}
