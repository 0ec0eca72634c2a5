#include "Controller/Preferences/PaneTitles.h"

#include "Host/SyncStrings.h"

namespace {

constexpr qsizetype LongestName = 24;

}  // namespace

void PaneTitles::setDatabase(const QString &database) {
    m_database = database;
    Q_EMIT changed();
}

QString PaneTitles::shownName() const {
    return m_database.size() > LongestName ? m_database.left(LongestName - 1).trimmed() + u'…'
                                           : m_database;
}

QString PaneTitles::locations() const {
    return m_database.isEmpty() ? localizedSyncString("Synchronize with")
                                : localizedSyncString("Synchronize “%1” with").arg(shownName());
}

QString PaneTitles::schedule() const {
    return m_database.isEmpty() ? localizedSyncString("Schedule of the selected database")
                                : localizedSyncString("Schedule of “%1”")
                                      .arg(shownName().replace(u'&', QStringLiteral("&&")));
}
