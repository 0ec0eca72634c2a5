#pragma once

#include "Engine/Stores/Http/HttpClient.h"

/// Requests to Dropbox's servers, which say when there are too many (status 429, or 503, with
/// Retry-After; RFC 6585, 4 and RFC 9110, 10.2.3): the same request is sent again then, but not
/// before the time they name. As HttpClient in all else.
class DropboxConnection {
public:
    /// Of one request, all its tries together. Where a server wants more, that is an error.
    static constexpr std::chrono::seconds MostWaiting = std::chrono::seconds(120);
    /// Where a server wants some, but does not say how much.
    static constexpr std::chrono::seconds UnnamedWaiting = std::chrono::seconds(5);

    explicit DropboxConnection(HttpClient::Timeouts timeouts);

    Expected<HttpClient::Response> send(const HttpClient::Request &request,
                                        const EngineFuture &future);

private:
    HttpClient m_client;
};
