#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantList>

#include "Platform/KeyValue/IndexSet.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/SortDescriptor.h"

/// Sorts the objects of a list for a view and holds which of them are selected.
///
/// Not thread-safe: use an instance from one thread. It stores its content by value, so shared
/// pointers in the content keep their objects alive and raw pointers must outlive it. What a setter
/// announces, it announces before it returns; an observer may call any setter again or delete the
/// controller. Objects are compared with QVariant's operator==, so restoring a selection of k
/// objects in n takes O(k n).
class PLATFORM_EXPORT ArrayController : public QObject {
    Q_OBJECT
    /// The objects, in any order. Setting it keeps those objects selected that are still in the
    /// list. It announces "content", "arrangedObjects" and then "selectionIndexes", even if the
    /// selection is equal, because a view that rebuilds its rows loses its own selection without a
    /// signal.
    Q_PROPERTY(QVariantList content READ content WRITE setContent NOTIFY contentChanged)
    /// The content sorted by the sort descriptors; without descriptors, the list that was set.
    /// Computed when the content or the descriptors are set, not when an object changes.
    Q_PROPERTY(QVariantList arrangedObjects READ arrangedObjects NOTIFY arrangedObjectsChanged)
    /// The first descriptor that distinguishes two objects determines their order. Setting them
    /// keeps the same objects selected and announces like `content`.
    Q_PROPERTY(QList<SortDescriptor> sortDescriptors READ sortDescriptors WRITE setSortDescriptors
                   NOTIFY sortDescriptorsChanged)
    /// Positions in the arranged objects. Positions out of range are ignored. Setting an equal set
    /// neither changes nor announces anything, which ends the loop of a two-way binding.
    Q_PROPERTY(IndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY
                   selectionIndexesChanged)
    /// The selected objects, in arranged order.
    Q_PROPERTY(QVariantList selectedObjects READ selectedObjects NOTIFY selectedObjectsChanged)
    /// The last of the selected objects in arranged order; invalid if none is selected.
    Q_PROPERTY(QVariant lastSelectedObject READ lastSelectedObject NOTIFY lastSelectedObjectChanged)

public:
    using QObject::QObject;

    QVariantList content() const { return m_content; }
    /// See the property. The content is copied; a caller that changes its own list must set it
    /// again.
    void setContent(const QVariantList &content);
    QVariantList arrangedObjects() const { return m_arrangedObjects; }
    QList<SortDescriptor> sortDescriptors() const { return m_sortDescriptors; }
    /// See the property. Empty descriptors show the content in its own order.
    void setSortDescriptors(const QList<SortDescriptor> &descriptors);
    IndexSet selectionIndexes() const { return m_selectionIndexes; }
    /// See the property.
    void setSelectionIndexes(const IndexSet &indexes);
    /// Computed at each call.
    QVariantList selectedObjects() const;
    QVariant lastSelectedObject() const;

    /// Dependencies of the derived keys, read by KeyValue.
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
    /// Emitted as the properties say, each also when one that it depends on is announced.
    void contentChanged();
    void arrangedObjectsChanged();
    void sortDescriptorsChanged();
    void selectionIndexesChanged();
    void selectedObjectsChanged();
    void lastSelectedObjectChanged();

private:
    /// Sorts the content and moves the selection to the new positions of the selected objects.
    /// Announces nothing.
    void rearrange();
    void announceSelection();

    QVariantList m_content;
    QVariantList m_arrangedObjects;
    QList<SortDescriptor> m_sortDescriptors;
    IndexSet m_selectionIndexes;
};
