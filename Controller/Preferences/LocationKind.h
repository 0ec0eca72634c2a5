#pragma once

#include <QtCore/QList>
#include <memory>

class QVSyncLocation;
class QVSyncLocationEditor;
class QVSyncPreferences;
class Url;

/// One kind of sync location as the pane offers it: how its URLs are recognized, its editor, and
/// its entries in the menu that adds locations. A value; the table `all` is where a kind is added.
/// Main thread.
struct LocationKind {
    /// An entry of the menu "Add".
    struct MenuEntry {
        /// The object name of the menu's action.
        const char *name;
        /// The English title, a key of the table "Sync".
        const char *title;
        void (*choose)(QVSyncPreferences &pane);
    };

    /// Returns whether a location with that URL is of this kind. A nil URL is of no kind.
    bool (*matches)(const Url &URL);
    /// Returns a new editor of `location`, which must not be null. Never returns null.
    std::shared_ptr<QVSyncLocationEditor> (*makeEditor)(
        const std::shared_ptr<QVSyncLocation> &location);
    /// In display order.
    QList<MenuEntry> menuEntries;

    /// Returns all kinds, in the order in which a URL is tested and in which their menu entries are
    /// shown.
    static const QList<LocationKind> &all();
    /// Returns the first kind that matches `URL`, or null if no kind does. The kind lives as long
    /// as the program.
    static const LocationKind *ofURL(const Url &URL);
};
