#pragma once

#include <QtCore/QObject>

#include "Platform/Interface/PreferencePane.h"

/// The root object of the pane's plug-in. Once loaded, the plug-in must stay loaded.
class SyncPreferencesPlugIn : public QObject, public PreferencePanePlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PreferencePanePlugIn_iid FILE "Info.json")
    Q_INTERFACES(PreferencePanePlugIn)
public:
    /// Returns a new pane, or an error that names the classes which every pane needs and the host
    /// lacks.
    Expected<std::unique_ptr<PreferencePane>> makePreferencePane(const QJsonObject &info) override;
};
