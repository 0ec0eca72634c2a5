#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <memory>

#include "Platform/PlatformExport.h"

/// A secret, such as a password: constant bytes in memory of their own, which is kept out of swap
/// space and core files and is wiped when the last copy is destroyed. A value; copies share the
/// memory. Nothing converts it to another type implicitly. Thread-safe as a std::shared_ptr is.
///
/// If the system does not let the process lock memory (see mlock(2)), the bytes may reach the swap
/// space.
class PLATFORM_EXPORT SecretBytes {
public:
    /// Empty.
    SecretBytes() = default;
    /// Copies `bytes`, which the caller may wipe.
    SecretBytes(const QByteArray &bytes) : SecretBytes(QByteArrayView(bytes)) {}
    /// Copies `bytes`. Throws std::bad_alloc if there is no memory.
    explicit SecretBytes(QByteArrayView bytes);
    /// Copies `text` as UTF-8.
    SecretBytes(const QString &text);

    /// Returns whether there are no bytes.
    bool isEmpty() const { return view().isEmpty(); }
    /// Returns the bytes, which are valid as long as this object or a copy of it. Not terminated by
    /// a zero byte.
    QByteArrayView view() const;
    /// Returns a copy of the bytes. The caller should wipe it.
    QByteArray toByteArray() const { return view().toByteArray(); }
    /// Returns a copy of the text that the bytes are in UTF-8. The caller should wipe it.
    QString toText() const { return QString::fromUtf8(view()); }

    /// Compares the bytes, in a time that depends on them.
    friend bool operator==(const SecretBytes &a, const SecretBytes &b) {
        return a.view() == b.view();
    }

    /// Overwrites the characters unless another object shares them, and empties the object.
    static void wipe(QByteArray &bytes);
    /// Does the same to a text.
    static void wipe(QString &text);

private:
    class Memory;
    /// Null if empty.
    std::shared_ptr<const Memory> m_memory;
};
