#include "Support/SecretService.h"

#include <sys/prctl.h>

#include <QtCore/QDir>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusObjectPath>
#include <QtTest/QtTest>
#include <csignal>
#include <stdexcept>

#include "Support/DBusSecret.h"

namespace {

const QString ServicePath = QStringLiteral("/org/freedesktop/secrets");
const QString DefaultCollectionPath = QStringLiteral("/org/freedesktop/secrets/aliases/default");
const QString ServiceInterface = QStringLiteral("org.freedesktop.Secret.Service");

using Attributes = QMap<QString, QString>;

QDBusMessage methodCall(const QString &path, const QString &interface, const QString &method,
                        const QVariantList &arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.secrets"),
                                                          path, interface, method);
    message.setArguments(arguments);
    return message;
}

}  // namespace

SecretService::SecretService() : m_addressBefore(qgetenv("DBUS_SESSION_BUS_ADDRESS")) {
    qDBusRegisterMetaType<DBusSecret>();
    qDBusRegisterMetaType<Attributes>();
    for (const char *folder : {"run", "data", "config", "cache"}) {
        QDir(m_directory.path()).mkdir(QLatin1StringView(folder));
    }
    QFile::setPermissions(m_directory.filePath(QStringLiteral("run")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    startKeyring();
    qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress().toUtf8());
}

SecretService::~SecretService() {
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_addressBefore);
    stopKeyring();
}

void SecretService::startBus() {
    m_bus.start();
}

void SecretService::stopBus() {
    m_bus.stop();
    stopKeyring();
}

void SecretService::startKeyring(const QByteArray &password) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress());
    environment.insert(QStringLiteral("HOME"), m_directory.path());
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"),
                       m_directory.filePath(QStringLiteral("run")));
    environment.insert(QStringLiteral("XDG_DATA_HOME"),
                       m_directory.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"),
                       m_directory.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"),
                       m_directory.filePath(QStringLiteral("cache")));
    environment.remove(QStringLiteral("GNOME_KEYRING_CONTROL"));
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    m_keyring.setProcessEnvironment(environment);
    // Whatever becomes of the test, nothing of it stays.
    m_keyring.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_keyring.start(QStringLiteral("gnome-keyring-daemon"),
                    {QStringLiteral("--foreground"), QStringLiteral("--unlock"),
                     QStringLiteral("--components=secrets")});
    if (!m_keyring.waitForStarted()) {
        throw std::runtime_error("gnome-keyring-daemon cannot be started; is it installed?");
    }
    m_keyring.write(password);
    m_keyring.closeWriteChannel();
    // The daemon takes its name before it can be called.
    const QDBusMessage request = methodCall(
        ServicePath, ServiceInterface, QStringLiteral("ReadAlias"), {QStringLiteral("default")});
    if (!QTest::qWaitFor([&] {
            return m_bus.connection().call(request).type() == QDBusMessage::ReplyMessage;
        })) {
        throw std::runtime_error("gnome-keyring-daemon does not come onto the bus");
    }
}

void SecretService::stopKeyring() {
    m_keyring.kill();
    m_keyring.waitForFinished();
}

void SecretService::freezeKeyring() {
    ::kill(static_cast<pid_t>(m_keyring.processId()), SIGSTOP);
}

void SecretService::lock() {
    const QDBusObjectPath collection =
        call(ServicePath, ServiceInterface, QStringLiteral("ReadAlias"),
             {QStringLiteral("default")})
            .arguments()
            .value(0)
            .value<QDBusObjectPath>();
    call(ServicePath, ServiceInterface, QStringLiteral("Lock"),
         {QVariant::fromValue(QList<QDBusObjectPath>{collection})});
}

void SecretService::addItem(const QMap<QString, QString> &attributes, const QByteArray &secret) {
    const QDBusMessage session =
        call(ServicePath, ServiceInterface, QStringLiteral("OpenSession"),
             {QStringLiteral("plain"), QVariant::fromValue(QDBusVariant(QString()))});
    const QVariantMap properties{
        {QStringLiteral("org.freedesktop.Secret.Item.Label"), QStringLiteral("of a test")},
        {QStringLiteral("org.freedesktop.Secret.Item.Attributes"),
         QVariant::fromValue(attributes)}};
    const DBusSecret value{.session = session.arguments().value(1).value<QDBusObjectPath>(),
                           .value = secret,
                           .contentType = QStringLiteral("text/plain")};
    call(DefaultCollectionPath, QStringLiteral("org.freedesktop.Secret.Collection"),
         QStringLiteral("CreateItem"), {properties, QVariant::fromValue(value), false});
}

qsizetype SecretService::count(const QMap<QString, QString> &attributes) const {
    const QDBusMessage found = call(ServicePath, ServiceInterface, QStringLiteral("SearchItems"),
                                    {QVariant::fromValue(attributes)});
    qsizetype count = 0;
    for (const QVariant &paths : found.arguments()) {
        count += qdbus_cast<QList<QDBusObjectPath>>(paths).size();
    }
    return count;
}

QDBusMessage SecretService::call(const QString &path, const QString &interface,
                                 const QString &method, const QVariantList &arguments) const {
    const QDBusMessage reply =
        m_bus.connection().call(methodCall(path, interface, method, arguments));
    if (reply.type() == QDBusMessage::ErrorMessage) {
        throw std::runtime_error(reply.errorMessage().toStdString());
    }
    return reply;
}
