#include "Platform/Security/SecretServiceClient.h"

#include <libsecret/secret.h>

#include <QtCore/QFileInfo>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Security/PromptAnswer.h"

namespace {

using Failure = SecretServiceClient::Failure;
using ServicePointer = std::shared_ptr<SecretService>;

/// The longest secret that is read, and the longest attributes of an item together, in bytes.
constexpr gsize LongestSecret = 64 << 10;
constexpr gsize LongestAttributes = 64 << 10;

/// The number of items with the same attributes that are read.
constexpr std::size_t MostItems = 500;

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

using Items = std::vector<std::shared_ptr<SecretItem>>;
using ItemsHandler = std::function<void(const tl::expected<Items, Failure> &)>;
using ListPointer = std::unique_ptr<GList, decltype(&g_list_free)>;

/// Returns a list that shares no ownership of the items.
ListPointer listOf(const Items &items) {
    GList *list = nullptr;
    for (const auto &item : items) {
        list = g_list_append(list, item.get());
    }
    return {list, &g_list_free};
}

SecretServiceClient::FoundItems foundItems(const Items &items, SecretServiceClient::Access access) {
    SecretServiceClient::FoundItems found;
    for (const auto &item : items) {
        if (!addItem(item.get(), access, found)) {
            return {.failure = Failure::Broken};
        }
    }
    return found;
}

/// The items of a search that are being read.
struct ItemsRead {
    Items items;
    std::size_t remaining = 0;
    std::optional<Failure> failure;
    ItemsHandler handler;

    /// Calls the handler when all items are read.
    void countDown() {
        if (--remaining > 0) {
            return;
        }
        handler(failure ? tl::expected<Items, Failure>(tl::unexpected(*failure)) : items);
    }
};

/// Reads the items at `paths`, in their order, without their secrets.
void readItems(const ServicePointer &service, const std::vector<std::string> &paths,
               GCancellable *cancellable, const ItemsHandler &handler) {
    if (paths.size() > MostItems) {
        handler(tl::unexpected(Failure::Broken));
        return;
    }
    const auto read = std::make_shared<ItemsRead>();
    read->items.resize(paths.size());
    // One more, for this function.
    read->remaining = paths.size() + 1;
    read->handler = handler;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const auto ready = [service, read, i](GAsyncResult *result) {
            CallError error;
            read->items[i] = adopt(secret_item_new_for_dbus_path_finish(result, error.out()));
            if (error) {
                read->failure = error.failure();
            }
            read->countDown();
        };
        secret_item_new_for_dbus_path(service.get(), paths[i].c_str(), SECRET_ITEM_NONE,
                                      cancellable, &callReady, readyData(ready));
    }
    read->countDown();
}

/// Appends the texts of `list`, which it frees.
void takeTexts(gchar **list, std::vector<std::string> &texts) {
    for (gchar **text = list; text && *text; ++text) {
        texts.emplace_back(*text);
    }
    g_strfreev(list);
}

/// Reads the items that have all of `attributes`, without their secrets; those that are not locked
/// come first.
void searchItems(const ServicePointer &service, const SecretAttributes &attributes,
                 const std::shared_ptr<GCancellable> &cancellable, const ItemsHandler &handler) {
    const auto ready = [service, cancellable, handler](GAsyncResult *result) {
        CallError error;
        gchar **unlocked = nullptr;
        gchar **locked = nullptr;
        secret_service_search_for_dbus_paths_finish(service.get(), result, &unlocked, &locked,
                                                    error.out());
        std::vector<std::string> paths;
        takeTexts(unlocked, paths);
        takeTexts(locked, paths);
        if (error) {
            handler(tl::unexpected(error.failure()));
        } else {
            readItems(service, paths, cancellable.get(), handler);
        }
    };
    secret_service_search_for_dbus_paths(service.get(), nullptr, hashTable(attributes).get(),
                                         cancellable.get(), &callReady, readyData(ready));
}

/// Asks the user to unlock those of `items` that are locked, then calls `handler`. Those that stay
/// locked, for whatever reason, are seen to be.
void unlock(const ServicePointer &service, const Items &items, GCancellable *cancellable,
            const std::function<void()> &handler) {
    Items locked;
    for (const auto &item : items) {
        if (hasProperty(item.get(), "Locked", "b") && secret_item_get_locked(item.get())) {
            locked.push_back(item);
        }
    }
    if (locked.empty()) {
        handler();
        return;
    }
    const auto ready = [service, locked, handler](GAsyncResult *result) {
        secret_service_unlock_finish(service.get(), result, nullptr, nullptr);
        handler();
    };
    secret_service_unlock(service.get(), listOf(locked).get(), cancellable, &callReady,
                          readyData(ready));
}

/// Reads the secrets of `items`, as far as they can be read, then calls `handler`.
void loadSecrets(const Items &items, GCancellable *cancellable,
                 const std::function<void()> &handler) {
    const auto ready = [items, handler](GAsyncResult *result) {
        // An item without a secret is seen to have none.
        secret_item_load_secrets_finish(result, nullptr);
        handler();
    };
    secret_item_load_secrets(listOf(items).get(), cancellable, &callReady, readyData(ready));
}

/// Reads of `items` what `access` asks for, and calls `handler` with it.
void readSecrets(const ServicePointer &service, const Items &items,
                 SecretServiceClient::Access access,
                 const std::shared_ptr<GCancellable> &cancellable,
                 const std::function<void(const SecretServiceClient::FoundItems &)> &handler) {
    using Access = SecretServiceClient::Access;
    const auto finish = [items, access, cancellable, handler] {
        const bool isCancelled = g_cancellable_is_cancelled(cancellable.get());
        handler(isCancelled ? SecretServiceClient::FoundItems{.failure = Failure::Cancelled}
                            : foundItems(items, access));
    };
    const auto load = [items, cancellable, finish] {
        loadSecrets(items, cancellable.get(), finish);
    };
    if (items.empty() || access == Access::Attributes) {
        finish();
    } else if (access == Access::UnlockedSecrets) {
        load();
    } else {
        unlock(service, items, cancellable.get(), load);
    }
}

/// Deletes `item`, after asking the user to unlock it if it is locked.
void deleteUnlocked(const ServicePointer &service, const std::shared_ptr<SecretItem> &item,
                    const std::shared_ptr<GCancellable> &cancellable,
                    const std::function<void(const tl::expected<bool, Failure> &)> &handler) {
    unlock(service, {item}, cancellable.get(), [service, item, cancellable, handler] {
        if (g_cancellable_is_cancelled(cancellable.get())) {
            handler(tl::unexpected(Failure::Cancelled));
        } else if (!hasProperty(item.get(), "Locked", "b") || secret_item_get_locked(item.get())) {
            handler(tl::unexpected(Failure::Locked));
        } else {
            deleteItem(service, item, cancellable, handler);
        }
    });
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
        searchItems(
            service, attributes, cancellable,
            [service, access, cancellable, handler](const tl::expected<Items, Failure> &items) {
                if (items) {
                    readSecrets(service, *items, access, cancellable, handler);
                } else {
                    handler({.failure = items.error()});
                }
            });
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
        const auto found = [service, cancellable,
                            handler](const tl::expected<Items, Failure> &items) {
            if (!items) {
                handler(tl::unexpected(items.error()));
            } else if (items->empty()) {
                handler(false);
            } else {
                deleteUnlocked(service, items->front(), cancellable, handler);
            }
        };
        searchItems(service, attributes, cancellable, found);
    };
    open(m_cancellable, opened);
}
