#include "Support/PromptingSecretService.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVariant>

namespace {

const QString ServicePath = QStringLiteral("/org/freedesktop/secrets");
const QString LockedItemPath = QStringLiteral("/org/freedesktop/secrets/collection/only/locked");
const QString OpenItemPath = QStringLiteral("/org/freedesktop/secrets/collection/only/open");
const QString PromptPath = QStringLiteral("/org/freedesktop/secrets/prompt/1");
const QString NoPath = QStringLiteral("/");

QVariant paths(const QStringList &texts) {
    QList<QDBusObjectPath> result;
    for (const QString &text : texts) {
        result.append(QDBusObjectPath(text));
    }
    return QVariant::fromValue(result);
}

QVariant path(const QString &text) {
    return QVariant::fromValue(QDBusObjectPath(text));
}

QVariantMap itemProperties(bool isLocked) {
    return {{QStringLiteral("Locked"), isLocked},
            {QStringLiteral("Attributes"), QVariant::fromValue(QMap<QString, QString>())},
            {QStringLiteral("Label"), QStringLiteral("of a test")},
            {QStringLiteral("Type"), QString()},
            {QStringLiteral("Created"), QVariant::fromValue<quint64>(0)},
            {QStringLiteral("Modified"), QVariant::fromValue<quint64>(0)}};
}

}  // namespace

PromptingSecretService::PromptingSecretService(const QString &busAddress, User user)
    : BusService(busAddress, QStringLiteral("org.freedesktop.secrets"), ServicePath), m_user(user) {
    qDBusRegisterMetaType<QMap<QString, QString>>();
    enterBus();
}

PromptingSecretService::~PromptingSecretService() {
    leaveBus();
}

QString PromptingSecretService::firstAlgorithm() const {
    const std::lock_guard lock(m_mutex);
    return m_firstAlgorithm;
}

bool PromptingSecretService::handleMessage(const QDBusMessage &message,
                                           const QDBusConnection &connection) {
    if (message.member() == QLatin1StringView("OpenSession")) {
        const QString algorithm = message.arguments().value(0).toString();
        {
            const std::lock_guard lock(m_mutex);
            m_firstAlgorithm = m_firstAlgorithm.isEmpty() ? algorithm : m_firstAlgorithm;
        }
        if (algorithm != QLatin1StringView("plain")) {
            return connection.send(message.createErrorReply(QDBusError::NotSupported, QString()));
        }
    }
    connection.send(message.createReply(answer(message)));
    if (message.member() == QLatin1StringView("Prompt")) {
        ++m_countOfPrompts;
        if (m_user == User::Declines) {
            QDBusMessage completed = QDBusMessage::createSignal(
                PromptPath, QStringLiteral("org.freedesktop.Secret.Prompt"),
                QStringLiteral("Completed"));
            completed << true << QVariant::fromValue(QDBusVariant(QString()));
            connection.send(completed);
        }
    }
    return true;
}

QVariantList PromptingSecretService::answer(const QDBusMessage &message) {
    const QString member = message.member();
    if (member == QLatin1StringView("OpenSession")) {
        return {QVariant::fromValue(QDBusVariant(QString())),
                path(ServicePath + QStringLiteral("/session/1"))};
    }
    if (member == QLatin1StringView("SearchItems")) {
        const auto wanted = qdbus_cast<QMap<QString, QString>>(message.arguments().value(0));
        const bool isOpen = wanted.value(QStringLiteral("name")) == QLatin1StringView("open");
        return {paths(isOpen ? QStringList{OpenItemPath} : QStringList()),
                paths(isOpen ? QStringList() : QStringList{LockedItemPath})};
    }
    if (member == QLatin1StringView("Unlock")) {
        const auto locked = qdbus_cast<QList<QDBusObjectPath>>(message.arguments().value(0));
        return {paths({}), path(locked.isEmpty() ? NoPath : PromptPath)};
    }
    if (member == QLatin1StringView("CreateItem")) {
        return {path(NoPath), path(PromptPath)};
    }
    if (member == QLatin1StringView("Delete")) {
        return {path(PromptPath)};
    }
    if (member == QLatin1StringView("GetAll")) {
        return {itemProperties(message.path() != OpenItemPath)};
    }
    return {};
}
