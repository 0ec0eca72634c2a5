#include "View/QVListView.h"

#include <QtCore/QScopeGuard>
#include <QtCore/QtMath>
#include <QtGui/QMouseEvent>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/ContextMenu.h"
#include "Platform/KeyValue/Binding.h"
#include "View/QVListViewDelegate.h"

namespace {

constexpr char contentBinding[] = "content";
constexpr char selectionIndexesBinding[] = "selectionIndexes";
constexpr char selectedKey[] = "selected";

ViewBinding::Factory &bindingFactory() {
    static ViewBinding::Factory factory;
    return factory;
}

}  // namespace

void QVListView::registerBindingFactory(const ViewBinding::Factory &makeBinding) {
    bindingFactory() = makeBinding;
}

QVListView::QVListView(QWidget *parent)
    : QWidget(parent),
      m_viewHandler(std::make_shared<const CollectionViewItem::ViewHandler>(
          [this](CollectionViewItem *item) { prepareView(item); })) {}

QVListView::~QVListView() {
    QVListView::unbind(contentBinding);
    QVListView::unbind(selectionIndexesBinding);
}

QByteArrayList QVListView::exposedBindings() {
    return {contentBinding, selectionIndexesBinding};
}

QMetaType QVListView::valueClassForBinding(const QByteArray &binding) {
    if (binding == contentBinding) {
        return QMetaType::fromType<QVariantList>();
    }
    if (binding == selectionIndexesBinding) {
        return QMetaType::fromType<IndexSet>();
    }
    return {};
}

QSet<QByteArray> QVListView::editableBindings() {
    return {selectionIndexesBinding};
}

void QVListView::bind(const QByteArray &binding, QObject *observable, const QByteArray &keyPath,
                      const QVariantMap &options) {
    if (editableBindings().contains(binding)) {
        requireParameter(bool(bindingFactory()), "bindingFactory != nil", "QVListView::bind",
                         "View/QVListView");
        addBinding(bindingFactory()(this, binding, observable, keyPath, options));
    }
    KeyValue::bind(this, binding, observable, keyPath, options);
}

void QVListView::unbind(const QByteArray &binding) {
    for (const std::shared_ptr<ViewBinding> &record : bindingsForKey(binding)) {
        removeBinding(record);
    }
    KeyValue::unbind(this, binding);
}

void QVListView::addBinding(const std::shared_ptr<ViewBinding> &binding) {
    m_bindings.insert(binding);
    binding->bind();
}

void QVListView::removeBinding(const std::shared_ptr<ViewBinding> &binding) {
    binding->unbind();
    m_bindings.erase(binding);
}

QVListView::Bindings QVListView::bindingsForKey(const QByteArray &binding) const {
    Bindings result;
    for (const std::shared_ptr<ViewBinding> &record : m_bindings) {
        if (record->key() == binding) {
            result.insert(record);
        }
    }
    return result;
}

void QVListView::setContent(const QVariantList &content) {
    if (m_content && m_content->isSharedWith(content)) {
        return;
    }
    // Copied, because observers may replace the list that `content` refers to.
    const QVariantList objects = content;  // NOLINT(performance-unnecessary-copy-initialization)
    whileHidden([&] { makeItems(objects); });
    KeyValue::announce<&QVListView::contentChanged>(this);
}

void QVListView::whileHidden(const std::function<void()> &change) {
    // A visible list looks for the widget under the pointer each time a row is added or removed.
    if (!isVisible()) {
        change();
        return;
    }
    hide();
    const auto showing = qScopeGuard([this] { show(); });
    change();
}

void QVListView::makeItems(const QVariantList &objects) {
    bool selectionIsEmpty = selectionIndexes().empty();
    m_content = objects;
    removeItems();
    m_needsViews = m_isInBatch;
    m_prototypeOfMenus = m_itemPrototype;
    for (qsizetype i = 0; i < objects.size(); ++i) {
        const Item item = makeItem(objects.at(i));
        m_items.append(item);
        if (selectionIsEmpty && shouldSelect(item.get())) {
            selectionIsEmpty = false;
            setSelectionIndexes({i});
            if (!m_content->isSharedWith(objects)) {
                return;  // An observer of the selection has set other content.
            }
        }
    }
    layoutSubviews();
}

void QVListView::setItems(const QList<Item> &items) {
    m_items = items;
    forgetRows();
}

void QVListView::removeItems() {
    forgetRows();
    const QList<QWidget *> views = subviews();
    if (views.isEmpty()) {
        m_items.clear();
        return;
    }
    QWidget *discarded = moveOut(views);
    // Before their parent is deleted: deleting the views one by one is fast, but as children each
    // would search all pending deletions.
    m_items.clear();
    discarded->deleteLater();
}

QWidget *QVListView::moveOut(const QList<QWidget *> &views) {
    // Deleted later, because one of the views may be handling an event. Until then they stay in
    // the window: removing each from it would search the window's whole focus chain.
    auto *discarded = new QWidget(isWindow() ? nullptr : window());
    for (QWidget *view : views) {
        view->setParent(discarded);
    }
    return discarded;
}

void QVListView::performBatchUpdates(const std::function<void()> &updates) {
    if (m_isInBatch) {
        updates();
        return;
    }
    m_isInBatch = true;
    try {
        updates();
    } catch (...) {
        endBatch();
        throw;
    }
    endBatch();
}

void QVListView::endBatch() {
    m_isInBatch = false;
    if (!std::exchange(m_needsViews, false)) {
        return;
    }
    whileHidden([this] {
        for (qsizetype row = 0; row < m_items.size(); ++row) {
            if (m_items.at(row)->existingView()) {
                addView(row);
            }
        }
        layoutSubviews();
    });
}

IndexSet QVListView::selectionIndexes() const {
    IndexSet result;
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        if (m_items.at(i)->isSelected()) {
            result.insert(i);
        }
    }
    return result;
}

void QVListView::setSelectionIndexes(const IndexSet &indexes) {
    // A copy, because observers of an item may change the content.
    const QList<Item> items = m_items;
    for (qsizetype i = 0; i < items.size(); ++i) {
        if (shouldSelect(items.at(i).get())) {
            const bool isSelected = indexes.contains(i);
            if (isSelected && isStacked()) {
                // Its view informs assistive technologies.
                items.at(i)->makeView();
            }
            items.at(i)->setSelected(isSelected);
        }
    }
    KeyValue::announce<&QVListView::selectionIndexesChanged>(this);
}

QVListView::Item QVListView::makeItem(const QVariant &object) {
    const CollectionViewItem *prototype =
        m_delegate ? m_delegate->collectionViewItemPrototypeForRepresentedObject(this, object)
                   : nullptr;
    Item item = (prototype ? prototype : m_itemPrototype.get())->copy();
    item->setRepresentedObject(object);
    item->setViewHandler(m_viewHandler);
    return item;
}

void QVListView::prepareView(CollectionViewItem *item) {
    QWidget *view = item->existingView();
    const qsizetype row = rowOfView(view);
    const Item &prototype = row >= 0 ? m_prototypeOfMenus : m_itemPrototype;
    ContextMenu::setMenu(view, prototype ? ContextMenu::menu(prototype->view()) : nullptr);
    if (view->metaObject()->indexOfProperty(selectedKey) >= 0) {
        KeyValue::bind(view, selectedKey, item, selectedKey);
    }
    if (row >= 0 && !m_needsViews) {
        addView(row);
        if (m_isStackOutdated && !m_isMakingViews) {
            layoutSubviews();
        }
    }
}

QVListView::Item QVListView::newItemForRepresentedObject(const QVariant &object) {
    Item item = makeItem(object);
    item->view();
    return item;
}

void QVListView::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPoint point(qFloor(event->position().x()), qFloor(event->position().y()));
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        const Item item = m_items.at(i);
        if (frameOfRow(i).contains(point) && shouldSelect(item.get())) {
            setSelectionIndexes({i});
            return;
        }
    }
}

bool QVListView::shouldSelect(CollectionViewItem *item) {
    return m_delegate && m_delegate->collectionViewShouldSelectItem(this, item);
}

QList<QWidget *> QVListView::subviews() const {
    return findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
}
