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
    KeyValue::announce<&CollectionViewItem::representedObjectChanged>(this);
}

void CollectionViewItem::setSelected(bool selected) {
    m_isSelected = selected;
    KeyValue::announce<&CollectionViewItem::selectedChanged>(this);
}

QWidget *CollectionViewItem::view() {
    if (!m_view) {
        m_view = (*m_makeView)(this);
        if (const auto handler = m_viewHandler.lock()) {
            (*handler)(this);
        }
    }
    return m_view;
}
