#include "Platform/KeyValue/Binding.h"

#include <QtCore/QPointer>
#include <QtCore/QScopeGuard>

#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/KeyValue/ValueTransformer.h"

namespace KeyValue {

namespace {

/// One binding. Owned by its target.
class Binding : public QObject {
public:
    Binding(QObject *target, const QByteArray &key, QObject *observed, const QByteArray &keyPath,
            const QVariantMap &options)
        : QObject(target),
          m_key(key),
          m_observed(observed),
          m_keyPath(keyPath),
          m_transformerName(
              options.value(QLatin1StringView(valueTransformerNameOption)).toString()) {}

    const QByteArray &key() const { return m_key; }

    void begin(Direction direction) {
        if (direction == Direction::BothWays) {
            requireParameter(m_transformerName.isEmpty(), "a transformed value is not written back",
                             "KeyValue::bind", "Platform/KeyValue/Binding");
            m_targetObservation = observe(parent(), m_key, [this] { writeToModel(); });
        }
        m_modelObservation = observe(m_observed, m_keyPath, [this] { followModel(); });
        showModel();
    }

private:
    /// Sets a flag until the end of the scope. The binding may be destroyed before that.
    auto raise(bool Binding::*flag) {
        return qScopeGuard(
            [alive = QPointer(this), flag, before = std::exchange(this->*flag, true)] {
                if (alive) {
                    alive->*flag = before;
                }
            });
    }

    QVariant modelValue() const {
        const QVariant model = value(m_observed, m_keyPath);
        return m_transformerName.isEmpty() ? model
                                           : ValueTransformer::transformerForName(m_transformerName)
                                                 ->transformedValue(model);
    }

    bool isModelShown() const {
        const QVariant shown = value(parent(), m_key);
        QVariant model = modelValue();
        model.convert(shown.metaType());
        return model == shown;
    }

    void followModel() {
        if (m_observed && !m_isWriting) {
            showModel();
        }
    }

    void showModel() {
        const auto guard = raise(&Binding::m_isShowing);
        setValue(parent(), m_key, modelValue());
    }

    void writeToModel() {
        if (m_isShowing || !m_observed || isModelShown()) {
            return;
        }
        const QPointer<Binding> alive(this);
        {
            const auto guard = raise(&Binding::m_isWriting);
            setValue(m_observed, m_keyPath, value(parent(), m_key));
        }
        if (alive && m_observed && !isModelShown()) {
            showModel();
        }
    }

    const QByteArray m_key;
    const QPointer<QObject> m_observed;
    const QByteArray m_keyPath;
    const QString m_transformerName;
    bool m_isShowing = false;
    bool m_isWriting = false;
    Observation m_targetObservation;
    Observation m_modelObservation;
};

}  // namespace

void bind(QObject *target, const QByteArray &key, QObject *observed, const QByteArray &keyPath,
          const QVariantMap &options, Direction direction) {
    const QPointer<Binding> binding = new Binding(target, key, observed, keyPath, options);
    auto cancel = qScopeGuard([&] { delete binding; });
    binding->begin(direction);
    cancel.dismiss();
}

void unbind(QObject *target, const QByteArray &key) {
    QList<Binding *> ended;
    for (QObject *child : target->children()) {
        if (auto *binding = dynamic_cast<Binding *>(child); binding && binding->key() == key) {
            ended.append(binding);
        }
    }
    qDeleteAll(ended);
}

}  // namespace KeyValue
