#include "Platform/Interface/CollectionViewItem.h"

#include <QtWidgets/QWidget>

CollectionViewItem::CollectionViewItem(ViewFactory makeView, QObject *parent)
    : QObject(parent), m_makeView(std::move(makeView)) {}

CollectionViewItem::~CollectionViewItem() {
    if (m_view) {
        m_view->hide();
        m_view->deleteLater();
    }
}

std::unique_ptr<CollectionViewItem> CollectionViewItem::copy() const {
    return std::make_unique<CollectionViewItem>(m_makeView);
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
    if (!m_view) {
        m_view = m_makeView(this);
    }
    return m_view;
}
