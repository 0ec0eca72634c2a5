#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantList>

#include "Platform/KeyValue/IndexSet.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/SortDescriptor.h"

/// Orders the objects of a list for a view and holds which of them are selected.
/// Used from one thread. Holds its content by value: shared pointers in it keep their objects
/// alive.
class PLATFORM_EXPORT ArrayController : public QObject {
    Q_OBJECT
    /// The objects, in any order. Setting it keeps the selection on the same objects as far as they
    /// are still there, and announces "selectionIndexes" after "arrangedObjects", equal or not,
    /// because a view that rebuilds itself loses its selection without a word.
    Q_PROPERTY(QVariantList content READ content WRITE setContent NOTIFY contentChanged)
    /// The content in the order of the sort descriptors; the very list that was set where there are
    /// none.
    Q_PROPERTY(QVariantList arrangedObjects READ arrangedObjects NOTIFY arrangedObjectsChanged)
    Q_PROPERTY(QList<SortDescriptor> sortDescriptors READ sortDescriptors WRITE setSortDescriptors
                   NOTIFY sortDescriptorsChanged)
    /// Positions in the arranged objects; positions past the end are left out. Setting an equal set
    /// does nothing at all, which ends the loop of a two-way binding.
    Q_PROPERTY(IndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY
                   selectionIndexesChanged)
    /// The selected objects, in arranged order.
    Q_PROPERTY(QVariantList selectedObjects READ selectedObjects NOTIFY selectedObjectsChanged)
    /// The last of the selected objects; invalid where none is.
    Q_PROPERTY(QVariant lastSelectedObject READ lastSelectedObject NOTIFY lastSelectedObjectChanged)

public:
    using QObject::QObject;

    QVariantList content() const { return m_content; }
    void setContent(const QVariantList &content);
    QVariantList arrangedObjects() const { return m_arrangedObjects; }
    QList<SortDescriptor> sortDescriptors() const { return m_sortDescriptors; }
    void setSortDescriptors(const QList<SortDescriptor> &descriptors);
    IndexSet selectionIndexes() const { return m_selectionIndexes; }
    void setSelectionIndexes(const IndexSet &indexes);
    QVariantList selectedObjects() const;
    QVariant lastSelectedObject() const;

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingArrangedObjects() {
        return {"content", "sortDescriptors"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingSelectedObjects() {
        return {"selectionIndexes"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingLastSelectedObject() {
        return {"selectedObjects"};
    }

Q_SIGNALS:
    void contentChanged();
    void arrangedObjectsChanged();
    void sortDescriptorsChanged();
    void selectionIndexesChanged();
    void selectedObjectsChanged();
    void lastSelectedObjectChanged();

private:
    void rearrange();
    void announceSelection();

    QVariantList m_content;
    QVariantList m_arrangedObjects;
    QList<SortDescriptor> m_sortDescriptors;
    IndexSet m_selectionIndexes;
};
