#include "Platform/Foundation/UserDefaults.h"

#include <QtCore/QSettings>

namespace UserDefaults {

bool boolForKey(const QString &key) {
    return QSettings().value(key).toBool();
}

int integerForKey(const QString &key) {
    return QSettings().value(key).toInt();
}

bool contains(const QString &key) {
    return QSettings().contains(key);
}

void setValue(const QString &key, const QVariant &value) {
    QSettings().setValue(key, value);
}

void remove(const QString &key) {
    QSettings().remove(key);
}

}  // namespace UserDefaults
