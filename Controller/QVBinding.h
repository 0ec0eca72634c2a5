#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <memory>

#include "Controller/BoundObject.h"
#include "Platform/Interface/ViewBinding.h"
#include "Platform/KeyValue/KeyValue.h"

/// The record of a binding that writes a view's own changes to the model: it observes one property
/// of the view and writes each value that is set there to the model.
///
/// Must be used on the main thread. A record keeps the view and the model alive if they are given
/// as shared pointers. Objects given as plain pointers are not owned (a form owns its views and
/// controllers); the record does nothing once one of them is destroyed. The view holds its records
/// until they are unbound.
class QVBinding : public QObject, public ViewBinding {
    Q_OBJECT
public:
    /// Returns a new record, which does not observe anything yet; never null. It binds the property
    /// `key` of `object` to `keyPath` of `target`. Null objects are accepted: bind() then has no
    /// effect. The options are stored and never interpreted.
    static std::shared_ptr<QVBinding> bindingWithObject(const BoundObject &object,
                                                        const QByteArray &key,
                                                        const BoundObject &target,
                                                        const QByteArray &keyPath,
                                                        const QVariantMap &options);
    /// Stops writing and logs, verbosely, that the record was destroyed. The view and the model
    /// keep their values.
    ~QVBinding() override;

    /// Returns the view; null once it is destroyed.
    QObject *object() const { return m_object.get(); }
    /// Returns the model object; null once it is destroyed.
    QObject *target() const { return m_target.get(); }
    QByteArray key() const override { return m_key; }
    /// These return what the record was created with.
    QByteArray keyPath() const { return m_keyPath; }
    QVariantMap options() const { return m_options; }

    /// Sets the view's property to the model's value and from then on writes each value set in the
    /// view to the model, equal values included. Changes of the model do not reach the view by this
    /// record. Calling it again replaces the observation. Raises an AssertionFailure if a key does
    /// not exist. An exception that the model's setter throws passes through the setter of the
    /// view.
    void bind() override;
    /// Stops writing at once, also when it is called from within a write. Idempotent; bind() may be
    /// called again. A model may call it while it receives a value.
    void unbind() override;

private:
    QVBinding(const BoundObject &object, const QByteArray &key, const BoundObject &target,
              const QByteArray &keyPath, const QVariantMap &options);
    /// Writes the view's value to the model.
    void observeValue() const;

    const BoundObject m_object;
    const BoundObject m_target;
    const QByteArray m_key;
    const QByteArray m_keyPath;
    const QVariantMap m_options;
    /// Active while bound.
    KeyValue::Observation m_observation;
};
