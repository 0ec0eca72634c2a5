#pragma once

#include "Engine/Stores/Http/HttpClient.h"

/// Sends requests to Dropbox's servers and obeys their rate limits: after status 429, or 503 with
/// Retry-After (RFC 6585, section 4; RFC 9110, section 10.2.3), the request is sent again after the
/// time that the server states. Otherwise like HttpClient, including threads.
class DropboxConnection {
public:
    /// Maximum waiting time of one request, all attempts together. If a server demands more, the
    /// request fails.
    static constexpr std::chrono::seconds MostWaiting = std::chrono::seconds(120);
    /// Waiting time if the server does not state one in seconds; a date is not evaluated. The
    /// shortest one is a second.
    static constexpr std::chrono::seconds UnnamedWaiting = std::chrono::seconds(5);

    /// No challenge is answered, and only valid certificates are accepted.
    explicit DropboxConnection(HttpClient::Timeouts timeouts);

    /// Sends `request` and returns the response, regardless of its status. Blocks, for MostWaiting
    /// in addition to HttpClient::send(); returns an error of the code Cancelled at once if
    /// `future` is cancelled while waiting, and one of the code StoreUnreachable if the server
    /// demands more time.
    Expected<HttpClient::Response> send(const HttpClient::Request &request,
                                        const EngineFuture &future);

private:
    HttpClient m_client;
};
