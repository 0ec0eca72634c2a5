#pragma once

#include <QtCore/QMetaType>
#include <QtWidgets/QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <set>

#include "Platform/Interface/BindableView.h"
#include "Platform/Interface/CollectionViewItem.h"
#include "Platform/Interface/ViewBinding.h"
#include "Platform/KeyValue/IndexSet.h"

class QVListViewDelegate;

/// A vertical list, the widget of a scroll area: one item for each object of its content, with the
/// items' views stacked from the top at their own heights and at the list's width. It paints
/// nothing itself. A click selects one item if the delegate accepts it; without a delegate, nothing
/// can be selected.
///
/// Must be used on the main thread. "content" is bound one way; "selectionIndexes" both ways,
/// through a ViewBinding. The view ends its bindings when it is destroyed.
class QVListView : public QWidget, public BindableView {
    Q_OBJECT
    /// The objects, in display order. Setting the list that is already set (shared, not merely
    /// equal) has no effect. Any other list rebuilds all items before the setter returns. If
    /// nothing was selected before, the first item that the delegate accepts becomes selected and
    /// "selectionIndexes" is announced; otherwise nothing is selected afterwards, and nothing
    /// announced. Each item gets a new view, and all old views are discarded, in O(n) even if one
    /// object was appended; see performBatchUpdates().
    Q_PROPERTY(QVariantList content READ content WRITE setContent NOTIFY contentChanged)
    /// The positions of the selected items, computed in O(n). The setter asks the delegate for each
    /// item; an item that is refused keeps its state. Positions past the end are ignored. Announced
    /// each time it is set, even if nothing changed.
    Q_PROPERTY(IndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY
                   selectionIndexesChanged)
    /// The prototype that new items are copied from unless the delegate provides one. The menu of
    /// its view is shared by all items. Must not be null when content is set. Setting it does not
    /// change existing items.
    Q_PROPERTY(
        std::shared_ptr<CollectionViewItem> itemPrototype READ itemPrototype WRITE setItemPrototype)
public:
    /// Shared ownership: the list keeps an item until its content is replaced.
    using Item = std::shared_ptr<CollectionViewItem>;
    /// The records of editable bindings.
    using Bindings = std::set<std::shared_ptr<ViewBinding>>;

    /// An empty list without prototype or delegate.
    explicit QVListView(QWidget *parent = nullptr);
    /// Ends the bindings and deletes the items.
    ~QVListView() override;

    /// Sets the factory for the records of editable bindings, for all lists. Must be called before
    /// the first such binding; a later call replaces the factory.
    static void registerBindingFactory(const ViewBinding::Factory &makeBinding);

    /// Returns the names of the bindings, in a fixed order.
    static QByteArrayList exposedBindings();
    /// Returns the type of the values of `binding`; invalid if it is not one of exposedBindings().
    static QMetaType valueClassForBinding(const QByteArray &binding);
    /// Returns the bindings through which the view writes to the model.
    static QSet<QByteArray> editableBindings();

    /// Adds a record if `binding` is editable, then binds the property to `keyPath` of
    /// `observable`, which is not owned. Binding twice without unbinding adds a second record.
    /// Raises an AssertionFailure if a key does not exist or no factory is registered.
    void bind(const QByteArray &binding, QObject *observable, const QByteArray &keyPath,
              const QVariantMap &options) override;
    /// Removes all records of `binding`, then ends the binding. Has no effect if there is none.
    void unbind(const QByteArray &binding) override;
    /// Stores `binding`, which must not be null, and calls its bind().
    void addBinding(const std::shared_ptr<ViewBinding> &binding);
    /// Calls unbind() of `binding` and removes it. `binding` must not be null.
    void removeBinding(const std::shared_ptr<ViewBinding> &binding);
    /// Returns the records whose key is `binding`.
    Bindings bindingsForKey(const QByteArray &binding) const;

    /// Returns the content; empty if none was set.
    QVariantList content() const { return m_content.value_or(QVariantList()); }
    /// See the property. An observer of the selection may call it while content is being set, which
    /// then ends.
    void setContent(const QVariantList &content);
    /// Returns one item for each object, in the same order. While `content` is being set, only
    /// those made so far.
    QList<Item> items() const { return m_items; }
    /// For tests. Replaces the items without making or removing views.
    void setItems(const QList<Item> &items) { m_items = items; }
    Item itemPrototype() const { return m_itemPrototype; }
    void setItemPrototype(const Item &prototype) { m_itemPrototype = prototype; }
    Bindings bindings() const { return m_bindings; }
    /// For tests. Neither binds nor unbinds the records.
    void setBindings(const Bindings &bindings) { m_bindings = bindings; }
    /// Null if none is set. Not owned; must be reset to null before it is destroyed.
    QVListViewDelegate *delegate() const { return m_delegate; }
    /// Existing items stay as they are.
    void setDelegate(QVListViewDelegate *delegate) { m_delegate = delegate; }
    IndexSet selectionIndexes() const;
    /// See the property. Without a delegate, only announces.
    void setSelectionIndexes(const IndexSet &indexes);

    /// Returns a new item for `object`, copied from its prototype, with the shared menu. If its
    /// view has a property "selected", that follows the item's. The list does not store the item.
    Item newItemForRepresentedObject(const QVariant &object);
    /// Stacks the items' views at the list's current width, then resizes the list to the width of
    /// the enclosing scroll area's viewport (0 without one) and the total height. The list calls it
    /// when the content changes; other code that changes the width or a row's height must call it.
    /// O(n).
    void layoutSubviews();
    /// Calls `updates`, which may set the content repeatedly and must not destroy the list. Each
    /// change makes its items and announces as usual, but until the call returns the list has no
    /// views after a change; only an item that is asked for its view makes it. Then the views of
    /// the last content are added, stacked and shown. n appended objects so cost n views rather
    /// than n². If `updates` throws, the views are added as well. A nested call only calls
    /// `updates`.
    void performBatchUpdates(const std::function<void()> &updates);

Q_SIGNALS:
    void contentChanged();
    void selectionIndexesChanged();

protected:
    /// Selects the item under the pointer, regardless of modifier keys, if the delegate accepts it.
    void mousePressEvent(QMouseEvent *event) override;

private:
    /// Returns the delegate's decision; false without a delegate.
    bool shouldSelect(CollectionViewItem *item);
    /// Calls `change`, which adds or removes views, while the list is hidden.
    void whileHidden(const std::function<void()> &change);
    /// Replaces the items. Stops early if an observer of the selection sets other content
    /// meanwhile.
    void makeItems(const QVariantList &objects);
    /// Removes all items and views.
    void removeItems();
    /// Stacks and shows all views after they were added.
    void showViews();
    /// Makes the views that the batch left out.
    void endBatch();
    /// Returns a new item for `object` that prepares its view when it is made.
    Item makeItem(const QVariant &object);
    /// Gives the view of `item` the shared menu, and binds its key "selected".
    void prepareView(CollectionViewItem *item) const;
    QList<QWidget *> subviews() const;

    /// Empty until content is set for the first time, so that setting an empty list counts as a
    /// change.
    std::optional<QVariantList> m_content;
    QList<Item> m_items;
    Item m_itemPrototype;
    Bindings m_bindings;
    QVListViewDelegate *m_delegate = nullptr;
    /// Prepares the views of the items.
    const std::shared_ptr<const CollectionViewItem::ViewHandler> m_viewHandler;
    bool m_isInBatch = false;
    /// Whether the views of the present content are yet to be made, at the end of the batch.
    bool m_needsViews = false;
};
