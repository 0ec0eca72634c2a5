#include "HostCheck/CredentialPromises.h"

#include "Host/QVDirectConnectionServer.h"
#include "Host/QVSyncStore.h"
#include "Host/UnencryptedPasswords.h"
#include "HostCheck/Checking.h"
#include "HostCheck/Handler.h"
#include "HostCheck/PasswordServer.h"
#include "Platform/Security/UrlCredentialStorage.h"

using namespace Checking;

namespace CredentialPromises {
namespace {

constexpr char Header[] = "Host/QVSyncStore.h";

/// Stores a password for the user and the server of `URL` until the process ends.
void storePassword(const Url &URL) {
    UrlCredentialStorage::shared().setCredentialForProtectionSpace(
        {.user = URL.user(),
         .password = QStringLiteral("s3cret"),
         .persistence = UrlCredential::Persistence::ForSession},
        UrlProtectionSpace::ofURL(URL, UrlAuthenticationMethodHttpBasic));
}

/// The consent that a password is sent to the server of `URL` unencrypted, while this object
/// exists.
class Consent {
public:
    explicit Consent(const Url &URL) : m_URL(URL) {
        require(UnencryptedPasswords::accept(URL).has_value(),
                "the check could not change the user defaults");
    }
    ~Consent() {
        if (!UnencryptedPasswords::forget(m_URL)) {
            qWarning("The check could not change the user defaults back.");
        }
    }
    Consent(const Consent &) = delete;
    Consent &operator=(const Consent &) = delete;

private:
    const Url m_URL;
};

/// Opens a store at `server`, which fails. Throws NotOffered if the host uses no such servers.
void open(const PasswordServer &server) {
    const auto location = newLocation(server.URL());
    const auto store = location->createStore();
    require(store != nullptr, "no store was made");
    Handler<std::optional<Error>> opened;
    store->openWithCompletionHandler(opened.function());
    opened.requireCall();
    requireOffer(server.hasAsked());
}

void storedPasswordIsUsed() {
    const PasswordServer server;
    const Consent consent(server.URL());
    storePassword(server.URL());
    open(server);
    const QByteArray expected = (server.URL().user() + QStringLiteral(":s3cret")).toUtf8();
    require(server.credentials().contains(expected.toBase64()), "the stored password is not used");
}

void passwordIsForItsServer() {
    const PasswordServer server;
    const PasswordServer other;
    const Consent consent(server.URL());
    storePassword(other.URL());
    open(server);
    require(server.credentials().isEmpty(), "the password of another server is sent");
}

void passwordIsNotSentUnasked() {
    const PasswordServer server;
    storePassword(server.URL());
    open(server);
    require(server.credentials().isEmpty(), "the password is sent before the user has accepted it");
}

void serviceOfClientsHasAName() {
    classObject<QVDirectConnectionServer::Class>();
    require(!QVDirectConnectionClientAuthorizationServiceName().isEmpty(), "it is empty");
}

constexpr char Stored[] =
    "A store that needs a user name and a password uses those that UrlCredentialStorage::shared() "
    "has for its address, in which the pane stores them.";

constexpr HostPromise Promises[] = {
    {"QVSyncStore (password)", Header, Stored, &storedPasswordIsUsed},
    {"QVSyncStore (password of another server)", Header, Stored, &passwordIsForItsServer},
    {"QVSyncStore (unencrypted password)", Header,
     "It sends a password in a way that others on the network can read only if "
     "UnencryptedPasswords::areAccepted().",
     &passwordIsNotSentUnasked},
    {"QVDirectConnectionServer.clientAuthorizationServiceName", "Host/QVDirectConnectionServer.h",
     "Implements QVDirectConnectionClientAuthorizationServiceName(). Never empty.",
     &serviceOfClientsHasAName},
};

}  // namespace

QList<HostPromise> all() {
    return {std::begin(Promises), std::end(Promises)};
}

}  // namespace CredentialPromises
