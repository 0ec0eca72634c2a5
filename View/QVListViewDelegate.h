#pragma once

#include <QtCore/QVariant>

class CollectionViewItem;
class QVListView;

/// Determines how a list shows its objects and which of them can be selected. Called on the main
/// thread, from within functions of the list; it must not delete the list or set its content in a
/// call. Not owned by the list.
class QVListViewDelegate {
public:
    virtual ~QVListViewDelegate() = default;

    /// Returns the item to copy for `object`, or null for the list's own prototype. Called once for
    /// each item that is made. The delegate owns the prototype, which must stay valid until the
    /// call of the list that asked returns.
    virtual CollectionViewItem *collectionViewItemPrototypeForRepresentedObject(
        QVListView *listView, const QVariant &object) = 0;
    /// Returns whether `item` takes part in selection. Called for each item before the list sets
    /// its state; an item that is refused keeps the state it has. `item` is never null. Also called
    /// for the item under the pointer when the user clicks.
    virtual bool collectionViewShouldSelectItem(QVListView *listView, CollectionViewItem *item) = 0;
};
