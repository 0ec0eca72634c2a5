#include "Platform/Security/SecretServiceClient.h"

#include <libsecret/secret.h>

#include <QtCore/QFileInfo>
#include <vector>

#include "Platform/Security/PromptAnswer.h"

namespace {

using Failure = SecretServiceClient::Failure;
using ServicePointer = std::shared_ptr<SecretService>;

/// The longest secret that is read, and the longest attributes of an item together, in bytes.
constexpr gsize LongestSecret = 64 << 10;
constexpr gsize LongestAttributes = 64 << 10;

template <class Object>
std::shared_ptr<Object> adopt(Object *object) {
    return object ? std::shared_ptr<Object>(object, &g_object_unref) : nullptr;
}

/// Receives the error that a GLib call stores through `out`.
class CallError {
public:
    CallError() = default;
    ~CallError() { g_clear_error(&m_error); }
    CallError(const CallError &) = delete;
    CallError &operator=(const CallError &) = delete;

    GError **out() { return &m_error; }
    explicit operator bool() const { return m_error; }

    Failure failure() const {
        if (g_error_matches(m_error, SECRET_ERROR, SECRET_ERROR_IS_LOCKED)) {
            return Failure::Locked;
        }
        if (g_error_matches(m_error, G_IO_ERROR, G_IO_ERROR_CANCELLED)) {
            return Failure::Cancelled;
        }
        const bool hasNoService =
            g_error_matches(m_error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) ||
            g_error_matches(m_error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER);
        return hasNoService ? Failure::NoService : Failure::Broken;
    }

private:
    GError *m_error = nullptr;
};

using Ready = std::function<void(GAsyncResult *)>;

/// Returns the user data for a call that `callReady` completes.
gpointer readyData(Ready ready) {
    return new Ready(std::move(ready));
}

void callReady(GObject * /*source*/, GAsyncResult *result, gpointer data) {
    const std::unique_ptr<Ready> ready(static_cast<Ready *>(data));
    (*ready)(result);
}

/// GLib would start a bus if there is none; a new bus has no password service.
bool hasSessionBus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

using Opened = std::function<void(const ServicePointer &, std::optional<Failure>)>;

void openService(GCancellable *cancellable, const Opened &opened) {
    const auto ready = [opened](GAsyncResult *result) {
        CallError error;
        const auto service = adopt(secret_service_open_finish(result, error.out()));
        opened(service, error ? std::optional(error.failure()) : std::nullopt);
    };
    secret_service_open(promptAnsweringServiceType(), nullptr, SECRET_SERVICE_OPEN_SESSION,
                        cancellable, &callReady, readyData(ready));
}

void open(const std::shared_ptr<GCancellable> &cancellable, const Opened &opened) {
    if (!hasSessionBus()) {
        opened(nullptr, Failure::NoService);
        return;
    }
    const auto ready = [cancellable, opened](GAsyncResult *result) {
        CallError error;
        const auto connection = adopt(g_bus_get_finish(result, error.out()));
        if (!connection) {
            const bool isCancelled = error.failure() == Failure::Cancelled;
            opened(nullptr, isCancelled ? Failure::Cancelled : Failure::NoService);
            return;
        }
        // GLib would terminate the process when the bus closes the connection.
        g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
        // The service shares this connection, which is the process-wide one.
        openService(cancellable.get(), [connection, opened](const ServicePointer &service,
                                                            std::optional<Failure> failure) {
            opened(service, failure);
        });
    };
    g_bus_get(G_BUS_TYPE_SESSION, cancellable.get(), &callReady, readyData(ready));
}

using AttributesPointer = std::unique_ptr<GHashTable, decltype(&g_hash_table_unref)>;

AttributesPointer hashTable(const SecretAttributes &attributes) {
    AttributesPointer table(g_hash_table_new_full(&g_str_hash, &g_str_equal, &g_free, &g_free),
                            &g_hash_table_unref);
    for (const auto &[name, value] : attributes) {
        g_hash_table_insert(table.get(), g_strdup(name.constData()), g_strdup(value.constData()));
    }
    return table;
}

SecretAttributes attributesOf(SecretItem *item) {
    const AttributesPointer table(secret_item_get_attributes(item), &g_hash_table_unref);
    SecretAttributes attributes;
    GHashTableIter iterator;
    g_hash_table_iter_init(&iterator, table.get());
    gpointer name = nullptr;
    gpointer value = nullptr;
    while (g_hash_table_iter_next(&iterator, &name, &value)) {
        attributes.emplace(static_cast<const char *>(name), static_cast<const char *>(value));
    }
    return attributes;
}

/// Takes ownership of the list and of its items.
std::vector<std::shared_ptr<SecretItem>> adoptItems(GList *list) {
    std::vector<std::shared_ptr<SecretItem>> items;
    for (GList *link = list; link; link = link->next) {
        items.push_back(adopt(static_cast<SecretItem *>(link->data)));
    }
    g_list_free(list);
    return items;
}

/// Returns why a request failed for which the user may be prompted. A dismissed prompt cancels the
/// request, which is something else than the cancellation by this program.
Failure failureOfPrompt(const CallError &error, GCancellable *cancellable) {
    const bool isDeclined = !error || (error.failure() == Failure::Cancelled &&
                                       !g_cancellable_is_cancelled(cancellable));
    return isDeclined ? Failure::Locked : error.failure();
}

void deleteItem(const ServicePointer &service, const std::shared_ptr<SecretItem> &item,
                const std::shared_ptr<GCancellable> &cancellable,
                const std::function<void(const tl::expected<bool, Failure> &)> &handler) {
    const auto deleted = [service, item, cancellable, handler](GAsyncResult *result) {
        CallError error;
        if (secret_item_delete_finish(item.get(), result, error.out())) {
            handler(true);
        } else {
            handler(tl::unexpected(failureOfPrompt(error, cancellable.get())));
        }
    };
    secret_item_delete(item.get(), cancellable.get(), &callReady, readyData(deleted));
}

/// Returns whether the service has returned the property `name` of the item with this type and not
/// too long.
bool hasProperty(SecretItem *item, const char *name, const char *type) {
    auto *proxy = reinterpret_cast<GDBusProxy *>(item);
    const std::unique_ptr<GVariant, decltype(&g_variant_unref)> value(
        g_dbus_proxy_get_cached_property(proxy, name), &g_variant_unref);
    const std::unique_ptr<GVariantType, decltype(&g_variant_type_free)> expected(
        g_variant_type_new(type), &g_variant_type_free);
    return value && g_variant_is_of_type(value.get(), expected.get()) &&
           g_variant_get_size(value.get()) <= LongestAttributes;
}

int searchFlags(SecretServiceClient::Access access) {
    switch (access) {
        case SecretServiceClient::Access::Attributes:
            return SECRET_SEARCH_ALL;
        case SecretServiceClient::Access::UnlockedSecrets:
            return SECRET_SEARCH_ALL | SECRET_SEARCH_LOAD_SECRETS;
        case SecretServiceClient::Access::Secrets:
            break;
    }
    return SECRET_SEARCH_ALL | SECRET_SEARCH_LOAD_SECRETS | SECRET_SEARCH_UNLOCK;
}

/// Adds `item` to `found`. Returns false if the service has returned invalid data.
bool addItem(SecretItem *item, SecretServiceClient::Access access,
             SecretServiceClient::FoundItems &found) {
    // Otherwise libsecret reads properties that are not there.
    if (!hasProperty(item, "Attributes", "a{ss}") || !hasProperty(item, "Locked", "b")) {
        return false;
    }
    if (access == SecretServiceClient::Access::Attributes) {
        found.items.append({.attributes = attributesOf(item)});
        return true;
    }
    const std::unique_ptr<SecretValue, decltype(&secret_value_unref)> value(
        secret_item_get_secret(item), &secret_value_unref);
    if (!value) {
        const bool isLocked = secret_item_get_locked(item);
        found.isAnyLocked |= isLocked;
        return isLocked;
    }
    gsize length = 0;
    const char *bytes = secret_value_get(value.get(), &length);
    if (length > LongestSecret) {
        return false;
    }
    found.items.append(
        {.attributes = attributesOf(item),
         .secret = SecretBytes(QByteArrayView(bytes, static_cast<qsizetype>(length)))});
    return true;
}

SecretServiceClient::FoundItems foundItems(GList *list, SecretServiceClient::Access access) {
    SecretServiceClient::FoundItems found;
    for (const auto &item : adoptItems(list)) {
        if (!addItem(item.get(), access, found)) {
            return {.failure = Failure::Broken};
        }
    }
    return found;
}

}  // namespace

SecretServiceClient::SecretServiceClient() : m_cancellable(adopt(g_cancellable_new())) {}

SecretServiceClient::~SecretServiceClient() = default;

void SecretServiceClient::cancel() {
    g_cancellable_cancel(m_cancellable.get());
}

void SecretServiceClient::find(const SecretAttributes &attributes, Access access,
                               const std::function<void(const FoundItems &)> &handler) {
    const auto opened = [cancellable = m_cancellable, attributes, access, handler](
                            const ServicePointer &service, std::optional<Failure> failure) {
        if (failure) {
            handler({.failure = failure});
            return;
        }
        const auto ready = [service, access, handler](GAsyncResult *result) {
            CallError error;
            GList *list = secret_service_search_finish(service.get(), result, error.out());
            handler(error ? FoundItems{.failure = error.failure()} : foundItems(list, access));
        };
        secret_service_search(service.get(), nullptr, hashTable(attributes).get(),
                              static_cast<SecretSearchFlags>(searchFlags(access)),
                              cancellable.get(), &callReady, readyData(ready));
    };
    open(m_cancellable, opened);
}

void SecretServiceClient::store(const StoredSecret &item,
                                const std::function<void(std::optional<Failure>)> &handler) {
    const auto opened = [this, item, handler](const ServicePointer &service,
                                              std::optional<Failure> failure) {
        if (failure) {
            handler(failure);
            return;
        }
        const auto ready = [this, service, handler](GAsyncResult *result) {
            CallError error;
            if (secret_service_store_finish(service.get(), result, error.out())) {
                handler(std::nullopt);
                return;
            }
            handler(failureOfPrompt(error, m_cancellable.get()));
        };
        const std::unique_ptr<SecretValue, decltype(&secret_value_unref)> value(
            secret_value_new(item.secret.view().data(), item.secret.view().size(), "text/plain"),
            &secret_value_unref);
        secret_service_store(service.get(), nullptr, hashTable(item.attributes).get(),
                             SECRET_COLLECTION_DEFAULT, item.label.toUtf8().constData(),
                             value.get(), m_cancellable.get(), &callReady, readyData(ready));
    };
    open(m_cancellable, opened);
}

void SecretServiceClient::removeFirst(
    const SecretAttributes &attributes,
    const std::function<void(const tl::expected<bool, Failure> &)> &handler) {
    const auto opened = [cancellable = m_cancellable, attributes, handler](
                            const ServicePointer &service, std::optional<Failure> failure) {
        if (failure) {
            handler(tl::unexpected(*failure));
            return;
        }
        const auto found = [service, cancellable, handler](GAsyncResult *result) {
            CallError error;
            const auto items =
                adoptItems(secret_service_search_finish(service.get(), result, error.out()));
            if (error) {
                handler(tl::unexpected(failureOfPrompt(error, cancellable.get())));
            } else if (items.empty()) {
                handler(false);
            } else if (secret_item_get_locked(items.front().get())) {
                handler(tl::unexpected(Failure::Locked));
            } else {
                deleteItem(service, items.front(), cancellable, handler);
            }
        };
        secret_service_search(service.get(), nullptr, hashTable(attributes).get(),
                              SECRET_SEARCH_UNLOCK, cancellable.get(), &callReady,
                              readyData(found));
    };
    open(m_cancellable, opened);
}
