#include "Application/PlugIns.h"

#include "Application/ApplicationError.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPluginLoader>

namespace {

QString plugInPath(const char *name) {
    return QStringLiteral("%1/" VELMORA_PLUGINS "/lib%2.so")
        .arg(QCoreApplication::applicationDirPath(), QLatin1StringView(name));
}

Error loadingError(const QPluginLoader &loader) {
    return applicationError(
        QCoreApplication::translate(
            "PlugIns", "A part of Velmora cannot be loaded: %1. Install Velmora again.")
            .arg(loader.fileName()),
        loader.errorString());
}

template <class Interface>
Expected<Interface *> load(QPluginLoader &loader) {
    if (auto *plugIn = qobject_cast<Interface *>(loader.instance())) {
        return plugIn;
    }
    return failure(loadingError(loader));
}

}  // namespace

Expected<SyncPlugIn *> PlugIns::loadSync() {
    QPluginLoader loader(plugInPath("VelmoraSync"));
    return load<SyncPlugIn>(loader);
}

Expected<std::unique_ptr<PreferencePane>> PlugIns::makeSyncPreferences() {
    QPluginLoader loader(plugInPath("SyncPreferences"));
    const auto plugIn = load<PreferencePanePlugIn>(loader);
    if (!plugIn) {
        return failure(plugIn.error());
    }
    return (*plugIn)->makePreferencePane(
        loader.metaData().value(QLatin1StringView("MetaData")).toObject());
}

Expected<QList<LocationOffer>> PlugIns::locationOffers() {
    QPluginLoader loader(plugInPath("SyncPreferences"));
    return load<PreferencePanePlugIn>(loader).map([&](PreferencePanePlugIn * /*plugIn*/) {
        const auto *offers = qobject_cast<LocationOffers *>(loader.instance());
        return offers ? offers->locationOffers() : QList<LocationOffer>();
    });
}
