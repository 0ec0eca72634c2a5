#include "Platform/KeyValue/ValueTransformer.h"

#include <map>

#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/KeyValue.h"

namespace {

class BooleanTransformer : public ValueTransformer {
public:
    explicit BooleanTransformer(bool (*function)(const QVariant &)) : m_function(function) {}
    QMetaType transformedValueClass() const override { return QMetaType::fromType<bool>(); }
    QVariant transformedValue(const QVariant &value) const override { return m_function(value); }

private:
    bool (*m_function)(const QVariant &);
};

using Transformers = std::map<QString, std::unique_ptr<ValueTransformer>>;

Transformers makeBuiltInTransformers() {
    Transformers result;
    result[QStringLiteral("NSIsNil")] = std::make_unique<BooleanTransformer>(&KeyValue::isAbsent);
    result[QStringLiteral("NSIsNotNil")] = std::make_unique<BooleanTransformer>(
        [](const QVariant &value) { return !KeyValue::isAbsent(value); });
    result[QStringLiteral("NSNegateBoolean")] =
        std::make_unique<BooleanTransformer>([](const QVariant &value) { return !value.toBool(); });
    return result;
}

Transformers &transformers() {
    static Transformers all = makeBuiltInTransformers();
    return all;
}

}  // namespace

ValueTransformer::~ValueTransformer() = default;

void ValueTransformer::setTransformerForName(std::unique_ptr<ValueTransformer> transformer,
                                             const QString &name) {
    transformers()[name] = std::move(transformer);
}

const ValueTransformer *ValueTransformer::transformerForName(const QString &name) {
    const auto found = transformers().find(name);
    if (found == transformers().end()) {
        failAssertion(QStringLiteral("No value transformer is named \"%1\"").arg(name),
                      "ValueTransformer::transformerForName", "Platform/KeyValue/ValueTransformer");
    }
    return found->second.get();
}
