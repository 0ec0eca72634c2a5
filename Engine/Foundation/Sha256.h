#pragma once

#include <QtCore/QByteArray>
#include <initializer_list>

/// Returns the SHA-256 digest of `parts`, one after the other: 32 bytes. Uses the processor's
/// instructions for it, if there are any, which makes it several times as fast as Qt's.
/// Thread-safe.
QByteArray sha256(std::initializer_list<QByteArrayView> parts);
inline QByteArray sha256(const QByteArray &bytes) {
    return sha256({QByteArrayView(bytes)});
}
