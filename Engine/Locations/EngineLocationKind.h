#pragma once

#include <QtCore/QStringList>
#include <functional>
#include <memory>

#include "Engine/Stores/BlobStore.h"

class EngineSyncLocation;

/// A kind of sync location: how it is recognised, shown and reached. A value; the functions must
/// not be null.
struct EngineLocationKind {
    /// The URL schemes of the kind, in small letters.
    QStringList schemes;
    /// The untranslated name of the kind.
    const char *type;
    /// The name of the icon in the engine's resources.
    QString iconName;
    /// Returns the title of a location; where it is empty, the name of the kind is shown.
    std::function<QString(const Url &URL)> title;
    /// Returns a new store for a location. Called on the main thread.
    std::function<std::shared_ptr<BlobStore>(const std::shared_ptr<EngineSyncLocation> &location)>
        createStore;
};
