#include "View/QVListView.h"

#include <QtCore/QtMath>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QAbstractScrollArea>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/ContextMenu.h"
#include "Platform/KeyValue/Binding.h"
#include "View/QVListViewDelegate.h"

namespace {

constexpr char contentBinding[] = "content";
constexpr char selectionIndexesBinding[] = "selectionIndexes";
constexpr char selectedKey[] = "selected";

int widthOfEnclosingScrollArea(const QWidget *view) {
    for (const QWidget *parent = view->parentWidget(); parent; parent = parent->parentWidget()) {
        if (const auto *area = qobject_cast<const QAbstractScrollArea *>(parent)) {
            return area->viewport()->width();
        }
    }
    return 0;
}

ViewBinding::Factory &bindingFactory() {
    static ViewBinding::Factory factory;
    return factory;
}

}  // namespace

void QVListView::registerBindingFactory(const ViewBinding::Factory &makeBinding) {
    bindingFactory() = makeBinding;
}

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
    // A visible list looks for the widget under the pointer each time a row is added or removed.
    // Hiding it takes time for each row that is kept.
    const qsizetype kept = reusableViews(objects);
    const bool hides = isVisible() && m_items.size() + objects.size() > 3 * kept;
    if (hides) {
        hide();
    }
    makeItems(objects);
    if (hides) {
        show();
    }
    KeyValue::announce<&QVListView::contentChanged>(this);
}

void QVListView::makeItems(const QVariantList &objects) {
    bool selectionIsEmpty = selectionIndexes().empty();
    m_content = objects;
    qsizetype kept = reusableViews(objects);
    QList<Item> before = std::exchange(m_items, {});
    discardViews(kept, before);
    for (qsizetype i = 0; i < objects.size(); ++i) {
        const Item item = copyPrototype(objects.at(i));
        if (i < kept && !item->takeView(before.at(i).get())) {
            // The delegate has returned another prototype than before.
            kept = i;
            discardViews(kept, before);
        }
        m_items.append(item);
        if (i < kept) {
            setMenu(item->view());
        } else {
            connectView(item.get());
            item->view()->setParent(this);
        }
        if (selectionIsEmpty && shouldSelect(item.get())) {
            selectionIsEmpty = false;
            setSelectionIndexes({i});
            if (!m_content->isSharedWith(objects)) {
                return;  // An observer of the selection has set other content.
            }
        }
    }
    layoutSubviews();
    for (qsizetype i = kept; i < m_items.size(); ++i) {
        m_items.at(i)->view()->show();
    }
}

/// Returns the number of leading items whose views can show the first of `objects`.
qsizetype QVListView::reusableViews(const QVariantList &objects) const {
    const QList<QWidget *> views = subviews();
    const qsizetype most = qMin(views.size(), qMin(m_items.size(), objects.size()));
    qsizetype count = 0;
    while (count < most && m_items.at(count)->model() &&
           m_items.at(count)->view() == views.at(count) &&
           m_items.at(count)->representedObject() == objects.at(count)) {
        ++count;
    }
    return count;
}

/// Discards all views from `first` on, and the items that had them.
void QVListView::discardViews(qsizetype first, QList<Item> &items) {
    const QList<QWidget *> views = subviews().mid(first);
    if (views.isEmpty()) {
        return;
    }
    // Deleted later, because one of the views may be handling an event. Until then they stay in
    // the window: removing each from it would search the window's whole focus chain.
    auto *discarded = new QWidget(isWindow() ? nullptr : window());
    for (QWidget *view : views) {
        view->setParent(discarded);
    }
    // Before their parent is deleted: deleting the views one by one is fast, but as children each
    // would search all pending deletions.
    items.remove(first, items.size() - first);
    discarded->deleteLater();
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
            items.at(i)->setSelected(indexes.contains(i));
        }
    }
    KeyValue::announce<&QVListView::selectionIndexesChanged>(this);
}

QVListView::Item QVListView::copyPrototype(const QVariant &object) {
    const CollectionViewItem *prototype =
        m_delegate ? m_delegate->collectionViewItemPrototypeForRepresentedObject(this, object)
                   : nullptr;
    Item item = (prototype ? prototype : m_itemPrototype.get())->copy();
    item->setRepresentedObject(object);
    return item;
}

void QVListView::setMenu(QWidget *view) const {
    ContextMenu::setMenu(view,
                         m_itemPrototype ? ContextMenu::menu(m_itemPrototype->view()) : nullptr);
}

void QVListView::connectView(CollectionViewItem *item) const {
    QWidget *view = item->view();
    setMenu(view);
    if (view->metaObject()->indexOfProperty(selectedKey) >= 0) {
        KeyValue::bind(view, selectedKey, item->model(), selectedKey);
    }
}

QVListView::Item QVListView::newItemForRepresentedObject(const QVariant &object) {
    Item item = copyPrototype(object);
    connectView(item.get());
    return item;
}

void QVListView::layoutSubviews() {
    int y = 0;
    const QList<QWidget *> views = subviews();
    for (QWidget *view : views) {
        view->setGeometry(0, y, width(), view->height());
        y += view->height();
    }
    resize(widthOfEnclosingScrollArea(this), y);
}

void QVListView::mousePressEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const QPoint point(qFloor(event->position().x()), qFloor(event->position().y()));
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        const Item item = m_items.at(i);
        if (item->view()->geometry().contains(point) && shouldSelect(item.get())) {
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
