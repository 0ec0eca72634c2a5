#include "Engine/Stores/Dropbox/DropboxListingPage.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <numeric>

std::optional<DropboxListingPage> DropboxListingPage::parse(const QByteArray &response) {
    const QJsonObject object = QJsonDocument::fromJson(response).object();
    const QJsonValue entries = object.value(QStringLiteral("entries"));
    const QJsonValue hasMore = object.value(QStringLiteral("has_more"));
    DropboxListingPage page{
        {}, object.value(QStringLiteral("cursor")).toString(), hasMore.toBool()};
    const QJsonArray array = entries.toArray();
    for (const QJsonValue entry : array) {
        const QString kind = entry[QStringLiteral(".tag")].toString();
        if (kind == QStringLiteral("file") || kind == QStringLiteral("folder")) {
            page.names.append(entry[QStringLiteral("name")].toString());
        }
    }
    const bool isPage =
        entries.isArray() && hasMore.isBool() && (!page.hasMore || !page.cursor.isEmpty());
    return isPage ? std::optional(page) : std::nullopt;
}

qsizetype DropboxListingPage::memory() const {
    return std::accumulate(names.begin(), names.end(), qsizetype(0),
                           [](qsizetype sum, const QString &name) {
                               constexpr qsizetype Overhead = 2 * sizeof(QString);
                               return sum + Overhead + name.size() * qsizetype(sizeof(QChar));
                           });
}
