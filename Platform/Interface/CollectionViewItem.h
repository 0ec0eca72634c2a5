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
class PLATFORM_EXPORT CollectionViewItem : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariant representedObject READ representedObject WRITE setRepresentedObject NOTIFY
                   representedObjectChanged)
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectedChanged)
public:
    /// Makes the view of `item`, without a parent. Never answers nullptr.
    using ViewFactory = std::function<QWidget *(CollectionViewItem *item)>;

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

Q_SIGNALS:
    void representedObjectChanged();
    void selectedChanged();

private:
    const ViewFactory m_makeView;
    QPointer<QWidget> m_view;
    QVariant m_representedObject;
    bool m_isSelected = false;
};
