#pragma once

#include <QtCore/QByteArray>
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
/// A list of many items has views for those only that can be seen: makeView() makes a view that
/// discardView() may delete, as long as view() has not been called.
class PLATFORM_EXPORT CollectionViewItem : public QObject {
    Q_OBJECT
    /// The object that the item shows; a shared pointer in it keeps the object alive. Announced
    /// each time it is set, equal or not.
    Q_PROPERTY(QVariant representedObject READ representedObject WRITE setRepresentedObject NOTIFY
                   representedObjectChanged)
    /// Whether the item is selected. Announced each time it is set, equal or not.
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectedChanged)
public:
    /// Returns a new view of `item`, without a parent. Must not return null.
    using ViewFactory = std::function<QWidget *(CollectionViewItem *item)>;

    /// Called with an item that has just made its view.
    using ViewHandler = std::function<void(CollectionViewItem *item)>;

    /// `makeView` must not be empty; it is shared with all copies and called on the main thread.
    /// Makes no view yet.
    explicit CollectionViewItem(ViewFactory makeView, QObject *parent = nullptr);
    ~CollectionViewItem() override;

    /// Returns a new item with the same view factory, without a represented object, not selected.
    /// Does not make a view.
    std::unique_ptr<CollectionViewItem> copy() const;

    QVariant representedObject() const { return m_representedObject; }
    /// Observers are notified within this call, and may destroy the item.
    void setRepresentedObject(const QVariant &object);
    bool isSelected() const { return m_isSelected; }
    void setSelected(bool selected);
    /// Returns the view, which the first call makes, and keeps it until the item is destroyed.
    /// Never null. Owned by the item. An exception of the factory passes to the caller, and the
    /// next call tries again.
    QWidget *view();
    /// As view(), but discardView() may delete the view again. For the list that shows the item.
    QWidget *makeView();
    /// Returns the view, or null if there is none yet. Owned by the item.
    QWidget *existingView() const;
    /// Hides the view and deletes it from the event loop, as the destructor does. Returns false
    /// without effect if view() was called, or if there is no view.
    bool discardView();
    /// Returns what is equal for all items whose views are made by the same factory. Not a pointer
    /// to follow.
    const void *viewKind() const { return m_makeView.get(); }
    /// Returns the name of the object for assistive technologies and typing: the value at the key
    /// path that was set or, without one, the accessible name of the view, which is made if needed.
    QString name();
    /// Sets the key path of the name, which begins at the item: "representedObject.name". Copies
    /// have it, too. A name that can be read without a view is found fast in a long list.
    void setNameKeyPath(const QByteArray &keyPath) { m_nameKeyPath = keyPath; }
    /// Sets what a call of view() that makes the view calls before it returns. Not owned, so that
    /// many items can share one handler; has no effect once it is destroyed.
    void setViewHandler(const std::weak_ptr<const ViewHandler> &handler) {
        m_viewHandler = handler;
    }

Q_SIGNALS:
    /// Emitted each time the value is set.
    void representedObjectChanged();
    void selectedChanged();

private:
    explicit CollectionViewItem(std::shared_ptr<const ViewFactory> makeView);

    /// Shared by all copies.
    const std::shared_ptr<const ViewFactory> m_makeView;
    std::weak_ptr<const ViewHandler> m_viewHandler;
    QPointer<QWidget> m_view;
    QByteArray m_nameKeyPath;
    QVariant m_representedObject;
    bool m_isSelected = false;
    /// Whether view() was called, whose callers may keep the pointer.
    bool m_isViewKept = false;
};
