#include "Support/HostileSecretService.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>

#include "Support/DBusSecret.h"

namespace {

constexpr int FewItems = 10;
constexpr int ManyItems = 400;
constexpr int TooManyItems = 10'000;
/// Of a secret or an attribute, in bytes.
constexpr qsizetype GiantSize = 1 << 20;

const QString HostileItemPath = QStringLiteral("/org/freedesktop/secrets/collection/only/item%1");

}  // namespace

HostileSecretService::HostileSecretService(const QString &busAddress, Attack attack)
    : PromptingSecretService(busAddress, User::LooksAway), m_attack(attack) {
    qDBusRegisterMetaType<DBusSecret>();
    qDBusRegisterMetaType<QMap<QDBusObjectPath, DBusSecret>>();
}

HostileSecretService::~HostileSecretService() {
    leaveBus();
}

bool HostileSecretService::handleMessage(const QDBusMessage &message,
                                         const QDBusConnection &connection) {
    const QString member = message.member();
    if (member == QLatin1StringView("SearchItems")) {
        return m_attack == Attack::Silence || connection.send(message.createReply(items()));
    }
    if (member == QLatin1StringView("GetAll")) {
        const bool isReturned =
            m_attack != Attack::ManyItems || message.path() != HostileItemPath.arg(ManyItems - 1);
        return !isReturned || connection.send(message.createReply(properties()));
    }
    if (member == QLatin1StringView("GetSecrets")) {
        if (m_attack == Attack::Disappearance) {
            disappear();
            return true;
        }
        return connection.send(message.createReply(secrets(message)));
    }
    return PromptingSecretService::handleMessage(message, connection);
}

QVariantList HostileSecretService::items() const {
    if (m_attack == Attack::TypesOfSearches) {
        return {QStringLiteral("/"), 7};
    }
    QList<QDBusObjectPath> paths;
    const int count = m_attack == Attack::ManyItems      ? ManyItems
                      : m_attack == Attack::TooManyItems ? TooManyItems
                                                         : FewItems;
    for (int i = 0; i < count; ++i) {
        paths.append(QDBusObjectPath(HostileItemPath.arg(i)));
    }
    return {QVariant::fromValue(paths), QVariant::fromValue(QList<QDBusObjectPath>())};
}

QVariantList HostileSecretService::properties() const {
    if (m_attack == Attack::TypesOfProperties) {
        return {QVariantMap{{QStringLiteral("Locked"), QStringLiteral("no")},
                            {QStringLiteral("Attributes"), 7},
                            {QStringLiteral("Label"), QStringList()}}};
    }
    QMap<QString, QString> attributes{{QStringLiteral("name"), QStringLiteral("one")}};
    if (m_attack == Attack::GiantAttributes) {
        attributes.insert(QStringLiteral("giant"), QString(GiantSize, u'x'));
    }
    return {QVariantMap{{QStringLiteral("Locked"), false},
                        {QStringLiteral("Attributes"), QVariant::fromValue(attributes)},
                        {QStringLiteral("Label"), QStringLiteral("of a test")}}};
}

QVariantList HostileSecretService::secrets(const QDBusMessage &message) const {
    if (m_attack == Attack::TypesOfSecrets) {
        return {QStringList{QStringLiteral("secret")}};
    }
    const auto items = qdbus_cast<QList<QDBusObjectPath>>(message.arguments().value(0));
    const auto session = message.arguments().value(1).value<QDBusObjectPath>();
    QMap<QDBusObjectPath, DBusSecret> secrets;
    for (const QDBusObjectPath &item : items) {
        const qsizetype size = m_attack == Attack::GiantSecrets ? GiantSize : 1;
        secrets.insert(item, {.session = session,
                              .value = QByteArray(size, 's'),
                              .contentType = QStringLiteral("text/plain")});
    }
    return {QVariant::fromValue(secrets)};
}
