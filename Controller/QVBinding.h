#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <memory>

#include "Controller/BoundObject.h"
#include "Platform/Interface/ViewBinding.h"
#include "Platform/KeyValue/KeyValue.h"

/// The record of a binding that carries a view's own changes back to the model: it observes one
/// property of the view and writes each value that is set there into the model.
///
/// Main thread. A record keeps its object and its target alive until it is destroyed if they are
/// given as shared pointers. What is given as a plain pointer belongs to someone else, as a form
/// owns its views and controllers; the record stops writing when one of those is deleted. The view
/// holds its records until it is unbound.
class QVBinding : public QObject, public ViewBinding {
    Q_OBJECT
public:
    /// A new record, which does not observe yet. `key` is the bound property of `object`, `keyPath`
    /// what it is bound to within `target`. The options are stored and never interpreted.
    static std::shared_ptr<QVBinding> bindingWithObject(const BoundObject &object,
                                                        const QByteArray &key,
                                                        const BoundObject &target,
                                                        const QByteArray &keyPath,
                                                        const QVariantMap &options);
    /// Logs, verbosely, that the record is gone.
    ~QVBinding() override;

    /// Null if it was only guarded and is gone.
    QObject *object() const { return m_object.get(); }
    QObject *target() const { return m_target.get(); }
    QByteArray key() const override { return m_key; }
    QByteArray keyPath() const { return m_keyPath; }
    QVariantMap options() const { return m_options; }

    /// Gives the object the target's value, and from then on writes what is set in the object to
    /// the target.
    void bind() override;
    /// Ends the writing. The fields stay as they are, so that `bind` may be called again.
    void unbind() override;

private:
    QVBinding(const BoundObject &object, const QByteArray &key, const BoundObject &target,
              const QByteArray &keyPath, const QVariantMap &options);
    void observeValue() const;

    const BoundObject m_object;
    const BoundObject m_target;
    const QByteArray m_key;
    const QByteArray m_keyPath;
    const QVariantMap m_options;
    KeyValue::Observation m_observation;
};
