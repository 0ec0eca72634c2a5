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

/// Returns null if the table has none. The mutex must be locked.
const QTranslator *translatorOf(const char *table) {
    const auto length = static_cast<qsizetype>(qstrlen(table));
    const QList<const QTranslator *> translators =
        tables().translators.value(QByteArray::fromRawData(table, length));
    return translators.isEmpty() ? nullptr : translators.last();
}

/// Returns the empty string if the table has no such text. A negative `count` is none.
QString translated(const char *table, const char *key, int count) {
    const std::shared_lock lock(tables().mutex);
    const QTranslator *translator = translatorOf(table);
    return translator ? translator->translate(table, key, nullptr, count) : QString();
}

}  // namespace

QString localizedString(const char *table, const char *key) {
    const QString text = translated(table, key, -1);
    return text.isEmpty() ? QString::fromUtf8(key) : text;
}

QString localizedString(const char *table, const char *key, const char *one, qint64 count) {
    QString text = translated(table, key, pluralCount(count));
    if (!text.isEmpty()) {
        return text;
    }
    return QString::fromUtf8(count == 1 && one ? one : key);
}

QString localizationLanguage(const char *table) {
    const std::shared_lock lock(tables().mutex);
    const QTranslator *translator = translatorOf(table);
    return translator ? translator->language() : QString();
}

int pluralCount(qint64 count) {
    // No language looks at more than the last digits and whether there are others.
    constexpr qint64 Period = 1'000'000;
    return static_cast<int>(count < Period ? qMax(count, qint64(0)) : Period + count % Period);
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
