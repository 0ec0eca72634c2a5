#pragma once

#include <QtCore/QObject>

#include "Host/LocationOffers.h"
#include "Platform/Interface/PreferencePane.h"

/// The root object of the pane's plug-in, created by QPluginLoader. Creating it registers nothing,
/// so the order in which plug-ins are loaded does not matter. Once it has made a pane, the plug-in
/// must stay loaded.
class SyncPreferencesPlugIn : public QObject, public PreferencePanePlugIn, public LocationOffers {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PreferencePanePlugIn_iid FILE "Info.json")
    Q_INTERFACES(PreferencePanePlugIn LocationOffers)
public:
    /// Returns a new pane, or an error that names the classes which every pane needs and the host
    /// lacks, or the version of the interface that the pane needs and the one that the host has.
    /// The host's classes must therefore be registered before. `info` is the metadata of the
    /// plug-in. Several panes can exist, see QVSyncPreferences::preferences(). Must be called on
    /// the main thread.
    Expected<std::unique_ptr<PreferencePane>> makePreferencePane(const QJsonObject &info) override;
    QList<LocationOffer> locationOffers() const override;
};
