#include "Platform/KeyValue/ArrayController.h"

#include <QtCore/QPointer>

void ArrayController::setContent(const QVariantList &content) {
    m_content = content;
    rearrange();
    const QPointer<ArrayController> alive(this);
    KeyValue::announce<&ArrayController::contentChanged>(this);
    if (alive) {
        announceSelection();
    }
}

void ArrayController::setSortDescriptors(const QList<SortDescriptor> &descriptors) {
    m_sortDescriptors = descriptors;
    rearrange();
    const QPointer<ArrayController> alive(this);
    KeyValue::announce<&ArrayController::sortDescriptorsChanged>(this);
    if (alive) {
        announceSelection();
    }
}

void ArrayController::setSelectionIndexes(const IndexSet &indexes) {
    IndexSet valid;
    for (const qsizetype index : indexes) {
        if (index >= 0 && index < m_arrangedObjects.size()) {
            valid.insert(index);
        }
    }
    if (valid == m_selectionIndexes) {
        return;
    }
    m_selectionIndexes = std::move(valid);
    announceSelection();
}

QVariantList ArrayController::selectedObjects() const {
    QVariantList result;
    for (const qsizetype index : m_selectionIndexes) {
        result.append(m_arrangedObjects.at(index));
    }
    return result;
}

QVariant ArrayController::lastSelectedObject() const {
    const QVariantList selected = selectedObjects();
    return selected.isEmpty() ? QVariant() : selected.last();
}

void ArrayController::rearrange() {
    const QVariantList selected = selectedObjects();
    m_arrangedObjects = m_sortDescriptors.isEmpty()
                            ? m_content
                            : sortedUsingDescriptors(m_content, m_sortDescriptors);
    m_selectionIndexes.clear();
    for (const QVariant &object : selected) {
        if (const qsizetype index = m_arrangedObjects.indexOf(object); index >= 0) {
            m_selectionIndexes.insert(index);
        }
    }
}

void ArrayController::announceSelection() {
    KeyValue::announce<&ArrayController::selectionIndexesChanged>(this);
}
