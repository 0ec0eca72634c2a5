#include "Platform/Foundation/Localization.h"

#include <QtCore/QHash>
#include <QtCore/QTranslator>
#include <mutex>
#include <shared_mutex>

namespace {

struct Tables {
    std::shared_mutex mutex;
    QHash<QByteArray, const QTranslator *> translators;
};

Tables &tables() {
    static Tables all;
    return all;
}

}  // namespace

QString localizedString(const char *table, const char *key) {
    const std::shared_lock lock(tables().mutex);
    const auto length = static_cast<qsizetype>(qstrlen(table));
    const QTranslator *translator =
        tables().translators.value(QByteArray::fromRawData(table, length));
    const QString text = translator ? translator->translate(table, key) : QString();
    return text.isEmpty() ? QString::fromUtf8(key) : text;
}

void setLocalizationTable(const QByteArray &table, const QTranslator *translator) {
    const std::lock_guard lock(tables().mutex);
    tables().translators.insert(table, translator);
}

void removeLocalizationTables(const QTranslator *translator) {
    const std::lock_guard lock(tables().mutex);
    tables().translators.removeIf([=](const auto &entry) { return entry.value() == translator; });
}
