#pragma once

#include <QtCore/QObject>

#include "Platform/Interface/PreferencePane.h"

/// The root object of the pane's plug-in. Once loaded, the plug-in must stay loaded.
class SyncPreferencesPlugIn : public QObject, public PreferencePanePlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID PreferencePanePlugIn_iid FILE "Info.json")
    Q_INTERFACES(PreferencePanePlugIn)
public:
    /// Returns a new pane, or null if the host lacks a class that every pane needs; `error`, which
    /// must not be null, then names the missing classes.
    std::unique_ptr<PreferencePane> makePreferencePane(const QJsonObject &info,
                                                       std::optional<Error> *error) override;
};
