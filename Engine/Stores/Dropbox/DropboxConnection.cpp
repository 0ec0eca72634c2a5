#include "Engine/Stores/Dropbox/DropboxConnection.h"

#include <algorithm>

#include "Engine/Foundation/CancellableWait.h"
#include "Engine/Foundation/EngineError.h"
#include "Engine/Stores/Http/HttpError.h"
#include "Engine/Stores/Http/HttpStatus.h"

namespace {

bool asksToWait(const HttpClient::Response &response) {
    return response.status == HttpStatus::TooManyRequests ||
           (response.status == HttpStatus::ServiceUnavailable &&
            !response.header("Retry-After").isEmpty());
}

std::chrono::seconds timeToWait(const HttpClient::Response &response) {
    bool isNumber = false;
    const int seconds = response.header("Retry-After").trimmed().toInt(&isNumber);
    return isNumber && seconds >= 0
               ? std::max(std::chrono::seconds(seconds), std::chrono::seconds(1))
               : DropboxConnection::UnnamedWaiting;
}

}  // namespace

DropboxConnection::DropboxConnection(HttpClient::Timeouts timeouts)
    : m_client({.timeouts = timeouts}) {}

Expected<HttpClient::Response> DropboxConnection::send(const HttpClient::Request &request,
                                                       const EngineFuture &future) {
    std::chrono::seconds waited(0);
    for (;;) {
        Expected<HttpClient::Response> response = m_client.send(request, future);
        if (!response || !asksToWait(*response)) {
            return response;
        }
        const std::chrono::seconds wanted = timeToWait(*response);
        waited += wanted;
        if (waited > MostWaiting) {
            return failure(HttpError::busy(request.URL));
        }
        if (!CancellableWait(future, QDeadlineTimer(wanted)).forDeadline()) {
            return failure(operationCancelled());
        }
    }
}
