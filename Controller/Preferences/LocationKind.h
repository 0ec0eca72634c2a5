#pragma once

#include <QtCore/QList>
#include <functional>
#include <memory>
#include <optional>

#include "Host/LocationAdding.h"
#include "Host/LocationOffers.h"

class QVSyncLocation;
class QVSyncLocationEditor;
class QVSyncPreferences;
class Url;

/// One kind of sync location in the pane: how its URLs are recognized, its editor, and its entries
/// in the menu that adds locations. To support another kind, add an entry to the table behind
/// all(). Immutable; must be used on the main thread. The engine has a table of its own: the two
/// agree on the URL schemes and the names of the kinds only. No function may be null, except
/// MenuEntry::choose and Offer::choose.
struct LocationKind {
    /// Returns a new editor of `location`, which must not be null. Never returns null.
    using EditorFactory = std::function<std::shared_ptr<QVSyncLocationEditor>(
        const std::shared_ptr<QVSyncLocation> &location)>;

    /// An entry of the menu "Add".
    struct MenuEntry {
        /// The object name of the menu's action. A string literal.
        const char *name;
        /// The English title, a key of the translation table "Sync".
        const char *title;
        /// Called when the user chooses the entry. May run a nested event loop. If it is null, the
        /// pane runs the kind's editor for a new location.
        void (*choose)(QVSyncPreferences &pane) = nullptr;
    };

    /// How the kind is offered to a user who has no location yet.
    struct Offer {
        /// See LocationOffer::kind. A string literal.
        const char *name;
        /// The English text of LocationOffer::place, a key of the translation table "Sync".
        const char *place;
        /// Called when the user has chosen the kind. May run a nested event loop. If it is null,
        /// the pane runs the kind's editor for a new location.
        void (*choose)(QVSyncPreferences &pane, LocationAdding::Next next) = nullptr;
    };

    /// Returns whether a location with `URL` is of this kind. A nil URL is of no kind. Schemes are
    /// compared with case. At most one kind should match a URL.
    bool (*matches)(const Url &URL);
    /// The English name of the kind, a key of the translation table "Sync", as the host's
    /// formatters return it.
    const char *type;
    /// Whether locations of the kind can be cleaned up, see QVSyncDispatcher.
    bool isCleanable;
    EditorFactory makeEditor;
    /// Registers the form of the editor with Nib, before an editor loads its window. Idempotent.
    void (*registerForm)();
    /// In display order. May be empty: the user can then edit such locations, but not add them.
    QList<MenuEntry> menuEntries;
    /// Empty if the kind is not offered to new users.
    std::optional<Offer> offer;

    /// Returns all kinds, in the order in which a URL is tested and in which their menu entries are
    /// shown. The list lives as long as the program.
    static const QList<LocationKind> &all();
    /// Returns the first kind that matches `URL`, or null if no kind does. The kind lives as long
    /// as the program.
    static const LocationKind *ofURL(const Url &URL);
    /// Returns what is offered to new users, in the order of all().
    static QList<LocationOffer> offers();
    /// Returns the kind whose offer has the name `name`, or null if there is none.
    static const LocationKind *offeredAs(const QString &name);
    /// Returns whether locations can be cleaned up whose formatter returns `localizedType`. The
    /// localized names are compared, so it must be in the current language.
    static bool isCleanableType(const QString &localizedType);
};
