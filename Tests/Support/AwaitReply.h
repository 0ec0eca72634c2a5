#pragma once

#include <QtDBus/QDBusMessage>

class QDBusPendingCall;

/// Processes events until `call` has ended, and returns its reply, which is an error message if the
/// call has failed or timed out. QDBusConnection::call() with QDBus::BlockWithGui does not return
/// if the reply arrives while it begins to wait. Must be called on a thread with an event loop.
QDBusMessage awaitReply(const QDBusPendingCall &call);
