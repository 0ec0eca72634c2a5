#include "Engine/Stores/Dropbox/DropboxStore.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QJsonDocument>

#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Dropbox/DropboxError.h"
#include "Engine/Stores/Dropbox/DropboxListingPage.h"
#include "Engine/Stores/Dropbox/DropboxUrl.h"
#include "Engine/Stores/Http/HttpError.h"
#include "Engine/Stores/Http/HttpStatus.h"
#include "Host/SyncStoreLayout.h"
#include "Host/SyncStrings.h"

namespace {

const QString PackagePath = QStringLiteral("/Velmora.") + SyncStoreLayout::Extension;
constexpr qint64 ResponseLimit = 1 << 20;
/// The body describes the error in JSON.
constexpr int RouteFailed = HttpStatus::Conflict;

QString pathOf(const QString &name) {
    return name.isEmpty() ? PackagePath : PackagePath + u'/' + name;
}

/// Returns the tags of the error, from general to specific, such as "path/conflict/file"; empty
/// unless the response is an error of a route.
QString failedPart(const HttpClient::Response &response) {
    QStringList tags;
    QJsonObject object;
    if (response.status == RouteFailed) {
        object = QJsonDocument::fromJson(response.body)
                     .object()
                     .value(QStringLiteral("error"))
                     .toObject();
    }
    while (!object.isEmpty()) {
        const QString tag = object.value(QStringLiteral(".tag")).toString();
        tags.append(tag);
        const QJsonValue particular = object.value(tag);
        object = (particular.isObject() ? particular : object.value(QStringLiteral("reason")))
                     .toObject();
    }
    return tags.join(u'/');
}

bool isNotFound(const HttpClient::Response &response) {
    return failedPart(response).endsWith(QStringLiteral("/not_found"));
}

/// Returns whether the route succeeded; `outcome` is the JSON that describes its result.
bool isDone(const HttpClient::Response &response, const QByteArray &outcome) {
    return response.status == HttpStatus::OK &&
           !QJsonDocument::fromJson(outcome).object().isEmpty();
}

}  // namespace

DropboxStore::DropboxStore(const std::shared_ptr<QVSyncLocation> &location,
                           std::shared_ptr<StoreOperations> operations,
                           std::shared_ptr<Turn> refreshTurn, HttpClient::Timeouts timeouts)
    : BlobStore(location, std::move(operations)),
      m_accountAddress(DropboxUrl::account(URL())),
      m_listingTime(timeouts.total),
      m_account(m_accountAddress, std::move(refreshTurn), timeouts) {}

QString DropboxStore::place(const QString &name) const {
    return URL().absoluteString() + pathOf(name);
}

Expected<void> DropboxStore::open(const EngineFuture &future) {
    const Expected<QStringList> names = listFolder({}, future);
    return names ? Expected<void>() : failure(names.error());
}

Expected<QStringList> DropboxStore::listFolder(const QString &folder, const EngineFuture &future) {
    const QDeadlineTimer deadline(m_listingTime);
    Expected<Response> response = firstPage(folder, future);
    QStringList names;
    qsizetype memory = 0;
    for (int pages = 0; pages < MostPages && !deadline.hasExpired(); ++pages) {
        if (!response) {
            return failure(response.error());
        }
        if (failedPart(*response) == QStringLiteral("reset")) {
            names.clear();
            memory = 0;
            response = firstPage(folder, future);
            continue;
        }
        if (isNotFound(*response)) {
            return QStringList();
        }
        if (response->status != HttpStatus::OK) {
            return failure(routeError(*response, folder));
        }
        const auto page = DropboxListingPage::parse(response->body, m_account.server());
        if (!page) {
            return failure(page.error());
        }
        names.append(page->names);
        memory += page->memory();
        if (memory > ListingLimit) {
            return failure(tooLong(folder));
        }
        if (!page->hasMore) {
            return names;
        }
        response = nextPage(page->cursor, future);
    }
    return failure(deadline.hasExpired() ? HttpError::busy(m_account.server())
                                         : HttpError::invalidResponse(m_account.server()));
}

Expected<HttpClient::Response> DropboxStore::firstPage(const QString &folder,
                                                       const EngineFuture &future) {
    return m_account.call(QStringLiteral("files/list_folder"),
                          {{QStringLiteral("path"), pathOf(folder)}}, PageLimit, future);
}

Expected<HttpClient::Response> DropboxStore::nextPage(const QString &cursor,
                                                      const EngineFuture &future) {
    return m_account.call(QStringLiteral("files/list_folder/continue"),
                          {{QStringLiteral("cursor"), cursor}}, PageLimit, future);
}

Expected<QByteArray> DropboxStore::readBlob(const QString &name, qint64 limit,
                                            const EngineFuture &future) {
    const Expected<Response> response = m_account.callForContents(
        QStringLiteral("files/download"), {{QStringLiteral("path"), pathOf(name)}}, {},
        std::max(limit, ResponseLimit), future);
    if (!response) {
        const bool isTooLong = isEngineError(response.error(), EngineErrorCode::BlobRefused);
        return failure(isTooLong ? tooLong(name) : response.error());
    }
    if (!isDone(*response, response->header("Dropbox-API-Result"))) {
        return failure(routeError(*response, name));
    }
    return response->body.size() <= limit ? Expected<QByteArray>(response->body)
                                          : failure(tooLong(name));
}

Expected<BlobStore::Written> DropboxStore::writeBlob(const QString &name,
                                                     const QByteArray &contents,
                                                     const EngineFuture &future) {
    if (contents.size() > ContentsLimit) {
        return failure(HttpError::tooLarge(place(name)));
    }
    const Expected<Response> response =
        m_account.callForContents(QStringLiteral("files/upload"),
                                  {{QStringLiteral("path"), pathOf(name)},
                                   {QStringLiteral("mode"), QStringLiteral("add")},
                                   {QStringLiteral("autorename"), false},
                                   {QStringLiteral("strict_conflict"), true},
                                   // Suppress Dropbox's notification for each upload.
                                   {QStringLiteral("mute"), true}},
                                  contents, ResponseLimit, future);
    if (!response) {
        return failure(response.error());
    }
    if (failedPart(*response).startsWith(QStringLiteral("path/conflict"))) {
        return Written::AlreadyThere;
    }
    return isDone(*response, response->body) ? Expected<Written>(Written::New)
                                             : failure(routeError(*response, name));
}

Expected<void> DropboxStore::removeBlob(const QString &name, const EngineFuture &future) {
    const Expected<Response> response =
        m_account.call(QStringLiteral("files/delete_v2"), {{QStringLiteral("path"), pathOf(name)}},
                       ResponseLimit, future);
    if (!response) {
        return failure(response.error());
    }
    const bool isGone = isDone(*response, response->body) || isNotFound(*response);
    return isGone ? Expected<void>() : failure(routeError(*response, name));
}

Error DropboxStore::routeError(const Response &response, const QString &name) const {
    switch (response.status) {
        case HttpStatus::OK:
            return HttpError::invalidResponse(m_account.server());
        case RouteFailed:
            return pathError(response, name);
        default:
            return DropboxError::unexpected(response, m_account.server());
    }
}

Error DropboxStore::pathError(const Response &response, const QString &name) const {
    const QString reason = failedPart(response).section(u'/', 1);
    if (reason == QStringLiteral("not_found")) {
        return missing(name);
    }
    if (reason == QStringLiteral("insufficient_space")) {
        return engineError(EngineErrorCode::StoreFull,
                           "The Dropbox of “%1” is full. Delete files there.", m_accountAddress);
    }
    if (reason == QStringLiteral("too_many_write_operations")) {
        return HttpError::busy(m_account.server());
    }
    if (reason == QStringLiteral("no_write_permission") ||
        reason == QStringLiteral("restricted_content")) {
        return HttpError::accessDenied(place(name));
    }
    const QStringList notABlob = {QStringLiteral("not_file"), QStringLiteral("not_folder"),
                                  QStringLiteral("malformed_path"),
                                  QStringLiteral("disallowed_name")};
    return notABlob.contains(reason) ? refused(name)
                                     : DropboxError::unexpected(response, m_account.server());
}
