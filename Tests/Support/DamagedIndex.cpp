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

void flipABitAt(const QString &file, qint64 position, int bit = 0) {
    QFile database(file);
    QVERIFY(database.open(QIODevice::ReadWrite));
    QVERIFY(database.seek(position));
    char byte = 0;
    QCOMPARE(database.peek(&byte, 1), 1);
    byte = static_cast<char>(byte ^ (1 << bit));
    QCOMPARE(database.write(&byte, 1), 1);
}

}  // namespace

void DamagedIndex::make(const QString &file, const QString &index, Damage damage) {
    const Page page = pageOf(file, index);
    QVERIFY2(page.number > 0, qPrintable(index));
    // A page begins with its type, and ends with the entry that was written first.
    flipABitAt(file, damage == Damage::Page ? page.begin() : page.begin() + page.size - 1);
}

void DamagedIndex::makeOverflow(const QString &file, const QByteArray &text, int bit) {
    const qint64 size = pageOf(file, QStringLiteral("operations")).size;
    QFile database(file);
    QVERIFY(database.open(QIODevice::ReadOnly));
    const QByteArray contents = database.readAll();
    database.close();
    // The page contains nothing but the text after the number of the next one, in four bytes.
    const QByteArray rest = text.mid(2 * size, size / 2);
    const qsizetype found = contents.lastIndexOf(rest);
    QVERIFY(found >= 0);
    const qsizetype begin = found / size * size;
    const QByteArray page = contents.mid(begin + 4, size - 4);
    QVERIFY2(text.contains(page), "the text is not alone in its page");
    flipABitAt(file, begin + 3 - bit / 8, bit % 8);
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
