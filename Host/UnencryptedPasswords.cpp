#include "Host/UnencryptedPasswords.h"

#include "Host/LocationSchemes.h"
#include "Platform/Foundation/Url.h"
#include "Platform/Foundation/UserDefaults.h"

namespace {

QString keyOf(const Url &URL) {
    return QStringLiteral("QVUnencryptedPasswordAccepted %1:%2")
        .arg(URL.host().toLower())
        .arg(URL.port().value_or(LocationSchemes::HttpPort));
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
