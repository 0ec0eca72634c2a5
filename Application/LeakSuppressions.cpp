/// Returns what the leak check of the address sanitizer, which calls this function, passes over:
/// memory that GLib allocates. libproxy, which Qt asks for the proxies of the desktop, forgets
/// addresses made by GLib. A recorded call stack ends in GLib, so neither libproxy can be named
/// instead, nor is anything passed over that Velmora allocates.
// NOLINTNEXTLINE(*-reserved-identifier, cert-dcl*)
extern "C" __attribute__((visibility("default"))) const char *__lsan_default_suppressions() {
    return "leak:libglib-2.0.so\n";
}
