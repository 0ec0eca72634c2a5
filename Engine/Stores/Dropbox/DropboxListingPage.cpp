#include "Engine/Stores/Dropbox/DropboxListingPage.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <numeric>

#include "Engine/Stores/Dropbox/DropboxError.h"

namespace {

const QString EntriesKey = QStringLiteral("entries");
const QString HasMoreKey = QStringLiteral("has_more");
const QString CursorKey = QStringLiteral("cursor");

}  // namespace

Expected<DropboxListingPage> DropboxListingPage::parse(const QByteArray &response,
                                                       const QUrl &server) {
    const QJsonObject object = QJsonDocument::fromJson(response).object();
    const QJsonValue entries = object.value(EntriesKey);
    const QJsonValue hasMore = object.value(HasMoreKey);
    DropboxListingPage page{{}, object.value(CursorKey).toString(), hasMore.toBool()};
    if (!entries.isArray()) {
        return failure(DropboxError::invalidValue(EntriesKey, server));
    }
    if (!hasMore.isBool()) {
        return failure(DropboxError::invalidValue(HasMoreKey, server));
    }
    if (page.hasMore && page.cursor.isEmpty()) {
        return failure(DropboxError::invalidValue(CursorKey, server));
    }
    const QJsonArray array = entries.toArray();
    for (const QJsonValue entry : array) {
        const QString kind = entry[QStringLiteral(".tag")].toString();
        if (kind == QStringLiteral("file") || kind == QStringLiteral("folder")) {
            page.names.append(entry[QStringLiteral("name")].toString());
        }
    }
    return page;
}

qsizetype DropboxListingPage::memory() const {
    return std::accumulate(names.begin(), names.end(), qsizetype(0),
                           [](qsizetype sum, const QString &name) {
                               constexpr qsizetype Overhead = 2 * sizeof(QString);
                               return sum + Overhead + name.size() * qsizetype(sizeof(QChar));
                           });
}
