#include "Support/FailingTable.h"

#include <stdexcept>

namespace {

void runOrThrow(const ProfileDatabase &profile, const QString &statement) {
    if (const Expected<void> done = profile.run(statement); !done) {
        throw std::runtime_error(done.error().localizedDescription.toStdString());
    }
}

/// For destructors.
void runOrAbort(const ProfileDatabase &profile, const QString &statement) {
    if (const Expected<void> done = profile.run(statement); !done) {
        qFatal("%s", qPrintable(done.error().localizedDescription));
    }
}

}  // namespace

FailingTable::FailingTable(const ProfileDatabase &profile, const QString &table, Fault fault)
    : m_profile(profile), m_table(table), m_fault(fault) {
    runOrThrow(profile, QStringLiteral("ALTER TABLE %1 RENAME TO hidden_%1").arg(table));
    if (fault == Fault::LaterRows) {
        runOrThrow(profile, failingView());
    }
}

FailingTable::~FailingTable() {
    if (m_fault == Fault::LaterRows) {
        runOrAbort(m_profile, QStringLiteral("DROP VIEW %1").arg(m_table));
    }
    runOrAbort(m_profile, QStringLiteral("ALTER TABLE hidden_%1 RENAME TO %1").arg(m_table));
}

QString FailingTable::failingView() const {
    QStringList columns;
    const Expected<void> read = m_profile.read(
        QStringLiteral("SELECT name FROM pragma_table_info('hidden_%1')").arg(m_table), {},
        [&](const QSqlQuery &row) {
            // abs() fails for the smallest integer.
            columns.append(QStringLiteral("CASE WHEN %1 IS (SELECT %1 FROM hidden_%2 LIMIT 1)"
                                          " THEN %1 ELSE abs(-9223372036854775807 -"
                                          " (coalesce(length(%1), 0) >= 0)) END AS %1")
                               .arg(row.value(0).toString(), m_table));
        });
    if (!read) {
        throw std::runtime_error(read.error().localizedDescription.toStdString());
    }
    return QStringLiteral("CREATE VIEW %1 AS SELECT %2 FROM hidden_%1")
        .arg(m_table, columns.join(u','));
}
