#pragma once

#include <QtCore/QHash>
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
/// In a scroll area, the list makes the views of those rows that can be seen, of a page above and
/// below them, and of a row when it is selected; elsewhere, of all. An item that is asked for its
/// view makes it at its place, and keeps it. The other views are discarded when they are two pages
/// away, unless they contain the focus. Until the view of a row is made, its height is taken to be
/// that of another view from the same factory; if it turns out to be higher or lower, the rows
/// below it move, and the first row that can be seen stays where it is.
///
/// Must be used on the main thread. "content" is bound one way; "selectionIndexes" both ways,
/// through a ViewBinding. The view ends its bindings when it is destroyed.
class QVListView : public QWidget, public BindableView {
    Q_OBJECT
    /// The objects, in display order. Setting the list that is already set (shared, not merely
    /// equal) has no effect. Any other list rebuilds all items before the setter returns. If
    /// nothing was selected before, the first item that the delegate accepts becomes selected and
    /// "selectionIndexes" is announced; otherwise nothing is selected afterwards, and nothing
    /// announced. Each item gets a new view when it needs one, and all old views are discarded, in
    /// O(n) even if one object was appended; see performBatchUpdates().
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
    void setItems(const QList<Item> &items);
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
    /// Stacks the rows at the list's current width, makes the views that are needed there, then
    /// resizes the list to the width of the enclosing scroll area's viewport (0 without one) and
    /// the total height. The list calls it when the content changes; other code that changes the
    /// width or a row's height must call it. O(n).
    void layoutSubviews();
    /// Returns the frame of the view in this row, counted from 0, or the frame that it will have.
    /// Empty before the first layout of the content. `row` must exist.
    QRect frameOfRow(qsizetype row) const;
    /// Returns the first row whose frame contains `point`, or -1. O(n).
    qsizetype rowAt(const QPoint &point) const;
    /// Returns the row whose view this is, or -1. `view` must not be null. O(n).
    qsizetype rowOfView(const QWidget *view) const;
    /// Returns the view in this row, which must exist. Never null. The list may discard it when it
    /// is scrolled, unlike one that the item was asked for.
    QWidget *viewOfRow(qsizetype row);
    /// Calls `updates`, which may set the content repeatedly and must not destroy the list. Each
    /// change makes its items and announces as usual, but until the call returns the list has no
    /// views after a change; only an item that is asked for its view makes it. Then the views that
    /// the last content needs are added, stacked and shown. If `updates` throws, they are added as
    /// well. A nested call only calls `updates`.
    void performBatchUpdates(const std::function<void()> &updates);

    /// Makes the views that the viewport shows after it was resized; installed on it.
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void contentChanged();
    void selectionIndexesChanged();

protected:
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    /// Makes the views of the rows that are scrolled into the viewport.
    void moveEvent(QMoveEvent *event) override;
    /// Selects the item under the pointer, regardless of modifier keys, if the delegate accepts it.
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    /// Makes the views of the rows that were scrolled into the viewport while the list was hidden.
    void showEvent(QShowEvent *event) override;

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
    /// Moves `views` out of the list into a new hidden widget, which the caller must delete later.
    QWidget *moveOut(const QList<QWidget *> &views);
    /// Forgets where the rows of the former items were.
    void forgetRows();
    /// Makes the views that the batch left out.
    void endBatch();
    /// Returns a new item for `object` that prepares its view when it is made.
    Item makeItem(const QVariant &object);
    /// Gives the view of `item` the shared menu, binds its key "selected", and adds it to the list
    /// if the item is in it.
    void prepareView(CollectionViewItem *item);
    /// Adds the view in this row, at its place among the others.
    void addView(qsizetype row);
    /// Stacks the rows, without resizing the list.
    void stackRows();
    /// Gives the views the width of the rows, and updates the heights of the kinds.
    void measureViews();
    /// Returns the height of a row without a view, whose kind must be known.
    int expectedHeight(qsizetype row) const;
    /// Returns whether the rows were stacked since the content changed.
    bool isStacked() const { return m_tops.size() == m_items.size() + 1; }
    /// Returns the row at this height, or the nearest one. The rows must be stacked.
    qsizetype rowAtHeight(int y) const;
    /// Returns the part of the list that can be seen, with `pages` above and below it; all of it
    /// outside a scroll area.
    QRect visiblePart(int pages) const;
    /// Calls `change`, which may move rows, resizes the list to this width and its total height,
    /// and discards views far away. The first row that can be seen stays where it is.
    void keepPlace(int width, const std::function<void()> &change);
    /// Makes the views that can be seen now.
    void updateViews();
    /// Makes the views that are missing in the visible part and a page around it, and stacks the
    /// rows again as long as that changes heights.
    void makeVisibleViews();
    /// Makes the views that are missing there; returns whether there were any.
    bool makeViews(const QRect &part);
    void discardViews();
    QList<QWidget *> subviews() const;

    /// Empty until content is set for the first time, so that setting an empty list counts as a
    /// change.
    std::optional<QVariantList> m_content;
    QList<Item> m_items;
    Item m_itemPrototype;
    /// That of the time when the items were made, with the menu of views that are made later.
    Item m_prototypeOfMenus;
    Bindings m_bindings;
    QVListViewDelegate *m_delegate = nullptr;
    /// Prepares the views of the items.
    const std::shared_ptr<const CollectionViewItem::ViewHandler> m_viewHandler;
    /// The rows that have a view in the list.
    std::set<qsizetype> m_rowsWithView;
    /// Where each row begins, and where the last one ends; empty until the rows are stacked.
    QList<int> m_tops;
    /// The width of the rows, which a list that is resized keeps until its next layout.
    int m_rowWidth = 0;
    /// The heights that rows without a view have, by the kinds of their views.
    QHash<const void *, int> m_heights;
    /// Those of the rows whose views were discarded, at the present width and font.
    QHash<qsizetype, int> m_knownHeights;
    /// Whether a view is not as high as its row.
    bool m_isStackOutdated = false;
    /// Whether views are being made, after which the rows are stacked once.
    bool m_isMakingViews = false;
    bool m_isInBatch = false;
    /// Whether the views of the present content are yet to be made, at the end of the batch.
    bool m_needsViews = false;
};
