#include "Platform/Security/SecretStore.h"

#include <QtCore/QCoreApplication>
#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

#include "Platform/Foundation/Localization.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Platform/Security/GLibThread.h"
#include "Platform/Security/SecretServiceClient.h"

namespace {

using Failure = SecretServiceClient::Failure;
using Access = SecretServiceClient::Access;
using FoundItems = SecretServiceClient::FoundItems;

/// Returns whether D-Bus can carry the attributes: it closes the connection of a client that sends
/// invalid strings.
bool canBeSent(const SecretAttributes &attributes) {
    return std::all_of(attributes.begin(), attributes.end(), [](const auto &attribute) {
        return attribute.second.isValidUtf8() && !attribute.second.contains('\0');
    });
}

bool hasAll(const SecretAttributes &attributes, const SecretAttributes &wanted) {
    return std::includes(attributes.begin(), attributes.end(), wanted.begin(), wanted.end());
}

/// What this run has set, and what else the service has.
QList<StoredSecret> merged(const QList<StoredSecret> &own, const QList<StoredSecret> &found) {
    QList<StoredSecret> items = own;
    for (const StoredSecret &item : found) {
        if (std::none_of(own.begin(), own.end(), [&item](const StoredSecret &other) {
                return hasAll(item.attributes, other.attributes);
            })) {
            items.append(item);
        }
    }
    return items;
}

QList<SecretAttributes> attributesOfAll(const QList<StoredSecret> &items) {
    QList<SecretAttributes> attributes;
    for (const StoredSecret &item : items) {
        attributes.append(item.attributes);
    }
    return attributes;
}

QString reasonOf(Failure failure) {
    switch (failure) {
        case Failure::NoService:
            return localizedString(PlatformTable,
                                   "No password service is running on this computer.");
        case Failure::Locked:
            return localizedString(PlatformTable, "The keyring is locked.");
        case Failure::Broken:
        case Failure::Cancelled:
            break;
    }
    return localizedString(PlatformTable,
                           "The password service failed. To restart it, log out and log in again.");
}

/// The user waits for both when quitting.
constexpr std::chrono::milliseconds LongestEnd{1200};
constexpr std::chrono::milliseconds LongestCancellation{300};

const QString ErrorDomain = QStringLiteral("SecretStore");

Error errorOfReading(Failure failure) {
    return {.domain = ErrorDomain,
            .code = static_cast<int>(failure),
            .localizedDescription =
                localizedString(PlatformTable,
                                "The saved password could not be read. Start or unlock the "
                                "password service, then try again."),
            .localizedFailureReason = reasonOf(failure)};
}

/// What a lookup returns if this run has set `own` and the service has returned `found`.
Expected<QList<StoredSecret>> result(const QList<StoredSecret> &own, const FoundItems &found) {
    const std::optional<Failure> failed =
        found.isAnyLocked ? std::optional(Failure::Locked) : found.failure;
    return failed && own.isEmpty() ? failure(errorOfReading(*failed))
                                   : Expected<QList<StoredSecret>>(merged(own, found.items));
}

Error errorOfWriting(Failure failure) {
    return {
        .domain = ErrorDomain,
        .code = static_cast<int>(failure),
        .localizedDescription =
            localizedString(PlatformTable,
                            "Passwords cannot be saved. They are kept until you quit %1. To save "
                            "them, start or unlock the password service, and enter them again.")
                .arg(QCoreApplication::applicationName()),
        .localizedFailureReason = reasonOf(failure)};
}

Error errorOfRemoving(Failure failure) {
    return {.domain = ErrorDomain,
            .code = static_cast<int>(failure),
            .localizedDescription =
                localizedString(PlatformTable,
                                "A saved password or permission could not be deleted. "
                                "Unlock the keyring and try again."),
            .localizedFailureReason = reasonOf(failure)};
}

}  // namespace

/// Callers and the worker thread share their data under one mutex. Every change wakes all waiting
/// callers.
class SecretStore::Implementation {
public:
    explicit Implementation(std::chrono::milliseconds timeout) : m_timeout(timeout) {}
    ~Implementation() { stop(); }

    Expected<QList<StoredSecret>> find(const SecretAttributes &attributes, bool wantsSecrets,
                                       const std::stop_token &cancellation);
    void findLater(const SecretAttributes &attributes, bool wantsSecrets, const Handler &handler);
    void set(const StoredSecret &item);
    void removeFirstLater(const SecretAttributes &attributes, const RemovalHandler &handler);
    std::optional<Error> error() const;
    std::optional<Error> removalError() const;
    bool finishWriting();
    void stop();

private:
    using Lock = std::unique_lock<std::mutex>;
    using Done = std::function<void()>;

    /// A secret that was set in this run and is not stored by the service, or not yet.
    struct Entry {
        StoredSecret item;
        /// The job that writes it; 0 if there is none.
        quint64 job = 0;
    };
    struct Question {
        std::optional<FoundItems> answer;
        bool isTimedOut = false;
        bool isCancelled = false;
    };

    QList<StoredSecret> remembered(const SecretAttributes &attributes) const;
    FoundItems ask(Lock &lock, const SecretAttributes &attributes, bool wantsSecrets,
                   const std::stop_token &cancellation);
    void didAnswer(Question &question, const FoundItems &found, Access access);
    /// Appends a job and returns its number.
    quint64 append(std::function<void(const Done &)> job);
    void beginFirstJob();
    void didFirstJob();
    void write(const SecretAttributes &attributes, quint64 job, const Done &done);
    void didWrite(const SecretAttributes &attributes, quint64 job, std::optional<Failure> failure);
    void remove(const SecretAttributes &attributes, quint64 job, const RemovalHandler &handler,
                const Done &done);
    /// Keeps entries that were set after `job`.
    bool forgetFirst(const SecretAttributes &attributes, quint64 job);
    /// Returns the result of a removal from the service and from memory.
    Expected<bool> removed(const tl::expected<bool, Failure> &fromService, bool isForgotten);
    void fail(Failure failure);

    const std::chrono::milliseconds m_timeout;
    mutable std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::map<SecretAttributes, Entry> m_entries;
    /// Changes of the service's items, executed one at a time in order; the first is in progress.
    std::deque<std::function<void(const Done &)>> m_jobs;
    quint64 m_lastJob = 0;
    /// Jobs up to this one are not written: the user has declined to unlock the keyring.
    quint64 m_lastDeclinedJob = 0;
    int m_openQuestions = 0;
    int m_timedOutQuestions = 0;
    /// Each may have a prompt that is still open.
    int m_cancelledQuestions = 0;
    bool m_mayUnlockToFind = true;
    bool m_isStopped = false;
    std::optional<Error> m_error;
    std::optional<Error> m_removalError;
    SecretServiceClient m_client;
    GLibThread m_thread;
};

QList<StoredSecret> SecretStore::Implementation::remembered(
    const SecretAttributes &attributes) const {
    QList<StoredSecret> items;
    for (const auto &[itemAttributes, entry] : m_entries) {
        if (hasAll(itemAttributes, attributes)) {
            items.append(entry.item);
        }
    }
    return items;
}

Expected<QList<StoredSecret>> SecretStore::Implementation::find(
    const SecretAttributes &attributes, bool wantsSecrets, const std::stop_token &cancellation) {
    Lock lock(m_mutex);
    // Taken before the service is asked: what has reached the service meanwhile may be missing in
    // its answer.
    const QList<StoredSecret> own = remembered(attributes);
    return result(own, ask(lock, attributes, wantsSecrets, cancellation));
}

void SecretStore::Implementation::findLater(const SecretAttributes &attributes, bool wantsSecrets,
                                            const Handler &handler) {
    const Lock lock(m_mutex);
    const auto deliver = [handler, own = remembered(attributes)](const FoundItems &found) {
        MainQueue::dispatchAsync([handler, items = result(own, found)] { handler(items); });
    };
    if (m_isStopped || !canBeSent(attributes)) {
        deliver({.failure = Failure::NoService});
        return;
    }
    ++m_openQuestions;
    m_thread.run([this, attributes, wantsSecrets, deliver] {
        m_client.find(attributes, wantsSecrets ? Access::Secrets : Access::Attributes,
                      [this, deliver](const FoundItems &found) {
                          const Lock answering(m_mutex);
                          --m_openQuestions;
                          m_changed.notify_all();
                          if (!m_isStopped) {
                              deliver(found);
                          }
                      });
    });
}

FoundItems SecretStore::Implementation::ask(Lock &lock, const SecretAttributes &attributes,
                                            bool wantsSecrets,
                                            const std::stop_token &cancellation) {
    if (cancellation.stop_requested()) {
        return {.failure = Failure::Cancelled};
    }
    if (m_isStopped || !canBeSent(attributes)) {
        return {.failure = Failure::NoService};
    }
    if (m_timedOutQuestions > 0) {
        return {.failure = Failure::Broken};
    }
    const auto question = std::make_shared<Question>();
    const bool mayUnlock = m_mayUnlockToFind && m_cancelledQuestions == 0;
    const Access access = !wantsSecrets ? Access::Attributes
                          : mayUnlock   ? Access::Secrets
                                        : Access::UnlockedSecrets;
    ++m_openQuestions;
    m_thread.run([this, question, attributes, access] {
        m_client.find(attributes, access, [this, question, access](const FoundItems &found) {
            didAnswer(*question, found, access);
        });
    });
    m_changed.wait_for(lock, cancellation, m_timeout, [&] { return question->answer.has_value(); });
    if (!question->answer && cancellation.stop_requested()) {
        question->isCancelled = true;
        ++m_cancelledQuestions;
        return {.failure = Failure::Cancelled};
    }
    if (!question->answer) {
        question->isTimedOut = true;
        ++m_timedOutQuestions;
        return {.failure = Failure::Broken};
    }
    return *question->answer;
}

void SecretStore::Implementation::didAnswer(Question &question, const FoundItems &found,
                                            Access access) {
    const Lock lock(m_mutex);
    --m_openQuestions;
    if (question.isTimedOut) {
        --m_timedOutQuestions;
    }
    if (question.isCancelled) {
        --m_cancelledQuestions;
    }
    if (access == Access::Secrets && found.isAnyLocked) {
        m_mayUnlockToFind = false;
    }
    question.answer = found;
    m_changed.notify_all();
}

quint64 SecretStore::Implementation::append(std::function<void(const Done &)> job) {
    m_jobs.push_back(std::move(job));
    if (m_jobs.size() == 1) {
        m_thread.run([this] { beginFirstJob(); });
    }
    return ++m_lastJob;
}

void SecretStore::Implementation::beginFirstJob() {
    std::function<void(const Done &)> job;
    {
        const Lock lock(m_mutex);
        job = m_jobs.front();
    }
    job([this] { didFirstJob(); });
}

void SecretStore::Implementation::didFirstJob() {
    const Lock lock(m_mutex);
    m_jobs.pop_front();
    if (!m_jobs.empty()) {
        m_thread.run([this] { beginFirstJob(); });
    }
    m_changed.notify_all();
}

void SecretStore::Implementation::set(const StoredSecret &item) {
    const Lock lock(m_mutex);
    Entry &entry = m_entries[item.attributes];
    entry = {.item = item};
    if (item.keeping == SecretKeeping::ThisRun || m_isStopped) {
        return;
    }
    if (!canBeSent(item.attributes)) {
        fail(Failure::Broken);
        return;
    }
    entry.job = append([this, attributes = item.attributes, job = m_lastJob + 1](const Done &done) {
        write(attributes, job, done);
    });
}

void SecretStore::Implementation::write(const SecretAttributes &attributes, quint64 job,
                                        const Done &done) {
    StoredSecret item;
    {
        const Lock lock(m_mutex);
        const auto found = m_entries.find(attributes);
        const bool isReplaced = found == m_entries.end() || found->second.job != job;
        if (!isReplaced && job > m_lastDeclinedJob) {
            item = found->second.item;
        }
    }
    if (item.attributes.empty()) {
        done();
        return;
    }
    m_client.store(item, [this, attributes, job, done](std::optional<Failure> failure) {
        didWrite(attributes, job, failure);
        done();
    });
}

void SecretStore::Implementation::didWrite(const SecretAttributes &attributes, quint64 job,
                                           std::optional<Failure> failure) {
    const Lock lock(m_mutex);
    if (!failure) {
        const auto found = m_entries.find(attributes);
        if (found != m_entries.end() && found->second.job == job) {
            m_entries.erase(found);
        }
        return;
    }
    if (failure == Failure::Locked) {
        m_lastDeclinedJob = m_lastJob;
    }
    fail(*failure);
}

void SecretStore::Implementation::fail(Failure failure) {
    if (m_error) {
        return;
    }
    m_error = errorOfWriting(failure);
    if (!m_isStopped && QCoreApplication::instance()) {
        MainQueue::dispatchAsync(
            [] { NotificationCenter::defaultCenter().post(SecretsNotKeptNotification, nullptr); });
    }
}

void SecretStore::Implementation::removeFirstLater(const SecretAttributes &attributes,
                                                   const RemovalHandler &handler) {
    const Lock lock(m_mutex);
    const auto deliver = [handler](const Expected<bool> &isRemoved) {
        MainQueue::dispatchAsync([handler, isRemoved] { handler(isRemoved); });
    };
    if (m_isStopped || !canBeSent(attributes)) {
        deliver(forgetFirst(attributes, m_lastJob));
        return;
    }
    append([this, attributes, job = m_lastJob + 1, deliver](const Done &done) {
        remove(attributes, job, deliver, done);
    });
}

void SecretStore::Implementation::remove(const SecretAttributes &attributes, quint64 job,
                                         const RemovalHandler &handler, const Done &done) {
    m_client.removeFirst(attributes, [this, attributes, job, handler,
                                      done](const tl::expected<bool, Failure> &fromService) {
        {
            const Lock lock(m_mutex);
            const Expected<bool> isRemoved = removed(fromService, forgetFirst(attributes, job));
            if (!m_isStopped) {
                handler(isRemoved);
            }
        }
        done();
    });
}

Expected<bool> SecretStore::Implementation::removed(const tl::expected<bool, Failure> &fromService,
                                                    bool isForgotten) {
    if (fromService) {
        return *fromService || isForgotten;
    }
    if (fromService.error() == Failure::NoService) {
        return isForgotten ? Expected<bool>(true) : failure(errorOfRemoving(Failure::NoService));
    }
    m_removalError = errorOfRemoving(fromService.error());
    if (!m_isStopped && QCoreApplication::instance()) {
        MainQueue::dispatchAsync([] {
            NotificationCenter::defaultCenter().post(SecretNotRemovedNotification, nullptr);
        });
    }
    return failure(*m_removalError);
}

bool SecretStore::Implementation::forgetFirst(const SecretAttributes &attributes, quint64 job) {
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const auto &entry) {
        return entry.second.job <= job && hasAll(entry.first, attributes);
    });
    if (found == m_entries.end()) {
        return false;
    }
    m_entries.erase(found);
    return true;
}

std::optional<Error> SecretStore::Implementation::error() const {
    const Lock lock(m_mutex);
    return m_error;
}

std::optional<Error> SecretStore::Implementation::removalError() const {
    const Lock lock(m_mutex);
    return m_removalError;
}

bool SecretStore::Implementation::finishWriting() {
    Lock lock(m_mutex);
    m_changed.wait_for(lock, m_timeout, [this] { return m_jobs.empty(); });
    return m_jobs.empty() && !m_error;
}

void SecretStore::Implementation::stop() {
    {
        Lock lock(m_mutex);
        if (m_isStopped) {
            return;
        }
        m_isStopped = true;
        m_changed.wait_for(lock, std::min(m_timeout, LongestEnd),
                           [this] { return m_jobs.empty(); });
        m_thread.run([this] { m_client.cancel(); });
        // If the service does not even confirm the cancellation, continue without it.
        m_changed.wait_for(lock, LongestCancellation,
                           [this] { return m_jobs.empty() && m_openQuestions == 0; });
    }
    m_thread.finish();
}

SecretStore &SecretStore::shared() {
    static SecretStore store;
    static const bool isStoppedInTime = [] {
        qAddPostRoutine([] { shared().m_implementation->stop(); });
        return true;
    }();
    Q_UNUSED(isStoppedInTime)
    return store;
}

SecretStore::SecretStore(std::chrono::milliseconds timeout)
    : m_implementation(std::make_unique<Implementation>(timeout)) {}

SecretStore::~SecretStore() = default;

Expected<QList<StoredSecret>> SecretStore::find(const SecretAttributes &attributes) {
    return find(attributes, std::stop_token());
}

Expected<QList<StoredSecret>> SecretStore::find(const SecretAttributes &attributes,
                                                const std::stop_token &cancellation) {
    return m_implementation->find(attributes, true, cancellation);
}

Expected<QList<SecretAttributes>> SecretStore::findAttributes(const SecretAttributes &attributes) {
    return m_implementation->find(attributes, false, {}).map(attributesOfAll);
}

void SecretStore::findLater(const SecretAttributes &attributes, const Handler &handler) {
    m_implementation->findLater(attributes, true, handler);
}

void SecretStore::findAttributesLater(const SecretAttributes &attributes,
                                      const AttributesHandler &handler) {
    m_implementation->findLater(attributes, false,
                                [handler](const Expected<QList<StoredSecret>> &items) {
                                    handler(items.map(attributesOfAll));
                                });
}

void SecretStore::set(const StoredSecret &item) {
    m_implementation->set(item);
}

void SecretStore::removeFirstLater(const SecretAttributes &attributes,
                                   const RemovalHandler &handler) {
    m_implementation->removeFirstLater(attributes, handler);
}

bool SecretStore::isServiceMissing(const Error &error) {
    return error.domain == ErrorDomain && error.code == static_cast<int>(Failure::NoService);
}

bool SecretStore::isCancelled(const Error &error) {
    return error.domain == ErrorDomain && error.code == static_cast<int>(Failure::Cancelled);
}

std::optional<Error> SecretStore::error() const {
    return m_implementation->error();
}

std::optional<Error> SecretStore::removalError() const {
    return m_implementation->removalError();
}

bool SecretStore::finishWriting() {
    return m_implementation->finishWriting();
}
