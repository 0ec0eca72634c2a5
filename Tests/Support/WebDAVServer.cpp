#include "Support/WebDAVServer.h"

#include <grp.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <csignal>
#include <stdexcept>

#include "Host/UnencryptedPasswords.h"
#include "Platform/Foundation/Url.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/FreePort.h"

namespace {

const QString Realm = QStringLiteral("Velmora");

const QString ServerConfiguration = QStringLiteral(R"(
ServerName localhost
ServerRoot "%1"
Listen 127.0.0.1:%2
PidFile "%1/pid"
ErrorLog "%1/errors"
Mutex "file:%1" default
DavLockDB "%1/locks"
DocumentRoot "%1/documents"
LoadModule mpm_event_module %3/mod_mpm_event.so
LoadModule authn_core_module %3/mod_authn_core.so
LoadModule authn_file_module %3/mod_authn_file.so
LoadModule authz_core_module %3/mod_authz_core.so
LoadModule authz_user_module %3/mod_authz_user.so
LoadModule auth_basic_module %3/mod_auth_basic.so
LoadModule auth_digest_module %3/mod_auth_digest.so
LoadModule dav_module %3/mod_dav.so
LoadModule dav_fs_module %3/mod_dav_fs.so
LoadModule alias_module %3/mod_alias.so
Alias /dav "%4"
<Location /dav>
    Dav On
    %5
</Location>
<Location /dav/read-only>
    AuthzSendForbiddenOnFailure On
    <LimitExcept GET HEAD OPTIONS PROPFIND>
        Require all denied
    </LimitExcept>
</Location>
<Location /dav/forbidden>
    AuthzSendForbiddenOnFailure On
    Require all denied
</Location>
)");

QString modulesFolder() {
    for (const char *path : {"/usr/lib/apache2/modules", "/usr/lib64/httpd/modules"}) {
        if (QFileInfo::exists(QString::fromLatin1(path) + QStringLiteral("/mod_dav_fs.so"))) {
            return QString::fromLatin1(path);
        }
    }
    throw std::runtime_error("This test needs Apache with its WebDAV module (apache2-bin).");
}

QString program() {
    const QString path = QStandardPaths::findExecutable(
        QStringLiteral("apache2"), {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/bin")});
    if (path.isEmpty()) {
        throw std::runtime_error("This test needs Apache's program apache2 (apache2-bin).");
    }
    return path;
}

void writeFile(const QString &path, const QByteArray &contents) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) < 0) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

/// Returns the user that Apache becomes as root; null otherwise, and in a user namespace without
/// it.
const passwd *userOfApache() {
    return geteuid() == 0 ? getpwnam("www-data") : nullptr;
}

/// As root, Apache becomes another user, to whom its files have to belong.
void giveAway(const QString &folder) {
    const passwd *user = userOfApache();
    if (user && chown(QFile::encodeName(folder).constData(), user->pw_uid, user->pw_gid) != 0) {
        throw std::runtime_error("cannot give away " + folder.toStdString());
    }
}

}  // namespace

WebDAVServer::WebDAVServer(Options options) : m_options(std::move(options)) {
    if (port() == 0) {
        m_options.port = freePort();
    }
    if (m_options.folder.isEmpty()) {
        m_options.folder = m_ownFolder.filePath(QStringLiteral("files"));
    }
    for (const char *name : {"", "/read-only", "/forbidden"}) {
        QDir().mkpath(folder() + QString::fromLatin1(name));
        giveAway(folder() + QString::fromLatin1(name));
    }
    giveAway(m_ownFolder.path());
    QDir().mkpath(m_ownFolder.filePath(QStringLiteral("documents")));
    writeConfiguration();
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    start();
}

WebDAVServer::~WebDAVServer() {
    stop();
}

QString WebDAVServer::URLText(const QString &path, const QString &user) const {
    return QStringLiteral("%1://%2@localhost:%3/dav/%4")
        .arg(m_options.identity ? QStringLiteral("https") : QStringLiteral("http"), user)
        .arg(port())
        .arg(path);
}

void WebDAVServer::putFile(const QString &path, const QByteArray &contents) const {
    for (qsizetype end = path.indexOf(u'/'); end >= 0; end = path.indexOf(u'/', end + 1)) {
        const QString above = folder() + u'/' + path.first(end);
        if (QDir().mkdir(above)) {
            giveAway(above);
        }
    }
    writeFile(folder() + u'/' + path, contents);
}

void WebDAVServer::storePassword(const QString &password) const {
    const UrlCredential credential = {User, password, UrlCredential::Persistence::ForSession};
    const QString scheme = m_options.identity ? QStringLiteral("https") : QStringLiteral("http");
    if (!UnencryptedPasswords::accept(Url::fromString(URLText({})))) {
        throw std::runtime_error("cannot accept an unencrypted password");
    }
    for (const QString &method :
         {UrlAuthenticationMethodHttpBasic, UrlAuthenticationMethodHttpDigest}) {
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            credential,
            UrlProtectionSpace{QStringLiteral("localhost"), port(), scheme, {}, method});
    }
}

void WebDAVServer::start() {
    QStringList command{program(), QStringLiteral("-f"),
                        m_ownFolder.filePath(QStringLiteral("conf")),
                        QStringLiteral("-DFOREGROUND")};
    if (geteuid() == 0 && !userOfApache()) {
        // It refuses to run as root, who is the only user of this namespace.
        command =
            QStringList{QStringLiteral("unshare"), QStringLiteral("--user"),
                        QStringLiteral("--map-user=1000"), QStringLiteral("--map-group=1000")} +
            command;
    }
    m_process.start(command.first(), command.mid(1));
    while (!isReady()) {
        if (m_process.waitForFinished(10)) {
            QFile errors(m_ownFolder.filePath(QStringLiteral("errors")));
            const QByteArray log =
                errors.open(QIODevice::ReadOnly) ? errors.readAll() : QByteArray();
            throw std::runtime_error("Apache does not start: " + m_process.readAll().toStdString() +
                                     log.toStdString());
        }
    }
}

void WebDAVServer::stop() {
    m_process.terminate();
    m_process.waitForFinished();
}

bool WebDAVServer::isReady() const {
    // Apache writes it when it listens. That something listens there proves less.
    QFile file(m_ownFolder.filePath(QStringLiteral("pid")));
    return file.open(QIODevice::ReadOnly) &&
           file.readAll() == QByteArray::number(m_process.processId()) + '\n';
}

void WebDAVServer::writeConfiguration() const {
    const QByteArray secret = (User + u':' + Realm + u':' + Password).toUtf8();
    const QByteArray basic = QCryptographicHash::hash(Password.toUtf8(), QCryptographicHash::Sha1);
    const QByteArray digest = QCryptographicHash::hash(secret, QCryptographicHash::Md5);
    writeFile(m_ownFolder.filePath(QStringLiteral("basic")),
              User.toUtf8() + ":{SHA}" + basic.toBase64());
    writeFile(m_ownFolder.filePath(QStringLiteral("digest")),
              (User + u':' + Realm + u':').toUtf8() + digest.toHex());
    writeFile(m_ownFolder.filePath(QStringLiteral("conf")), configuration().toUtf8());
}

QString WebDAVServer::configuration() const {
    QString text = ServerConfiguration.arg(m_ownFolder.path())
                       .arg(port())
                       .arg(modulesFolder(), folder(), authenticationConfiguration());
    if (userOfApache()) {
        text += QStringLiteral("User www-data\nGroup www-data\n");
    }
    if (m_options.identity) {
        text += QStringLiteral(
                    "LoadModule ssl_module %1/mod_ssl.so\nSSLEngine On\n"
                    "SSLCertificateFile \"%2\"\nSSLCertificateKeyFile \"%3\"\n")
                    .arg(modulesFolder(), m_options.identity->certificate, m_options.identity->key);
    }
    return text;
}

QString WebDAVServer::authenticationConfiguration() const {
    const QString withUsers = QStringLiteral(
        "AuthType %1\n AuthName %2\n Auth%1Provider file\n AuthUserFile \"%3\"\n"
        " Require valid-user");
    switch (m_options.authentication) {
        case Authentication::Basic:
            return withUsers.arg(QStringLiteral("Basic"), Realm,
                                 m_ownFolder.filePath(QStringLiteral("basic")));
        case Authentication::Digest:
            return withUsers.arg(QStringLiteral("Digest"), Realm,
                                 m_ownFolder.filePath(QStringLiteral("digest")));
        case Authentication::None:
            break;
    }
    return QStringLiteral("Require all granted");
}
