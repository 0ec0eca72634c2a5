#include "Application/CountText.h"

#include <QtCore/QCoreApplication>

#include "Platform/Foundation/Localization.h"

QString translateCount(const char *context, const char *key, const char *one, qint64 count) {
    const QString text = QCoreApplication::translate(context, key, nullptr, pluralCount(count));
    const bool isEnglish = text == QString::fromUtf8(key);
    return isEnglish && count == 1 && one ? QString::fromUtf8(one) : text;
}
