#include "Controller/QVBinding.h"

#include "Host/SyncLog.h"

std::shared_ptr<QVBinding> QVBinding::bindingWithObject(const BoundObject &object,
                                                        const QByteArray &key,
                                                        const BoundObject &target,
                                                        const QByteArray &keyPath,
                                                        const QVariantMap &options) {
    return std::shared_ptr<QVBinding>(new QVBinding(object, key, target, keyPath, options));
}

QVBinding::QVBinding(const BoundObject &object, const QByteArray &key, const BoundObject &target,
                     const QByteArray &keyPath, const QVariantMap &options)
    : m_object(object), m_target(target), m_key(key), m_keyPath(keyPath), m_options(options) {}

QVBinding::~QVBinding() {
    syncLog().verbose(
        QStringLiteral("%1 deallocated.").arg(QLatin1StringView(staticMetaObject.className())));
}

void QVBinding::bind() {
    if (!object() || !target()) {
        return;
    }
    KeyValue::setValue(object(), m_key, KeyValue::value(target(), m_keyPath));
    m_observation = KeyValue::observe(object(), m_key, [this] { observeValue(); });
}

void QVBinding::unbind() {
    m_observation.stop();
}

void QVBinding::observeValue() const {
    if (!target()) {
        return;
    }
    // Copied: the model may unbind the view while it receives the value, which destroys this
    // record.
    const QByteArray keyPath = m_keyPath;
    KeyValue::setValue(target(), keyPath, KeyValue::value(object(), m_key));
}
