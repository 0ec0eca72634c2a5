#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <functional>
#include <memory>

#include "Engine/Stores/BlobStore.h"
#include "Engine/Stores/SecretRemoval.h"

class QVSyncLocation;

/// A kind of sync location: how it is recognized, shown and accessed, and what is deleted with it.
/// A value of the table EngineLocationKinds. None of the functions may be empty. They are called on
/// the main thread, must not wait for the network or the keyring, and must keep alive what they
/// use, since a location can outlive the engine.
struct EngineLocationKind {
    /// The URL schemes of the kind, in lower case.
    QStringList schemes;
    /// The untranslated name of the kind, a key of the translation table "Sync".
    const char *type;
    /// The name of the icon in the engine's resources, without extension.
    QString iconName;
    /// Returns the title of a location. If it is empty, the name of the kind is shown. The URL is
    /// of this kind, but otherwise unchecked.
    std::function<QString(const Url &URL)> title;
    /// Returns a new store for a location, which the profile knows as `identifier`; never null. The
    /// store must use the URL that the location has now, and share ownership of the location. Must
    /// not access the store yet.
    std::function<std::shared_ptr<BlobStore>(const std::shared_ptr<QVSyncLocation> &location,
                                             const QString &identifier)>
        createStore;
    /// Deletes what the profile contains for the removed location `identifier` of this kind only.
    /// By default, nothing. May write to the profile. After an error, it is called again in a later
    /// run, so it must be idempotent.
    std::function<Expected<void>(const QString &identifier)> forgetInProfile = [](const QString &) {
        return Expected<void>();
    };
    /// Deletes what the user defaults contain for the server of a removed location of this kind,
    /// unless one of `others`, the URLs of all such locations of the list, has the same server. By
    /// default, nothing. After an error, it is called again in a later run.
    std::function<Expected<void>(const Url &URL, const QList<Url> &others)> forgetServer =
        [](const Url &, const QList<Url> &) { return Expected<void>(); };
    /// Returns whether the location `other`, of the same kind, uses the secrets of `URL`. Both URLs
    /// may be equal: two locations can have the same address. By default, locations share no
    /// secrets.
    std::function<bool(const Url &URL, const Url &other)> sharesSecrets =
        [](const Url &, const Url &) { return false; };
    /// Deletes the secrets of a removed location, which no other location needs, and calls the
    /// function `finish` of `removal` once, now or later. By default, there are none.
    std::function<void(const SecretRemoval &removal)> forgetSecrets =
        [](const SecretRemoval &removal) { removal.finish({}); };
};
