#include "Engine/Stores/WebDAV/WebDAVPassword.h"

#include <algorithm>

#include "Application/Interface/QuestionPresenter.h"
#include "Engine/Stores/SecretRemoval.h"
#include "Host/LocationSchemes.h"
#include "Host/SyncStrings.h"
#include "Host/UnencryptedPasswords.h"
#include "Platform/Security/UrlCredentialStorage.h"

namespace {

/// Returns the user and the server, as in an address: one server may have several users.
QString accountOf(const Url &URL) {
    return URL.user().isEmpty() ? URL.host() : URL.user() + u'@' + URL.host();
}

void ask(const SecretRemoval &removal) {
    QuestionPresenter *presenter = QuestionPresenter::ofApplication();
    if (!presenter) {
        return;
    }
    presenter->ask({localizedSyncString("Forget the password of “%1”?").arg(accountOf(removal.URL)),
                    localizedSyncString("No location of the list uses this password any more."),
                    localizedSyncString("Forget"), localizedSyncString("Keep")},
                   [removal](bool isAccepted) {
                       // The user may have added such a location meanwhile.
                       if (isAccepted && !removal.isNeeded()) {
                           UrlCredentialStorage::shared().removeCredentialForURL(removal.URL,
                                                                                 removal.finish);
                       } else {
                           removal.finish({});
                       }
                   });
}

}  // namespace

bool WebDAVPassword::isShared(const Url &URL, const Url &other) {
    return UrlProtectionSpace::ofURL(other, {}) == UrlProtectionSpace::ofURL(URL, {}) &&
           (other.user().isNull() || other.user() == URL.user());
}

Expected<void> WebDAVPassword::forgetConsent(const Url &URL, const QList<Url> &others) {
    const bool isNeeded = std::any_of(others.begin(), others.end(), [&](const Url &other) {
        return other.scheme() == LocationSchemes::Http &&
               UnencryptedPasswords::isSameServer(URL, other);
    });
    return isNeeded || URL.scheme() != LocationSchemes::Http ? Expected<void>()
                                                             : UnencryptedPasswords::forget(URL);
}

void WebDAVPassword::forget(const SecretRemoval &removal) {
    UrlCredentialStorage::shared().findUsersForURL(
        removal.URL, [removal](const Expected<QStringList> &users) {
            if (users && users->contains(removal.URL.user())) {
                ask(removal);
            } else {
                removal.finish(users.map([](const QStringList &) {}));
            }
        });
}
