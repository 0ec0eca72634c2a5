#pragma once

#include <QtCore/QObject>

#include "Platform/Interface/PreferencePane.h"

/// The root object of the pane's plug-in. Once loaded, the plug-in stays.
class SyncPreferencesPlugIn : public QObject, public PreferencePanePlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PreferencePanePlugIn_iid FILE "Info.json")
    Q_INTERFACES(PreferencePanePlugIn)
public:
    std::unique_ptr<PreferencePane> makePreferencePane(const QJsonObject &info,
                                                       std::optional<Error> *error) override;
};
