#include "Platform/KeyValue/KeyValue.h"

#include <QtCore/QDateTime>
#include <optional>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Url.h"
#include "Platform/KeyValue/KeyPath.h"

namespace KeyValue {

SplitKeyPath splitKeyPath(const QByteArray &keyPath) {
    const auto point = keyPath.indexOf('.');
    return point < 0 ? SplitKeyPath{keyPath, {}}
                     : SplitKeyPath{keyPath.left(point), keyPath.mid(point + 1)};
}

QMetaProperty requireProperty(const QObject *object, const QByteArray &key) {
    requireParameter(object, "object != nil", "KeyValue", "Platform/KeyValue/KeyValue");
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
    if (type == QMetaType::fromType<Url>()) {
        return value.value<Url>().isNil();
    }
    const bool holdsObject =
        (type.flags() & QMetaType::PointerToQObject) || value.canConvert<QObject *>();
    return holdsObject && objectValue(value) == nullptr;
}

QObject *objectAt(const QObject *object, const QByteArray &key) {
    const QVariant held = requireProperty(object, key).read(object);
    QObject *result = objectValue(held);
    if (!result && !isAbsent(held)) {
        failAssertion(
            QStringLiteral("The key \"%1\" of %2 holds no object but a %3")
                .arg(QString::fromUtf8(key), QLatin1StringView(object->metaObject()->className()),
                     QLatin1StringView(held.typeName())),
            "KeyValue", "Platform/KeyValue/KeyValue");
    }
    return result;
}

QVariant value(const QObject *object, const QByteArray &keyPath) {
    const auto [key, rest] = splitKeyPath(keyPath);
    if (rest.isEmpty()) {
        return requireProperty(object, key).read(object);
    }
    const QObject *next = objectAt(object, key);
    return next ? value(next, rest) : QVariant();
}

void setValue(QObject *object, const QByteArray &keyPath, const QVariant &newValue) {
    const auto [key, rest] = splitKeyPath(keyPath);
    if (!rest.isEmpty()) {
        if (QObject *next = objectAt(object, key)) {
            setValue(next, rest, newValue);
        }
        return;
    }
    const QLatin1StringView className(object ? object->metaObject()->className() : "");
    if (!requireProperty(object, key).write(object, newValue)) {
        failAssertion(
            QStringLiteral("A value of type %1 cannot be set for the key \"%2\" of %3")
                .arg(QLatin1StringView(newValue.typeName()), QString::fromUtf8(key), className),
            "KeyValue::setValue", "Platform/KeyValue/KeyValue");
    }
}

bool isWritable(const QObject *object, const QByteArray &keyPath) {
    const auto [key, rest] = splitKeyPath(keyPath);
    if (rest.isEmpty()) {
        return requireProperty(object, key).isWritable();
    }
    const QObject *next = objectAt(object, key);
    return next && isWritable(next, rest);
}

}  // namespace KeyValue
