#pragma once

#include <QtCore/QVariant>

class CollectionViewItem;
class QVListView;

/// Chooses how a list shows its objects and which of them can be selected. Main thread.
class QVListViewDelegate {
public:
    virtual ~QVListViewDelegate() = default;

    /// The item to copy for `object`, or nullptr for the list's own prototype. Asked once for each
    /// item that is made. The delegate keeps the prototype.
    virtual CollectionViewItem *collectionViewItemPrototypeForRepresentedObject(
        QVListView *listView, const QVariant &object) = 0;
    /// Whether `item` takes part in selection. Asked for each item whose selection the list is
    /// about to set; an item that is refused keeps the selection it has.
    virtual bool collectionViewShouldSelectItem(QVListView *listView, CollectionViewItem *item) = 0;
};
