#include "Controller/QVBinding.h"

#include "Platform/Foundation/Log.h"

std::shared_ptr<QVBinding> QVBinding::bindingWithObject(QObject *object, const QByteArray &key,
                                                        QObject *target, const QByteArray &keyPath,
                                                        const QVariantMap &options) {
    return std::shared_ptr<QVBinding>(new QVBinding(object, key, target, keyPath, options));
}

QVBinding::QVBinding(QObject *object, const QByteArray &key, QObject *target,
                     const QByteArray &keyPath, const QVariantMap &options)
    : m_object(object), m_target(target), m_key(key), m_keyPath(keyPath), m_options(options) {}

QVBinding::~QVBinding() {
    Log::verbose(
        QStringLiteral("%1 deallocated.").arg(QLatin1StringView(staticMetaObject.className())));
}

void QVBinding::bind() {
    if (!m_object || !m_target) {
        return;
    }
    KeyValue::setValue(m_object, m_key, KeyValue::value(m_target, m_keyPath));
    m_observation = KeyValue::observe(m_object, m_key, [this] { observeValue(); });
}

void QVBinding::unbind() {
    m_observation.stop();
}

void QVBinding::observeValue() const {
    if (!m_target) {
        return;
    }
    // The model may unbind the view while it takes the value, which ends this record.
    const QByteArray keyPath = m_keyPath;
    KeyValue::setValue(m_target, keyPath, KeyValue::value(m_object, m_key));
}
