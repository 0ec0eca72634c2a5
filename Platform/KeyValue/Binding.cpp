#include "Platform/KeyValue/Binding.h"

#include <QtCore/QPointer>
#include <QtCore/QScopedValueRollback>

#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/ValueTransformer.h"

namespace KeyValue {

namespace {

/// One binding; a child of its target.
class Binding : public QObject {
public:
    Binding(QObject *target, const QByteArray &key, QObject *observed, const QByteArray &keyPath,
            const QVariantMap &options)
        : QObject(target), m_key(key), m_observed(observed), m_keyPath(keyPath) {
        if (const QString name =
                options.value(QLatin1StringView(valueTransformerNameOption)).toString();
            !name.isEmpty()) {
            m_transformer = ValueTransformer::transformerForName(name);
        }
    }

    const QByteArray &key() const { return m_key; }

    void begin(Direction direction) {
        if (direction == Direction::BothWays) {
            m_targetObservation = observe(parent(), m_key, [this] { writeToModel(); });
        }
        m_modelObservation = observe(
            m_observed, m_keyPath, [this] { showModel(); }, Deliver::InitialAndChanges);
    }

private:
    QVariant modelValue() const {
        const QVariant model = value(m_observed, m_keyPath);
        return m_transformer ? m_transformer->transformedValue(model) : model;
    }

    void showModel() {
        if (!m_observed) {
            return;
        }
        const QPointer<Binding> alive(this);
        m_isShowing = true;
        setValue(parent(), m_key, modelValue());
        if (alive) {
            m_isShowing = false;
        }
    }

    void writeToModel() {
        if (m_isShowing || !m_observed) {
            return;
        }
        const QPointer<Binding> alive(this);
        setValue(m_observed, m_keyPath, value(parent(), m_key));
        if (alive && m_observed && modelValue() != value(parent(), m_key)) {
            showModel();
        }
    }

    const QByteArray m_key;
    const QPointer<QObject> m_observed;
    const QByteArray m_keyPath;
    const ValueTransformer *m_transformer = nullptr;
    bool m_isShowing = false;
    Observation m_targetObservation;
    Observation m_modelObservation;
};

}  // namespace

void bind(QObject *target, const QByteArray &key, QObject *observed, const QByteArray &keyPath,
          const QVariantMap &options, Direction direction) {
    (new Binding(target, key, observed, keyPath, options))->begin(direction);
}

void unbind(QObject *target, const QByteArray &key) {
    const QObjectList children = target->children();
    for (QObject *child : children) {
        if (auto *binding = dynamic_cast<Binding *>(child); binding && binding->key() == key) {
            delete binding;
        }
    }
}

}  // namespace KeyValue
