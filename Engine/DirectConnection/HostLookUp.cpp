#include "Engine/DirectConnection/HostLookUp.h"

#include <sys/socket.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
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

Error notLookedUp(const QString &host, const QString &details) {
    Error error = engineError(EngineErrorCode::StoreUnreachable,
                              "The address of the server “%1” could not be looked up. Check the "
                              "network connection and try again.",
                              host);
    error.details = details;
    return error;
}

Error tooManyLookUps(const QString &host) {
    return engineError(EngineErrorCode::StoreUnreachable,
                       "The address of the server “%1” was not looked up because too many look-ups "
                       "are still running. Try again in a minute.",
                       host);
}

/// Returns the error for a result of getaddrinfo(); `number` is the value of errno then.
Error errorOf(int code, int number, const QString &host) {
    const bool isUnknown = code == EAI_NONAME || code == EAI_NODATA || code == EAI_ADDRFAMILY;
    return isUnknown
               ? serverNotFound(host)
               : notLookedUp(host, code == EAI_SYSTEM ? qt_error_string(number)
                                                      : QString::fromLocal8Bit(gai_strerror(code)));
}

Expected<Addresses> ask(const QString &host, quint16 port, int flags) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = flags;
    addrinfo *found = nullptr;
    const int code = getaddrinfo(host.toUtf8().constData(), QByteArray::number(port).constData(),
                                 &hints, &found);
    const int number = errno;
    return code == 0 ? Expected<Addresses>(Addresses(found, &freeaddrinfo))
                     : failure(errorOf(code, number, host));
}

/// Blocks as long as the system does.
Expected<Addresses> lookUp(const QString &host, quint16 port) {
    const Expected<QString> local = LocalHostName::isLocal(host)
                                        ? LocalHostName::address(host, LongestLocalLookUp)
                                        : Expected<QString>(host);
    // The system may have other ways to resolve a local name.
    Expected<Addresses> addresses = ask(local.value_or(host), port, 0);
    if (addresses || local) {
        return addresses;
    }
    return failure(
        engineError(EngineErrorCode::StoreUnreachable, local.error().localizedDescription));
}

/// Starts a look-up on a thread of its own. The result is not null.
Expected<std::shared_ptr<LookUp>> start(const QString &host, quint16 port) {
    if (++running > HostLookUp::MostLookUps) {
        --running;
        return failure(tooManyLookUps(host));
    }
    auto started = std::make_shared<LookUp>();
    try {
        std::thread([started, host, port] {
            Expected<Addresses> result = lookUp(host, port);
            const std::lock_guard lock(started->mutex);
            started->result = std::move(result);
            started->ended.notify_all();
            --running;
        }).detach();
    } catch (const std::system_error &error) {
        --running;
        return failure(notLookedUp(host, QString::fromLocal8Bit(error.what())));
    }
    return started;
}

}  // namespace

bool HostLookUp::isAnyRunning() {
    return running > 0;
}

Expected<Addresses> HostLookUp::addresses(const QString &host, quint16 port,
                                          const EngineFuture &future) {
    if (Expected<Addresses> known = ask(host, port, AI_NUMERICHOST)) {
        return known;
    }
    const Expected<std::shared_ptr<LookUp>> begun = start(host, port);
    if (!begun) {
        return failure(begun.error());
    }
    const std::shared_ptr<LookUp> &started = *begun;
    std::unique_lock lock(started->mutex);
    CancellableWait(future, QDeadlineTimer(LongestLookUp)).until(started->ended, lock, [&] {
        return started->result.has_value();
    });
    if (future.isCancelled()) {
        return failure(operationCancelled());
    }
    return started->result
               ? std::move(*started->result)
               : failure(notLookedUp(host, QStringLiteral("no response in 20 seconds")));
}
