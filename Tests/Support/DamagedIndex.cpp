#include "Support/DamagedIndex.h"

#include <QtCore/QFile>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <QtTest/QTest>

namespace {

struct Page {
    qint64 number = 0;
    qint64 size = 0;

    qint64 begin() const { return (number - 1) * size; }
};

/// Returns the first page of an index or a table.
Page pageOf(const QString &file, const QString &name) {
    const QString connection = QStringLiteral("damaged-index");
    Page page;
    {
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(file);
        database.open();
        QSqlQuery query(database);
        query.prepare(QStringLiteral(
            "SELECT rootpage, page_size FROM sqlite_schema, pragma_page_size() WHERE name = ?"));
        query.addBindValue(name);
        if (query.exec() && query.next()) {
            page = {query.value(0).toLongLong(), query.value(1).toLongLong()};
        }
    }
    QSqlDatabase::removeDatabase(connection);
    return page;
}

void flipABitAt(const QString &file, qint64 position) {
    QFile database(file);
    QVERIFY(database.open(QIODevice::ReadWrite));
    QVERIFY(database.seek(position));
    char byte = 0;
    QCOMPARE(database.peek(&byte, 1), 1);
    byte = static_cast<char>(byte ^ 1);
    QCOMPARE(database.write(&byte, 1), 1);
}

}  // namespace

void DamagedIndex::make(const QString &file, const QString &index, Damage damage) {
    const Page page = pageOf(file, index);
    QVERIFY2(page.number > 0, qPrintable(index));
    // A page begins with its type, and ends with the entry that was written first.
    flipABitAt(file, damage == Damage::Page ? page.begin() : page.begin() + page.size - 1);
}

void DamagedIndex::makeRow(const QString &file, const QString &table, const QByteArray &value) {
    const Page page = pageOf(file, table);
    QVERIFY2(page.number > 0, qPrintable(table));
    QFile database(file);
    QVERIFY(database.open(QIODevice::ReadOnly));
    QVERIFY(database.seek(page.begin()));
    const qsizetype found = database.read(page.size).lastIndexOf(value);
    QVERIFY(found >= 0);
    database.close();
    flipABitAt(file, page.begin() + found + value.size() - 1);
}
