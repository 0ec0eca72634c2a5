#include "Host/UnencryptedPasswords.h"

#include "Platform/Foundation/Url.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

QString keyOf(const Url &URL) {
    constexpr quint16 defaultPort = 80;
    return QStringLiteral("QVUnencryptedPasswordAccepted %1:%2")
        .arg(URL.host().toLower())
        .arg(URL.port().value_or(defaultPort));
}

}  // namespace

Expected<bool> UnencryptedPasswords::areAccepted(const Url &URL) {
    return UserDefaults::boolForKey(keyOf(URL));
}

Expected<void> UnencryptedPasswords::accept(const Url &URL) {
    return UserDefaults::setValue(keyOf(URL), true);
}

bool UnencryptedPasswords::isSameServer(const Url &URL, const Url &other) {
    return keyOf(URL) == keyOf(other);
}

Expected<void> UnencryptedPasswords::forget(const Url &URL) {
    return UserDefaults::remove(keyOf(URL));
}
