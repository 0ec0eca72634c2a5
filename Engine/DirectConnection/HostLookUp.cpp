#include "Engine/DirectConnection/HostLookUp.h"

#include <sys/socket.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "Engine/Foundation/CancellableWait.h"
#include "Engine/Foundation/EngineError.h"
#include "Platform/Network/LocalHostName.h"

namespace {

using HostLookUp::Addresses;

constexpr std::chrono::seconds LongestLookUp(20);
/// Leaves time for the system.
constexpr std::chrono::seconds LongestLocalLookUp(10);

/// How many look-ups are running in the process.
std::atomic_int running = 0;

/// Shared by the thread that looks up and the one that waits for it.
struct LookUp {
    std::mutex mutex;
    std::condition_variable_any ended;
    std::optional<Expected<Addresses>> result;
};

Error notFound(const QString &host) {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "The server “%1” was not found. Check its name and the network connection.",
                       host);
}

Addresses ask(const QString &host, quint16 port, int flags) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = flags;
    addrinfo *found = nullptr;
    if (getaddrinfo(host.toUtf8().constData(), QByteArray::number(port).constData(), &hints,
                    &found) != 0) {
        found = nullptr;
    }
    return {found, &freeaddrinfo};
}

/// Blocks as long as the system does.
Expected<Addresses> lookUp(const QString &host, quint16 port) {
    const Expected<QString> local = LocalHostName::isLocal(host)
                                        ? LocalHostName::address(host, LongestLocalLookUp)
                                        : Expected<QString>(host);
    // The system may have other ways to resolve a local name.
    Addresses addresses = ask(local.value_or(host), port, 0);
    if (addresses) {
        return addresses;
    }
    return failure(
        local ? notFound(host)
              : engineError(EngineErrorCode::StoreUnreachable, local.error().localizedDescription));
}

/// Starts a look-up on a thread of its own. Null if too many are running.
std::shared_ptr<LookUp> start(const QString &host, quint16 port) {
    if (++running > HostLookUp::MostLookUps) {
        --running;
        return nullptr;
    }
    auto started = std::make_shared<LookUp>();
    std::thread([started, host, port] {
        Expected<Addresses> result = lookUp(host, port);
        const std::lock_guard lock(started->mutex);
        started->result = std::move(result);
        started->ended.notify_all();
        --running;
    }).detach();
    return started;
}

}  // namespace

bool HostLookUp::isAnyRunning() {
    return running > 0;
}

Expected<Addresses> HostLookUp::addresses(const QString &host, quint16 port,
                                          const EngineFuture &future) {
    if (Addresses known = ask(host, port, AI_NUMERICHOST)) {
        return known;
    }
    const std::shared_ptr<LookUp> started = start(host, port);
    if (!started) {
        return failure(notFound(host));
    }
    std::unique_lock lock(started->mutex);
    CancellableWait(future, QDeadlineTimer(LongestLookUp)).until(started->ended, lock, [&] {
        return started->result.has_value();
    });
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    return started->result ? std::move(*started->result) : failure(notFound(host));
}
