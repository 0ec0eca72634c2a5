#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <functional>
#include <memory>

#include "Platform/KeyValue/KeyValue.h"

class QWidget;

/// One item of a list: an object, whether it is selected, and the view that shows it.
/// Main thread. The item owns its view until the view gets a parent, and deletes it in any case
/// when it goes: later, from the event loop, because the item may go while its view handles an
/// event.
///
/// A view can pass from one item to the next that shows the same object. What it observes is
/// therefore not the item itself but another one, its model, which goes with the view and follows
/// the item that has it.
class PLATFORM_EXPORT CollectionViewItem : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariant representedObject READ representedObject WRITE setRepresentedObject NOTIFY
                   representedObjectChanged)
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectedChanged)
public:
    /// Makes a view, without a parent, that observes `model` and does not write to it. Never
    /// returns nullptr. `model` lives as long as an item has the view.
    using ViewFactory = std::function<QWidget *(CollectionViewItem *model)>;

    explicit CollectionViewItem(ViewFactory makeView, QObject *parent = nullptr);
    ~CollectionViewItem() override;

    /// A new item that makes its view as this one does; nothing is represented or selected in it.
    std::unique_ptr<CollectionViewItem> copy() const;

    QVariant representedObject() const { return m_representedObject; }
    void setRepresentedObject(const QVariant &object);
    bool isSelected() const { return m_isSelected; }
    void setSelected(bool selected);
    /// Made when first asked for.
    QWidget *view();
    /// What the view observes; nullptr before the view is made.
    CollectionViewItem *model() const { return m_model.get(); }
    /// Takes the view of `other`, with its model, if this item has none, represents an equal object
    /// and is a copy of the same item. Returns whether it did; `other` then has no view.
    bool takeView(CollectionViewItem *other);

Q_SIGNALS:
    void representedObjectChanged();
    void selectedChanged();

private:
    explicit CollectionViewItem(std::shared_ptr<const ViewFactory> makeView);

    /// Shared by all copies.
    const std::shared_ptr<const ViewFactory> m_makeView;
    QPointer<QWidget> m_view;
    std::unique_ptr<CollectionViewItem> m_model;
    QVariant m_representedObject;
    bool m_isSelected = false;
};
