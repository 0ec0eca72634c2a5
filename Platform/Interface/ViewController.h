#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVariant>

#include "Platform/KeyValue/KeyValue.h"

class QWidget;

/// Controls one view, loaded from a form, that shows one object. Must be used on the main thread.
class PLATFORM_EXPORT ViewController : public QObject {
    Q_OBJECT
    /// The object that the view shows; a shared pointer in it keeps the object alive. Announced
    /// each time it is set, equal or not.
    Q_PROPERTY(QVariant representedObject READ representedObject WRITE setRepresentedObject NOTIFY
                   representedObjectChanged)
public:
    /// `nibName` is the name of a form registered with Nib. The form is not loaded yet.
    explicit ViewController(const QString &nibName, QObject *parent = nullptr);
    /// Deletes the view immediately, even if it has a parent.
    ~ViewController() override;

    QVariant representedObject() const { return m_representedObject; }
    /// Accepts any value; what the form binds to it must fit. Observers are notified within this
    /// call.
    void setRepresentedObject(const QVariant &object);
    /// Returns the view, which the first call loads with this controller as the form's owner. Never
    /// null. The controller owns it; the caller may give it a parent, which may delete it first,
    /// and then the next call loads a new one. Raises an AssertionFailure if the form cannot be
    /// loaded.
    QWidget *view();

Q_SIGNALS:
    /// Emitted each time the object is set.
    void representedObjectChanged();

private:
    const QString m_nibName;
    /// Null until it is loaded and after a parent has deleted it.
    QPointer<QWidget> m_view;
    QVariant m_representedObject;
};
