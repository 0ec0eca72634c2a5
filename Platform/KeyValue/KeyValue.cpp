#include "Platform/KeyValue/KeyValue.h"

#include <QtCore/QDateTime>
#include <optional>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/Error.h"
#include "Platform/KeyValue/KeyPath.h"

namespace KeyValue {

SplitKeyPath splitKeyPath(const QByteArray &keyPath) {
    const auto point = keyPath.indexOf('.');
    return point < 0 ? SplitKeyPath{keyPath, {}}
                     : SplitKeyPath{keyPath.left(point), keyPath.mid(point + 1)};
}

QMetaProperty requireProperty(const QObject *object, const QByteArray &key) {
    const QMetaObject *meta = object->metaObject();
    const int index = meta->indexOfProperty(key.constData());
    if (index < 0) {
        failAssertion(QStringLiteral("%1 has no key \"%2\"")
                          .arg(QLatin1StringView(meta->className()), QString::fromUtf8(key)),
                      "KeyValue", "Platform/KeyValue/KeyValue");
    }
    return meta->property(index);
}

QObject *objectValue(const QVariant &value) {
    const QMetaType type = value.metaType();
    if (type.flags() & QMetaType::PointerToQObject) {
        return *static_cast<QObject *const *>(value.constData());
    }
    return value.value<QObject *>();
}

bool isAbsent(const QVariant &value) {
    if (!value.isValid() || value.isNull()) {
        return true;
    }
    const QMetaType type = value.metaType();
    if (type == QMetaType::fromType<std::optional<Error>>()) {
        return !value.value<std::optional<Error>>().has_value();
    }
    if (type == QMetaType::fromType<QDateTime>()) {
        return !value.toDateTime().isValid();
    }
    const bool holdsObject =
        (type.flags() & QMetaType::PointerToQObject) || value.canConvert<QObject *>();
    return holdsObject && objectValue(value) == nullptr;
}

QVariant value(const QObject *object, const QByteArray &keyPath) {
    const auto [key, rest] = splitKeyPath(keyPath);
    const QVariant first = requireProperty(object, key).read(object);
    if (rest.isEmpty()) {
        return first;
    }
    const QObject *next = objectValue(first);
    return next ? value(next, rest) : QVariant();
}

void setValue(QObject *object, const QByteArray &keyPath, const QVariant &newValue) {
    const auto [key, rest] = splitKeyPath(keyPath);
    const QMetaProperty property = requireProperty(object, key);
    if (!rest.isEmpty()) {
        if (QObject *next = objectValue(property.read(object))) {
            setValue(next, rest, newValue);
        }
        return;
    }
    const QVariant typed = newValue.isValid() ? newValue : QVariant(property.metaType());
    if (!property.write(object, typed)) {
        failAssertion(QStringLiteral("A value of type %1 cannot be set for the key \"%2\" of %3")
                          .arg(QLatin1StringView(typed.typeName()), QString::fromUtf8(key),
                               QLatin1StringView(object->metaObject()->className())),
                      "KeyValue::setValue", "Platform/KeyValue/KeyValue");
    }
}

bool isWritable(const QObject *object, const QByteArray &keyPath) {
    const auto [key, rest] = splitKeyPath(keyPath);
    const QMetaProperty property = requireProperty(object, key);
    if (rest.isEmpty()) {
        return property.isWritable();
    }
    const QObject *next = objectValue(property.read(object));
    return next && isWritable(next, rest);
}

}  // namespace KeyValue
