#include "Platform/Security/PromptAnswer.h"

#include <libsecret/secret.h>

#include <memory>

namespace {

/// A prompt that is open.
struct OpenPrompt {
    GTask *task = nullptr;
    GDBusConnection *connection = nullptr;
    guint subscription = 0;
    bool isDismissed = false;
};

void noteCompleted(GDBusConnection * /*connection*/, const gchar * /*sender*/,
                   const gchar * /*path*/, const gchar * /*interface*/, const gchar * /*signal*/,
                   GVariant *parameters, gpointer prompt) {
    if (g_variant_is_of_type(parameters, G_VARIANT_TYPE("(bv)"))) {
        gboolean isDismissed = FALSE;
        g_variant_get(parameters, "(bv)", &isDismissed, nullptr);
        static_cast<OpenPrompt *>(prompt)->isDismissed = isDismissed;
    }
}

void endPrompt(GObject *prompt, GAsyncResult *result, gpointer data) {
    const std::unique_ptr<OpenPrompt> open(static_cast<OpenPrompt *>(data));
    g_dbus_connection_signal_unsubscribe(open->connection, open->subscription);
    GError *error = nullptr;
    GVariant *value =
        secret_prompt_perform_finish(reinterpret_cast<SecretPrompt *>(prompt), result, &error);
    const auto release = reinterpret_cast<GDestroyNotify>(&g_variant_unref);
    if (error) {
        g_task_return_error(open->task, error);
    } else if (value && !open->isDismissed) {
        g_task_return_pointer(open->task, value, release);
    } else {
        if (value) {
            g_variant_unref(value);
        }
        g_task_return_new_error(open->task, G_IO_ERROR, G_IO_ERROR_CANCELLED, "dismissed");
    }
    g_object_unref(open->task);
    g_object_unref(open->connection);
}

void beginPrompt(SecretService *service, SecretPrompt *prompt, const GVariantType *resultType,
                 GCancellable *cancellable, GAsyncReadyCallback callback, gpointer data) {
    auto open = std::make_unique<OpenPrompt>();
    auto *proxy = reinterpret_cast<GDBusProxy *>(prompt);
    open->task = g_task_new(service, cancellable, callback, data);
    open->connection = g_dbus_proxy_get_connection(proxy);
    g_object_ref(open->connection);
    const std::unique_ptr<gchar, decltype(&g_free)> owner(g_dbus_proxy_get_name_owner(proxy),
                                                          &g_free);
    // Subscribed before libsecret subscribes, and therefore notified before it.
    open->subscription = g_dbus_connection_signal_subscribe(
        open->connection, owner.get(), "org.freedesktop.Secret.Prompt", "Completed",
        g_dbus_proxy_get_object_path(proxy), nullptr, G_DBUS_SIGNAL_FLAGS_NONE, &noteCompleted,
        open.get(), nullptr);
    secret_prompt_perform(prompt, "", resultType, cancellable, &endPrompt, open.release());
}

GVariant *finishPrompt(SecretService * /*service*/, GAsyncResult *result, GError **error) {
    return static_cast<GVariant *>(
        g_task_propagate_pointer(reinterpret_cast<GTask *>(result), error));
}

void initializeClass(gpointer classStructure, gpointer /*data*/) {
    auto *serviceClass = static_cast<SecretServiceClass *>(classStructure);
    serviceClass->prompt_async = &beginPrompt;
    serviceClass->prompt_finish = &finishPrompt;
}

}  // namespace

std::size_t promptAnsweringServiceType() {
    static const GType type = g_type_register_static_simple(
        SECRET_TYPE_SERVICE, "PromptAnsweringSecretService", sizeof(SecretServiceClass),
        &initializeClass, sizeof(SecretService), nullptr, static_cast<GTypeFlags>(0));
    return type;
}
