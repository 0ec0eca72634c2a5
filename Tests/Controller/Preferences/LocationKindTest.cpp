#include "Controller/Preferences/LocationKind.h"

#include "Controller/Preferences/QVSyncLocationEditor.h"
#include "Engine/Plugin/BuiltInLocationKinds.h"
#include "Host/QVDatabase.h"
#include "Host/QVDirectConnectionServer.h"
#include "Platform/Foundation/Url.h"
#include "Support/TestHost.h"
#include "Support/TestLocation.h"
#include "Support/TestMain.h"

class LocationKindTest : public QObject {
    Q_OBJECT

    /// The class of the editor for `URLText`.
    static QByteArray editorClass(const QString &URLText) {
        const auto location = locationWithoutEngine(Url::fromString(URLText));
        const LocationKind *kind = LocationKind::ofURL(location->URL());
        return kind ? kind->makeEditor(location)->metaObject()->className() : "";
    }

private Q_SLOTS:
    void theSchemeChoosesTheEditorExactly() {
        const TestHost host;
        const QString direct = QVDirectConnectionServer::URLScheme();
        QCOMPARE(editorClass(QStringLiteral("file:///a")), QByteArray("QVFolderLocationEditor"));
        QCOMPARE(editorClass(QStringLiteral("http://h/a")), QByteArray("QVWebDAVLocationEditor"));
        QCOMPARE(editorClass(QStringLiteral("https://h/a")), QByteArray("QVWebDAVLocationEditor"));
        QCOMPARE(editorClass(direct + QStringLiteral("://h")),
                 QByteArray("QVDirectConnectionLocationEditor"));
        QCOMPARE(editorClass(QStringLiteral("dropbox://u@h")),
                 QByteArray("QVDropboxLocationEditor"));
        QCOMPARE(editorClass(QStringLiteral("HTTP://h/a")), QByteArray());
        QCOMPARE(editorClass(QStringLiteral("gopher://h/a")), QByteArray());
        QCOMPARE(editorClass(QString()), QByteArray());
    }

    void theEngineAndThePaneHaveTheSameKinds() {
        TestHost host;
        QStringList engineTypes;
        QStringList paneTypes;
        for (const auto &kind : builtInLocationKinds(host.engine().plugin().context())) {
            engineTypes.append(QString::fromUtf8(kind.type));
            for (const QString &scheme : kind.schemes) {
                const auto *shown =
                    LocationKind::ofURL(Url::fromString(scheme + QStringLiteral("://localhost/a")));
                QVERIFY2(shown, qPrintable(scheme));
                QCOMPARE(shown->type, kind.type);
            }
        }
        for (const LocationKind &kind : LocationKind::all()) {
            paneTypes.append(QString::fromUtf8(kind.type));
        }
        engineTypes.sort();
        paneTypes.sort();
        QCOMPARE(paneTypes, engineTypes);
    }

    /// Whether new users are offered a kind, and as what, is decided for each.
    void theKindsAreOfferedToNewUsers() {
        const QMap<QByteArray, QString> expected = {
            {"Local Sync Store", QStringLiteral("folder")},
            {"WebDAV", QStringLiteral("webDAV")},
            {"Direct Connection", QStringLiteral("otherComputer")},
            {"Dropbox", QString()}};
        QMap<QByteArray, QString> found;
        for (const LocationKind &kind : LocationKind::all()) {
            const QString name = kind.offer ? QString::fromLatin1(kind.offer->name) : QString();
            found.insert(kind.type, name);
            QCOMPARE(LocationKind::offeredAs(name), kind.offer ? &kind : nullptr);
        }
        QCOMPARE(found, expected);
        QStringList names;
        for (const LocationOffer &offer : LocationKind::offers()) {
            names.append(offer.kind);
        }
        QCOMPARE(names, QStringList({QStringLiteral("folder"), QStringLiteral("webDAV"),
                                     QStringLiteral("otherComputer")}));
    }

    void aTypeIsCleanableInTheLanguageOfTheHost() {
        const TestHost host;
        QVERIFY(LocationKind::isCleanableType(QStringLiteral("Local Sync Store")));
        QVERIFY(LocationKind::isCleanableType(QStringLiteral("WebDAV")));
        QVERIFY(LocationKind::isCleanableType(QStringLiteral("Dropbox")));
        QVERIFY(!LocationKind::isCleanableType(QStringLiteral("Direct Connection")));
        QVERIFY(!LocationKind::isCleanableType(QString()));
    }

    void aMissingHostClassLeadsToTheNextRule() {
        const QString direct = [] {
            const TestHost host;
            return QVDirectConnectionServer::URLScheme();
        }();
        QVERIFY(QVDirectConnectionServer::URLScheme().isNull());
        QCOMPARE(QVDirectConnectionServer::defaultPort(), quint16(0));
        QVERIFY(QVDirectConnectionClientAuthorizationServiceName().isNull());
        QVERIFY(QVDatabase::databases().isEmpty());
        QVERIFY(!LocationKind::ofURL(Url::fromString(direct + QStringLiteral("://h"))));
        QVERIFY(!LocationKind::ofURL({}));
        QVERIFY(LocationKind::ofURL(Url::fromString(QStringLiteral("dropbox://u@h"))));
    }
};

VELMORA_TEST(LocationKindTest)
#include "LocationKindTest.moc"
