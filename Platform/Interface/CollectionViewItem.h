#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <functional>
#include <memory>

#include "Platform/KeyValue/KeyValue.h"

class QWidget;

/// One item of a list: an object, whether it is selected, and the view that shows it.
///
/// Must be used on the main thread. The item owns its view, even after the view gets a parent. Its
/// destructor hides the view and deletes it from the event loop, because an item may be destroyed
/// while its view handles an event. If a parent has deleted the view before, the next call of
/// view() makes a new one.
///
/// A view can be passed to another item that shows the same object. Therefore it does not observe
/// the item, but a second one, its model, which belongs to the view and follows the item that has
/// the view.
class PLATFORM_EXPORT CollectionViewItem : public QObject {
    Q_OBJECT
    /// The object that the item shows; a shared pointer in it keeps the object alive. Announced
    /// each time it is set, equal or not.
    Q_PROPERTY(QVariant representedObject READ representedObject WRITE setRepresentedObject NOTIFY
                   representedObjectChanged)
    /// Whether the item is selected. Announced each time it is set, equal or not.
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectedChanged)
public:
    /// Returns a new view, without a parent, that observes `model` and does not write to it. Must
    /// not return null. `model` exists as long as an item has the view.
    using ViewFactory = std::function<QWidget *(CollectionViewItem *model)>;

    explicit CollectionViewItem(ViewFactory makeView, QObject *parent = nullptr);
    ~CollectionViewItem() override;

    /// Returns a new item with the same view factory, without a represented object, not selected.
    /// Does not make a view.
    std::unique_ptr<CollectionViewItem> copy() const;

    QVariant representedObject() const { return m_representedObject; }
    void setRepresentedObject(const QVariant &object);
    bool isSelected() const { return m_isSelected; }
    void setSelected(bool selected);
    /// Returns the view, which the first call makes. Never null. Owned by the item.
    QWidget *view();
    /// Returns the model that the view observes; null before the view is made. Owned by the item.
    CollectionViewItem *model() const { return m_model.get(); }
    /// Takes the view of `other`, with its model, if this item has none, represents an equal object
    /// and is a copy of the same prototype. Returns whether it did; `other`, which must not be
    /// null, then has no view.
    bool takeView(CollectionViewItem *other);

Q_SIGNALS:
    void representedObjectChanged();
    void selectedChanged();

private:
    explicit CollectionViewItem(std::shared_ptr<const ViewFactory> makeView);

    /// Shared by all copies.
    const std::shared_ptr<const ViewFactory> m_makeView;
    QPointer<QWidget> m_view;
    /// Null before the view is made.
    std::unique_ptr<CollectionViewItem> m_model;
    QVariant m_representedObject;
    bool m_isSelected = false;
};
