#include "Platform/Foundation/Localization.h"

#include <QtCore/QHash>
#include <QtCore/QTranslator>
#include <mutex>
#include <shared_mutex>

namespace {

struct Tables {
    std::shared_mutex mutex;
    /// The last one of each table is its source.
    QHash<QByteArray, QList<const QTranslator *>> translators;
};

Tables &tables() {
    static Tables all;
    return all;
}

}  // namespace

QString localizedString(const char *table, const char *key) {
    const std::shared_lock lock(tables().mutex);
    const auto length = static_cast<qsizetype>(qstrlen(table));
    const QList<const QTranslator *> translators =
        tables().translators.value(QByteArray::fromRawData(table, length));
    const QString text =
        translators.isEmpty() ? QString() : translators.last()->translate(table, key);
    return text.isEmpty() ? QString::fromUtf8(key) : text;
}

void addLocalizationTable(const QByteArray &table, const QTranslator *translator) {
    const std::lock_guard lock(tables().mutex);
    tables().translators[table].append(translator);
}

void removeLocalizationTables(const QTranslator *translator) {
    const std::lock_guard lock(tables().mutex);
    for (QList<const QTranslator *> &translators : tables().translators) {
        translators.removeAll(translator);
    }
}
