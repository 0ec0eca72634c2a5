#include "Platform/Foundation/Localization.h"

#include <QtCore/QHash>
#include <QtCore/QReadWriteLock>
#include <QtCore/QTranslator>

namespace {

struct Tables {
    QReadWriteLock lock;
    QHash<QByteArray, const QTranslator *> translators;
};

Tables &tables() {
    static Tables all;
    return all;
}

}  // namespace

QString localizedString(const char *table, const char *key) {
    const QReadLocker lock(&tables().lock);
    const auto length = static_cast<qsizetype>(qstrlen(table));
    const QTranslator *translator =
        tables().translators.value(QByteArray::fromRawData(table, length));
    const QString text = translator ? translator->translate(table, key) : QString();
    return text.isEmpty() ? QString::fromUtf8(key) : text;
}

void setLocalizationTable(const QByteArray &table, const QTranslator *translator) {
    const QWriteLocker lock(&tables().lock);
    tables().translators.insert(table, translator);
}

void removeLocalizationTables(const QTranslator *translator) {
    const QWriteLocker lock(&tables().lock);
    tables().translators.removeIf([=](const auto &entry) { return entry.value() == translator; });
}
