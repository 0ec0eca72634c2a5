#include "Application/PlugIns.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPluginLoader>

namespace {

QString plugInPath(const char *name) {
    return QStringLiteral("%1/../lib/lib%2.so")
        .arg(QCoreApplication::applicationDirPath(), QLatin1StringView(name));
}

template <class Interface>
Interface *load(QPluginLoader &loader, std::optional<Error> *error) {
    auto *plugIn = qobject_cast<Interface *>(loader.instance());
    if (!plugIn) {
        *error =
            Error{.domain = QStringLiteral("Velmora"),
                  .localizedDescription = QCoreApplication::translate(
                                              "PlugIns", "A part of Velmora cannot be loaded: %1")
                                              .arg(loader.fileName()),
                  .localizedFailureReason = loader.errorString()};
    }
    return plugIn;
}

}  // namespace

SyncPlugIn *PlugIns::loadSync(std::optional<Error> *error) {
    QPluginLoader loader(plugInPath("VelmoraSync"));
    return load<SyncPlugIn>(loader, error);
}

std::unique_ptr<PreferencePane> PlugIns::makeSyncPreferences(std::optional<Error> *error) {
    QPluginLoader loader(plugInPath("SyncPreferences"));
    auto *plugIn = load<PreferencePanePlugIn>(loader, error);
    const QJsonObject info = loader.metaData().value(QLatin1StringView("MetaData")).toObject();
    return plugIn ? plugIn->makePreferencePane(info, error) : nullptr;
}
