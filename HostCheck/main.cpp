// Checks a host, which is given as a plug-in: velmora-check-host [--json] [--timeout SECONDS]
// PLUGIN.so

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPluginLoader>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <cstdio>
#include <optional>

#include "HostCheck/CrashReport.h"
#include "HostCheck/HostRun.h"
#include "Platform/Foundation/Assertion.h"

namespace {

constexpr int NotChecked = 2;

struct Arguments {
    HostReport::Format format = HostReport::Format::Lines;
    std::chrono::seconds limit{120};
    QString plugIn = {};
};

int refuse(const QString &reason) {
    std::fprintf(stderr, "velmora-check-host: %s\n", qUtf8Printable(reason));
    return NotChecked;
}

/// Returns std::nullopt unless `words` are valid arguments.
std::optional<Arguments> parsed(QStringList words) {
    Arguments arguments;
    if (words.removeAll(QStringLiteral("--json")) > 0) {
        arguments.format = HostReport::Format::Json;
    }
    if (const qsizetype index = words.indexOf(QStringLiteral("--timeout")); index >= 0) {
        arguments.limit = std::chrono::seconds(words.value(index + 1).toUInt());
        words.remove(index, words.size() > index + 1 ? 2 : 1);
    }
    if (words.size() != 1 || words.first().startsWith(u'-') || arguments.limit.count() == 0) {
        return std::nullopt;
    }
    arguments.plugIn = words.first();
    return arguments;
}

/// Keeps the host from what the user has: its settings and temporary files are in `folder`, and it
/// finds no password service.
void hideUser(const QTemporaryDir &folder) {
    const QString temporary = folder.filePath(QStringLiteral("temporary"));
    if (QDir().mkdir(temporary)) {
        qputenv("TMPDIR", QFile::encodeName(temporary));
    }
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(folder.filePath(QStringLiteral("settings"))));
    qputenv("DBUS_SESSION_BUS_ADDRESS",
            "unix:path=" + QFile::encodeName(folder.filePath(QStringLiteral("no-bus"))));
}

/// Returns the exit status.
int checkPlugIn(const Arguments &arguments, QTemporaryDir &folder) {
    // A relative path would be searched for among the libraries of the system.
    QPluginLoader loader(QFileInfo(arguments.plugIn).absoluteFilePath());
    auto *plugIn = qobject_cast<QVHostPlugIn *>(loader.instance());
    if (!plugIn) {
        return refuse(
            loader.isLoaded()
                ? QStringLiteral("%1 is no plug-in of a host (QVHostPlugIn).").arg(arguments.plugIn)
                : QStringLiteral("%1: %2").arg(arguments.plugIn, loader.errorString()));
    }
    HostRun run(*plugIn, arguments.format, arguments.limit, folder);
    const Expected<bool> isSound = run.run();
    if (!isSound) {
        return refuse(isSound.error().localizedDescription);
    }
    return *isSound ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argumentCount, char **arguments) {
    installAssertionReporter();
    CrashReport::install();
    QTemporaryDir folder;
    hideUser(folder);
    // No window is shown, so no display is needed.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argumentCount, arguments);
    // Names the settings.
    QApplication::setOrganizationName(QStringLiteral("Velmora"));
    const auto found = parsed(QApplication::arguments().mid(1));
    if (!found) {
        return refuse(
            QStringLiteral("usage: velmora-check-host [--json] [--timeout SECONDS] PLUGIN.so"));
    }
    return folder.isValid() ? checkPlugIn(*found, folder) : refuse(folder.errorString());
}
