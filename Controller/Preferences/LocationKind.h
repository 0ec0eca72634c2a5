#pragma once

#include <QtCore/QList>
#include <functional>
#include <memory>

class QVSyncLocation;
class QVSyncLocationEditor;
class QVSyncPreferences;
class Url;

/// One kind of sync location in the pane: how its URLs are recognized, its editor, and its entries
/// in the menu that adds locations. To support another kind, add an entry to the table behind
/// all(). Immutable; must be used on the main thread.
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

    /// Returns whether a location with `URL` is of this kind. A nil URL is of no kind.
    bool (*matches)(const Url &URL);
    /// The English name of the kind, a key of the translation table "Sync", as the host's
    /// formatters return it.
    const char *type;
    /// Whether locations of the kind can be cleaned up.
    bool isCleanable;
    EditorFactory makeEditor;
    /// Registers the form of the editor. Idempotent.
    void (*registerForm)();
    /// In display order.
    QList<MenuEntry> menuEntries;

    /// Returns all kinds, in the order in which a URL is tested and in which their menu entries are
    /// shown.
    static const QList<LocationKind> &all();
    /// Returns the first kind that matches `URL`, or null if no kind does. The kind lives as long
    /// as the program.
    static const LocationKind *ofURL(const Url &URL);
    /// Returns whether locations can be cleaned up whose formatter returns `localizedType`.
    static bool isCleanableType(const QString &localizedType);
};
