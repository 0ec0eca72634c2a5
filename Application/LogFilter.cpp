#include "Application/LogFilter.h"

#include "Application/EventLog.h"

void LogFilter::setDatabase(const QString &database) {
    m_database = database;
    invalidateFilter();
}

void LogFilter::setLocation(const QString &location) {
    m_location = location;
    invalidateFilter();
}

bool LogFilter::filterAcceptsRow(int row, const QModelIndex & /*parent*/) const {
    const auto isWanted = [&](int column, const QString &wanted) {
        return wanted.isNull() || sourceModel()->index(row, column).data().toString() == wanted;
    };
    return isWanted(EventLog::Database, m_database) && isWanted(EventLog::Location, m_location);
}

QString LogFilter::text(const QModelIndexList &rows) const {
    QStringList lines;
    for (const QModelIndex &row : rows) {
        QStringList cells;
        for (int column = 0; column < columnCount(); ++column) {
            cells.append(row.siblingAtColumn(column).data().toString().simplified());
        }
        lines.append(cells.join(u'\t'));
    }
    return lines.join(u'\n');
}
