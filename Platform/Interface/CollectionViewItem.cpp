#include "Platform/Interface/CollectionViewItem.h"

#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QWidget>

CollectionViewItem::CollectionViewItem(ViewFactory makeView, QObject *parent)
    : QObject(parent), m_makeView(std::make_shared<const ViewFactory>(std::move(makeView))) {}

CollectionViewItem::CollectionViewItem(std::shared_ptr<const ViewFactory> makeView)
    : m_makeView(std::move(makeView)) {}

CollectionViewItem::~CollectionViewItem() {
    m_isViewKept = false;
    discardView();
}

std::unique_ptr<CollectionViewItem> CollectionViewItem::copy() const {
    std::unique_ptr<CollectionViewItem> copy(new CollectionViewItem(m_makeView));
    copy->m_nameKeyPath = m_nameKeyPath;
    return copy;
}

void CollectionViewItem::setRepresentedObject(const QVariant &object) {
    m_representedObject = object;
    KeyValue::announce<&CollectionViewItem::representedObjectChanged>(this);
}

void CollectionViewItem::setSelected(bool selected) {
    m_isSelected = selected;
    KeyValue::announce<&CollectionViewItem::selectedChanged>(this);
}

QWidget *CollectionViewItem::view() {
    QWidget *view = makeView();
    m_isViewKept = true;
    return view;
}

QWidget *CollectionViewItem::makeView() {
    if (!m_view) {
        m_view = (*m_makeView)(this);
        if (const auto handler = m_viewHandler.lock()) {
            // A list that lays itself out in the handler must not discard the view.
            const QScopedValueRollback<bool> kept(m_isViewKept, true);
            (*handler)(this);
        }
    }
    return m_view;
}

QWidget *CollectionViewItem::existingView() const {
    return m_view;
}

bool CollectionViewItem::discardView() {
    if (m_isViewKept || !m_view) {
        return false;
    }
    m_view->hide();
    m_view->deleteLater();
    m_view = nullptr;
    return true;
}

QString CollectionViewItem::name() {
    return m_nameKeyPath.isEmpty() || m_view ? makeView()->accessibleName()
                                             : KeyValue::value(this, m_nameKeyPath).toString();
}
