#pragma once

#include <QtCore/QStringList>
#include <functional>
#include <memory>

#include "Engine/Stores/BlobStore.h"

class EngineSyncLocation;

/// A kind of sync location: how it is recognized, shown and accessed. None of the functions may be
/// empty.
struct EngineLocationKind {
    /// The URL schemes of the kind, in lower case.
    QStringList schemes;
    /// The untranslated name of the kind, a key of the translation table "Sync".
    const char *type;
    /// The name of the icon in the engine's resources, without extension.
    QString iconName;
    /// Returns the title of a location. If it is empty, the name of the kind is shown.
    std::function<QString(const Url &URL)> title;
    /// Returns a new store for a location; never null. Called on the main thread.
    std::function<std::shared_ptr<BlobStore>(const std::shared_ptr<EngineSyncLocation> &location)>
        createStore;
};
