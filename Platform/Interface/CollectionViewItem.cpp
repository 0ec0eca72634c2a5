#include "Platform/Interface/CollectionViewItem.h"

#include <QtWidgets/QWidget>

CollectionViewItem::CollectionViewItem(ViewFactory makeView, QObject *parent)
    : QObject(parent), m_makeView(std::make_shared<const ViewFactory>(std::move(makeView))) {}

CollectionViewItem::CollectionViewItem(std::shared_ptr<const ViewFactory> makeView)
    : m_makeView(std::move(makeView)) {}

CollectionViewItem::~CollectionViewItem() {
    if (m_view) {
        m_view->hide();
        m_view->deleteLater();
    }
}

std::unique_ptr<CollectionViewItem> CollectionViewItem::copy() const {
    return std::unique_ptr<CollectionViewItem>(new CollectionViewItem(m_makeView));
}

void CollectionViewItem::setRepresentedObject(const QVariant &object) {
    m_representedObject = object;
    if (m_model) {
        m_model->setRepresentedObject(object);
    }
    KeyValue::announce<&CollectionViewItem::representedObjectChanged>(this);
}

void CollectionViewItem::setSelected(bool selected) {
    m_isSelected = selected;
    if (m_model) {
        m_model->setSelected(selected);
    }
    KeyValue::announce<&CollectionViewItem::selectedChanged>(this);
}

QWidget *CollectionViewItem::view() {
    if (!m_view) {
        m_model = copy();
        m_model->m_representedObject = m_representedObject;
        m_model->m_isSelected = m_isSelected;
        m_view = (*m_makeView)(m_model.get());
    }
    return m_view;
}

bool CollectionViewItem::takeView(CollectionViewItem *other) {
    if (m_view || !other->m_view || m_makeView != other->m_makeView ||
        m_representedObject != other->m_representedObject) {
        return false;
    }
    m_view = std::exchange(other->m_view, nullptr);
    m_model = std::move(other->m_model);
    if (m_model->isSelected() != m_isSelected) {
        m_model->setSelected(m_isSelected);
    }
    return true;
}
