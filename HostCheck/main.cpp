// Checks a host, which is given as a plug-in: velmora-check-host [--json] PLUGIN.so

#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QPluginLoader>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <cstdio>

#include "Host/QVHostPlugIn.h"
#include "HostCheck/HostCheck.h"
#include "Platform/Foundation/Assertion.h"

namespace {

constexpr int NotLoaded = 2;

int refuse(const QString &reason) {
    std::fprintf(stderr, "velmora-check-host: %s\n", qUtf8Printable(reason));
    return NotLoaded;
}

QString word(HostFinding::Result result) {
    switch (result) {
        case HostFinding::Result::Kept:
            return QStringLiteral("kept");
        case HostFinding::Result::Broken:
            return QStringLiteral("broken");
        case HostFinding::Result::NotOffered:
            return QStringLiteral("not offered");
    }
    return {};
}

void printLine(const HostFinding &finding) {
    const QString reason =
        finding.reason.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(finding.reason);
    std::printf("%-11s %s: %s%s\n", qUtf8Printable(word(finding.result)),
                qUtf8Printable(finding.key), qUtf8Printable(finding.sentence),
                qUtf8Printable(reason));
    std::fflush(stdout);
}

QJsonObject object(const HostFinding &finding) {
    return {{QStringLiteral("key"), finding.key},
            {QStringLiteral("header"), finding.header},
            {QStringLiteral("sentence"), finding.sentence},
            {QStringLiteral("result"), word(finding.result)},
            {QStringLiteral("reason"), finding.reason}};
}

/// Prints what was found about every promise. Returns whether none is broken.
bool check(QVHostPlugIn &plugIn, bool isJson) {
    QJsonArray findings;
    bool isSound = true;
    for (const HostPromise &promise : HostCheck::promises()) {
        const HostFinding finding = HostCheck::find(promise, &plugIn);
        isSound = isSound && finding.result != HostFinding::Result::Broken;
        if (isJson) {
            findings.append(object(finding));
        } else {
            printLine(finding);
        }
    }
    if (isJson) {
        std::fputs(QJsonDocument(findings).toJson().constData(), stdout);
    }
    return isSound;
}

/// Returns the exit status.
int checkPlugIn(const QString &path, bool isJson) {
    // A relative path would be searched for among the libraries of the system.
    QPluginLoader loader(QFileInfo(path).absoluteFilePath());
    auto *plugIn = qobject_cast<QVHostPlugIn *>(loader.instance());
    if (!plugIn) {
        return refuse(loader.isLoaded()
                          ? QStringLiteral("%1 is no plug-in of a host (QVHostPlugIn).").arg(path)
                          : QStringLiteral("%1: %2").arg(path, loader.errorString()));
    }
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        return refuse(folder.errorString());
    }
    if (const Expected<void> begun = plugIn->begin(folder.path()); !begun) {
        return refuse(begun.error().localizedDescription);
    }
    const bool isSound = check(*plugIn, isJson);
    plugIn->end();
    return isSound ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace

int main(int argumentCount, char **arguments) {
    installAssertionReporter();
    // No window is shown, so no display is needed.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argumentCount, arguments);
    // Names the settings.
    QApplication::setOrganizationName(QStringLiteral("Velmora"));
    QStringList words = QApplication::arguments().mid(1);
    const bool isJson = words.removeAll(QStringLiteral("--json")) > 0;
    return words.size() == 1 && !words.first().startsWith(u'-')
               ? checkPlugIn(words.first(), isJson)
               : refuse(QStringLiteral("usage: velmora-check-host [--json] PLUGIN.so"));
}
