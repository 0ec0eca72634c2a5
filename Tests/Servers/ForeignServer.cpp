#include "Servers/ForeignServer.h"

#include <sys/prctl.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtNetwork/QTcpSocket>
#include <csignal>
#include <stdexcept>

#include "Host/UnencryptedPasswords.h"
#include "Platform/Foundation/Url.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/FreePort.h"

namespace {

const QString User = QStringLiteral("ida");
const QString Password = QStringLiteral("Oil & water: 1");
const QString Realm = QStringLiteral("Velmora");

const QString NginxConfiguration = QStringLiteral(R"(
load_module /usr/lib/nginx/modules/ngx_http_dav_ext_module.so;
daemon off;
master_process off;
pid %1/pid;
error_log %1/errors;
events {}
http {
    access_log off;
    client_body_temp_path %1/body;
    proxy_temp_path %1/proxy;
    fastcgi_temp_path %1/fastcgi;
    uwsgi_temp_path %1/uwsgi;
    scgi_temp_path %1/scgi;
    client_max_body_size 0;
    server {
        listen 127.0.0.1:%2 %3;
        location /dav/ {
            alias %1/files/;
            dav_methods PUT DELETE MKCOL COPY MOVE;
            dav_ext_methods PROPFIND OPTIONS;
            auth_basic %4;
            auth_basic_user_file %1/basic;
        }
    }
}
)");

const QString LighttpdConfiguration = QStringLiteral(R"(
server.modules = ("mod_access", "mod_auth", "mod_authn_file", "mod_alias", "mod_webdav")
server.document-root = "%1/files"
server.upload-dirs = ("%1")
server.bind = "127.0.0.1"
server.port = %2
server.errorlog = "%1/errors"
alias.url = ("/dav/" => "%1/files/")
auth.backend = "%3"
auth.backend.htpasswd.userfile = "%1/basic"
auth.backend.htdigest.userfile = "%1/digest"
$HTTP["url"] =~ "^/dav/" {
    webdav.activate = "enable"
    auth.require = ("" => ("method" => "%4", "realm" => "%5", "require" => "valid-user"))
}
)");

const QString SabreScript = QStringLiteral(R"(<?php
error_reporting(0);
require 'Sabre/autoload.php';
$server = new Sabre\DAV\Server(new Sabre\DAV\FS\Directory('%1/files'));
$server->setBaseUri('/dav');
$backend = new Sabre\DAV\Auth\Backend\File('%1/digest');
$server->addPlugin(new Sabre\DAV\Auth\Plugin($backend, '%2'));
$server->exec();
)");

QString program(const QString &name) {
    const QString path = QStandardPaths::findExecutable(name);
    return path.isEmpty() ? QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin")})
                          : path;
}

/// As rclone expects passwords in its options.
QString obscured(const QString &password) {
    QProcess process;
    process.start(program(QStringLiteral("rclone")), {QStringLiteral("obscure"), password});
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

}  // namespace

ForeignServer::ForeignServer(Kind kind) : m_kind(kind), m_port(freePort()) {
    if (!QDir().mkpath(path(QStringLiteral("files")))) {
        throw std::runtime_error("cannot make a folder");
    }
    if (kind == Kind::NginxTLS || kind == Kind::RcloneTLS) {
        m_authority.emplace();
        m_trust.emplace(*m_authority);
    }
    writePasswords();
    const QStringList words = command();
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setWorkingDirectory(m_folder.path());
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_process.start(program(words.first()), words.mid(1));
    while (!isListening()) {
        if (m_process.waitForFinished(10) || m_process.state() == QProcess::NotRunning) {
            throw std::runtime_error(words.first().toStdString() +
                                     " does not start: " + m_process.readAll().toStdString());
        }
    }
    storePassword();
}

ForeignServer::~ForeignServer() {
    m_process.terminate();
    m_process.waitForFinished();
}

QString ForeignServer::URLText(const QString &path) const {
    return QStringLiteral("%1://%2@localhost:%3/dav/%4")
        .arg(m_authority ? QStringLiteral("https") : QStringLiteral("http"), User)
        .arg(m_port)
        .arg(path);
}

QStringList ForeignServer::command() {
    switch (m_kind) {
        case Kind::Nginx:
        case Kind::NginxTLS:
            return nginx();
        case Kind::Lighttpd:
        case Kind::LighttpdDigest:
            return lighttpd();
        case Kind::Rclone:
        case Kind::RcloneTLS:
        case Kind::RcloneMemory:
        case Kind::RcloneCrypt:
            return rclone();
        case Kind::SabreDAV:
            return sabreDAV();
    }
    return {};
}

QStringList ForeignServer::nginx() {
    QString encryption;
    if (m_authority) {
        const TestAuthority::Identity identity = newIdentity();
        encryption = QStringLiteral("ssl; ssl_certificate %1; ssl_certificate_key %2")
                         .arg(identity.certificate, identity.key);
    }
    write(QStringLiteral("conf"),
          NginxConfiguration.arg(m_folder.path()).arg(m_port).arg(encryption, Realm));
    return {QStringLiteral("nginx"), QStringLiteral("-p"), m_folder.path(), QStringLiteral("-c"),
            path(QStringLiteral("conf"))};
}

TestAuthority::Identity ForeignServer::newIdentity() const {
    return m_authority->issue(QStringLiteral("DNS:localhost,IP:127.0.0.1"));
}

QStringList ForeignServer::lighttpd() {
    const bool isDigest = m_kind == Kind::LighttpdDigest;
    write(QStringLiteral("conf"),
          LighttpdConfiguration.arg(m_folder.path())
              .arg(m_port)
              .arg(isDigest ? QStringLiteral("htdigest") : QStringLiteral("htpasswd"),
                   isDigest ? QStringLiteral("digest") : QStringLiteral("basic"), Realm));
    return {QStringLiteral("lighttpd"), QStringLiteral("-D"), QStringLiteral("-f"),
            path(QStringLiteral("conf"))};
}

QStringList ForeignServer::rclone() const {
    QString remote = path(QStringLiteral("files"));
    if (m_kind == Kind::RcloneMemory) {
        remote = QStringLiteral(":memory:bucket");
    } else if (m_kind == Kind::RcloneCrypt) {
        remote = QStringLiteral(":crypt,remote=%1,password=%2:").arg(remote, obscured(Password));
    }
    QStringList words{
        QStringLiteral("rclone"),         QStringLiteral("serve"),
        QStringLiteral("webdav"),         remote,
        QStringLiteral("--config="),      QStringLiteral("--addr=127.0.0.1:%1").arg(m_port),
        QStringLiteral("--user=") + User, QStringLiteral("--pass=") + Password,
        QStringLiteral("--baseurl=dav")};
    if (m_authority) {
        const TestAuthority::Identity identity = newIdentity();
        words += {QStringLiteral("--cert=") + identity.certificate,
                  QStringLiteral("--key=") + identity.key};
    }
    return words;
}

QStringList ForeignServer::sabreDAV() {
    write(QStringLiteral("server.php"), SabreScript.arg(m_folder.path(), Realm));
    return {QStringLiteral("php"), QStringLiteral("-S"), QStringLiteral("127.0.0.1:%1").arg(m_port),
            QStringLiteral("server.php")};
}

void ForeignServer::writePasswords() const {
    const QByteArray basic = QCryptographicHash::hash(Password.toUtf8(), QCryptographicHash::Sha1);
    const QString start = User + u':' + Realm + u':';
    const QByteArray digest =
        QCryptographicHash::hash((start + Password).toUtf8(), QCryptographicHash::Md5);
    write(QStringLiteral("basic"),
          User + QStringLiteral(":{SHA}") + QString::fromLatin1(basic.toBase64()) + u'\n');
    write(QStringLiteral("digest"), start + QString::fromLatin1(digest.toHex()) + u'\n');
}

void ForeignServer::write(const QString &name, const QString &text) const {
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
        throw std::runtime_error("cannot write " + name.toStdString());
    }
}

bool ForeignServer::isListening() const {
    QTcpSocket socket;
    socket.connectToHost(QStringLiteral("127.0.0.1"), m_port);
    return socket.waitForConnected();
}

void ForeignServer::storePassword() const {
    const UrlCredential credential = {User, Password, UrlCredential::Persistence::ForSession};
    const QString scheme = m_authority ? QStringLiteral("https") : QStringLiteral("http");
    if (!UnencryptedPasswords::accept(Url::fromString(URLText({})))) {
        throw std::runtime_error("cannot accept an unencrypted password");
    }
    for (const QString &method :
         {UrlAuthenticationMethodHttpBasic, UrlAuthenticationMethodHttpDigest}) {
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            credential,
            UrlProtectionSpace{QStringLiteral("localhost"), m_port, scheme, {}, method});
    }
}
