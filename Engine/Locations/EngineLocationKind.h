#pragma once

#include <QtCore/QStringList>
#include <functional>
#include <memory>

#include "Engine/Stores/BlobStore.h"
#include "Engine/Stores/SecretRemoval.h"

class EngineSyncLocation;

/// A kind of sync location: how it is recognized, shown and accessed, and what is deleted with it.
/// None of the functions may be empty. They are called on the main thread.
struct EngineLocationKind {
    /// The URL schemes of the kind, in lower case.
    QStringList schemes;
    /// The untranslated name of the kind, a key of the translation table "Sync".
    const char *type;
    /// The name of the icon in the engine's resources, without extension.
    QString iconName;
    /// Returns the title of a location. If it is empty, the name of the kind is shown.
    std::function<QString(const Url &URL)> title;
    /// Returns a new store for a location; never null.
    std::function<std::shared_ptr<BlobStore>(const std::shared_ptr<EngineSyncLocation> &location)>
        createStore;
    /// Deletes what the profile contains for the removed location `identifier` of this kind only.
    /// By default, nothing.
    std::function<Expected<void>(const QString &identifier)> forgetInProfile = [](const QString &) {
        return Expected<void>();
    };
    /// Returns whether the location `other`, of the same kind, uses the secrets of `URL`. By
    /// default, locations share no secrets.
    std::function<bool(const Url &URL, const Url &other)> sharesSecrets =
        [](const Url &, const Url &) { return false; };
    /// Deletes the secrets of a removed location, which no other location needs. By default, there
    /// are none.
    std::function<void(const SecretRemoval &removal)> forgetSecrets =
        [](const SecretRemoval &removal) { removal.finish({}); };
};
