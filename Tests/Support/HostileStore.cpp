#include "Support/HostileStore.h"

#include <QtCore/QDir>
#include <QtCore/QUuid>
#include <algorithm>
#include <stdexcept>

#include "Engine/Notes/DatabaseRecord.h"
#include "Engine/Notes/Transaction.h"
#include "Host/SyncStoreLayout.h"

namespace {

constexpr int EditsOfRecord = 10'000;

QByteArray folderEntry(const QByteArray &path) {
    return "<D:response><D:href>" + path +
           "</D:href><D:propstat><D:prop><D:resourcetype><D:collection/></D:resourcetype></D:prop>"
           "</D:propstat></D:response>";
}

QByteArray multiStatus(const QByteArray &entries) {
    return "<?xml version=\"1.0\"?><D:multistatus xmlns:D=\"DAV:\">" + entries + "</D:multistatus>";
}

QByteArray listingOf(const QByteArray &folder, int count) {
    QByteArray entries = folderEntry(folder);
    for (int i = 0; i < count; ++i) {
        entries += "<D:response><D:href>" + folder + QByteArray::number(i).rightJustified(8, '0') +
                   "-0000-4000-8000-000000000000.json</D:href></D:response>";
    }
    return multiStatus(entries);
}

}  // namespace

ScriptedServer::Script HostileStore::databases(int count, int nameSize) {
    const QByteArray root = '/' + Path.toUtf8() + '/';
    const QByteArray listing = listingOf(root + "databases/", count);
    const QByteArray store = multiStatus(folderEntry(root) + folderEntry(root + "databases/") +
                                         folderEntry(root + "transactions/"));
    const QString name(nameSize, u'x');
    return [=](ScriptedServer::Connection &connection) {
        QByteArray request;
        while (!(request = connection.readRequest()).isEmpty()) {
            const QByteArray path = request.split(' ').value(1);
            if (request.startsWith("GET ")) {
                const QString UUID = QString::fromUtf8(path.split('/').last().chopped(5));
                const QByteArray record = DatabaseRecord::encoded(UUID, name);
                // In one piece, which the system sends at once.
                connection.send("HTTP/1.1 200 OK\r\nContent-Length: " +
                                QByteArray::number(record.size()) + "\r\n\r\n" + record);
            } else {
                connection.answer("207 Multi-Status", path.contains("databases") ? listing : store);
            }
        }
    };
}

QByteArrayList HostileStore::conflictingEdits(int count) {
    const QString note = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QByteArrayList records;
    for (int made = 0; made < count; made += EditsOfRecord) {
        Transaction transaction;
        for (int i = made; i < std::min(count, made + EditsOfRecord); ++i) {
            transaction.operations.append(
                Operation::make(note, QStringLiteral("Edit %1").arg(i), {}, i, {}));
        }
        records.append(transaction.encoded());
    }
    return records;
}

QByteArrayList HostileStore::largeEdits(int count) {
    const QString note = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QString text(Operation::NoteLimit, u'x');
    QByteArrayList records;
    for (int i = 0; i < count; ++i) {
        records.append(Transaction{{Operation::make(note, {}, text, i, {})}, {}}.encoded());
    }
    return records;
}

QByteArrayList HostileStore::smallRecords(int count) {
    QByteArrayList records;
    for (int i = 0; i < count; ++i) {
        Transaction transaction;
        transaction.operations.append(
            Operation::make(QUuid::createUuid().toString(QUuid::WithoutBraces),
                            QStringLiteral("Note %1").arg(i), {}, i, {}));
        records.append(transaction.encoded());
    }
    return records;
}

void HostileStore::writeRecords(const QString &path, const QByteArrayList &records) {
    const QString folder = path + QStringLiteral("/transactions/@inbox/");
    QDir().mkpath(folder);
    for (const QByteArray &record : records) {
        QFile file(folder + QUuid::createUuid().toString(QUuid::WithoutBraces) +
                   SyncStoreLayout::RecordEnding);
        if (!file.open(QIODevice::WriteOnly) || file.write(record) != record.size()) {
            throw std::runtime_error("a record cannot be written");
        }
    }
}
