#pragma once

#include <QtCore/QMetaType>
#include <QtWidgets/QWidget>
#include <memory>
#include <optional>
#include <set>

#include "Platform/Interface/BindableView.h"
#include "Platform/Interface/CollectionViewItem.h"
#include "Platform/Interface/ViewBinding.h"
#include "Platform/KeyValue/IndexSet.h"

class QVListViewDelegate;

/// A vertical list, the widget of a scroll area: one item for each object of its content, their
/// views stacked from the top at their own heights and at the list's width. It draws nothing
/// itself. One item is selected by click, if the delegate lets it; without a delegate none is.
///
/// Main thread. "content" is bound one way; "selectionIndexes" both ways, through a ViewBinding.
/// The view ends its bindings when it is destroyed.
class QVListView : public QWidget, public BindableView {
    Q_OBJECT
    /// The objects, in display order. Setting the very list that is there (shared, not equal) does
    /// nothing. Any other rebuilds all items before it returns: with nothing selected before, the
    /// first item that the delegate accepts is selected then, and "selectionIndexes" announced;
    /// otherwise nothing is selected afterwards, without an announcement. As far as the new list
    /// begins like the old one, the new items take the views of the old ones, so that an appended
    /// object costs one view.
    Q_PROPERTY(QVariantList content READ content WRITE setContent NOTIFY contentChanged)
    /// The positions of the selected items, computed from them. Setting it goes item by item:
    /// where the delegate refuses one, its selection stays as it is. Positions past the end are
    /// ignored. Announced at every setting, whatever came of it.
    Q_PROPERTY(IndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY
                   selectionIndexesChanged)
    /// What new items are copies of where the delegate names no other. The menu of its view is the
    /// menu of every item's view. There must be one for every object; setting it changes no item
    /// that is already made.
    Q_PROPERTY(
        std::shared_ptr<CollectionViewItem> itemPrototype READ itemPrototype WRITE setItemPrototype)
public:
    using Item = std::shared_ptr<CollectionViewItem>;
    using Bindings = std::set<std::shared_ptr<ViewBinding>>;

    using QWidget::QWidget;
    ~QVListView() override;

    /// Sets what makes the records of editable bindings, for all lists. Must be called before the
    /// first such binding.
    static void registerBindingFactory(const ViewBinding::Factory &makeBinding);

    /// The keys made for binding, in this order.
    static QByteArrayList exposedBindings();
    /// The type of values that `binding` carries; invalid where it is none of the exposed ones.
    static QMetaType valueClassForBinding(const QByteArray &binding);
    /// The bindings through which the view writes back.
    static QSet<QByteArray> editableBindings();

    /// Adds a record for an editable binding, then lets the property follow the model. Binding
    /// twice without unbinding adds a second record.
    void bind(const QByteArray &binding, QObject *observable, const QByteArray &keyPath,
              const QVariantMap &options) override;
    /// Removes every record of `binding`, then ends the following.
    void unbind(const QByteArray &binding) override;
    /// Keeps `binding` and connects it.
    void addBinding(const std::shared_ptr<ViewBinding> &binding);
    /// Disconnects `binding` and lets go of it.
    void removeBinding(const std::shared_ptr<ViewBinding> &binding);
    /// The records for the key `binding`.
    Bindings bindingsForKey(const QByteArray &binding) const;

    QVariantList content() const { return m_content.value_or(QVariantList()); }
    void setContent(const QVariantList &content);
    /// One for each object, in the same order.
    QList<Item> items() const { return m_items; }
    void setItems(const QList<Item> &items) { m_items = items; }
    Item itemPrototype() const { return m_itemPrototype; }
    void setItemPrototype(const Item &prototype) { m_itemPrototype = prototype; }
    Bindings bindings() const { return m_bindings; }
    void setBindings(const Bindings &bindings) { m_bindings = bindings; }
    /// Not owned; whoever sets it takes it away (nullptr) before it goes.
    QVListViewDelegate *delegate() const { return m_delegate; }
    void setDelegate(QVListViewDelegate *delegate) { m_delegate = delegate; }
    IndexSet selectionIndexes() const;
    void setSelectionIndexes(const IndexSet &indexes);

    /// A new item for `object`, with the shared menu; a view with a property "selected" follows
    /// the item's. The list does not keep it.
    Item newItemForRepresentedObject(const QVariant &object);
    /// Stacks the views of the items at the list's present width, then takes the width of the
    /// enclosing scroll area's viewport (0 without one) and the height of all of them. Called when
    /// the content changes; whoever changes the width or a row's height calls it as well.
    void layoutSubviews();

Q_SIGNALS:
    void contentChanged();
    void selectionIndexesChanged();

protected:
    /// Selects the item under the pointer, whatever the modifier keys, if the delegate lets it.
    void mousePressEvent(QMouseEvent *event) override;

private:
    bool shouldSelect(CollectionViewItem *item);
    void makeItems(const QVariantList &objects);
    Item copyPrototype(const QVariant &object);
    void setMenu(QWidget *view) const;
    void connectView(CollectionViewItem *item) const;
    qsizetype reusableViews(const QVariantList &objects) const;
    void discardViews(qsizetype first, QList<Item> &items);
    QList<QWidget *> subviews() const;

    std::optional<QVariantList> m_content;
    QList<Item> m_items;
    Item m_itemPrototype;
    Bindings m_bindings;
    QVListViewDelegate *m_delegate = nullptr;
};
