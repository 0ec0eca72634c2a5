#include "Application/VelmoraApplication.h"

#include <QtGui/QWindow>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMessageBox>

#include "Platform/Security/Keychain.h"
#include "Platform/Security/SecretStore.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/SecretService.h"
#include "Support/ShownName.h"
#include "Support/TestMain.h"

/// The application object itself. The test has no session bus, hence no password service.
class VelmoraApplicationTest : public QObject {
    Q_OBJECT

    static QList<QMessageBox *> messageBoxes() {
        QList<QMessageBox *> boxes;
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (auto *box = qobject_cast<QMessageBox *>(widget); box && box->isVisible()) {
                boxes.append(box);
            }
        }
        return boxes;
    }

    static void store(const QString &user) {
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            {.user = user,
             .password = QStringLiteral("secret"),
             .persistence = UrlCredential::Persistence::Permanent},
            UrlProtectionSpace{.host = QStringLiteral("example-host")});
        SecretStore::shared().finishWriting();
    }

private Q_SLOTS:
    void theUserIsNotifiedOnceThatPasswordsCannotBeSaved() {
        store(QStringLiteral("first"));
        QTRY_COMPARE(messageBoxes().size(), 1);
        QMessageBox *box = messageBoxes().first();
        QVERIFY(box->text().startsWith(QStringLiteral(
            "Passwords cannot be saved. They are kept until you quit velmora-tests. ")));
        QCOMPARE(box->informativeText(),
                 QStringLiteral("No password service is running on this computer."));
        box->close();
        QTRY_VERIFY(messageBoxes().isEmpty());

        store(QStringLiteral("second"));
        QCoreApplication::processEvents();
        QVERIFY(messageBoxes().isEmpty());
    }

    void aBoxOfAProgramInTheBackgroundBelongsToItsWindow() {
        QMainWindow window;
        window.show();
        QApplication::setActiveWindow(nullptr);
        static_cast<VelmoraApplication *>(qApp)->presentError({.localizedDescription = {}});
        QCOMPARE(messageBoxes().size(), 1);
        QCOMPARE(messageBoxes().first()->parentWidget(), &window);
        // Qt quits when the last window without one of these is closed.
        QCOMPARE(messageBoxes().first()->windowHandle()->transientParent(), window.windowHandle());
        messageBoxes().first()->close();
        QTRY_VERIFY(messageBoxes().isEmpty());
    }

    void theUserIsNotifiedThatASecretCannotBeDeleted() {
        SecretService service;
        Keychain keychain(SecretStore::shared());
        keychain.setPassword(QStringLiteral("service"), QStringLiteral("Kim"),
                             QByteArray("secret"));
        QTRY_COMPARE(service.count({{QStringLiteral("account"), QStringLiteral("Kim")}}), 1);
        service.lock();
        keychain.removeFirstLater("service", "Kim", [](const auto &) {});
        QTRY_COMPARE(messageBoxes().size(), 1);
        QMessageBox *box = messageBoxes().first();
        QVERIFY(box->text().startsWith(QStringLiteral("A saved password or permission")));
        QCOMPARE(box->informativeText(), QStringLiteral("The keyring is locked."));
        box->close();
        QTRY_VERIFY(messageBoxes().isEmpty());
    }

    void namesInErrorsAndQuestionsAreShownAsTheyAre() {
        auto &application = *static_cast<VelmoraApplication *>(qApp);
        const QString name = ShownName::Hostile;
        application.presentError({.localizedDescription = name, .localizedFailureReason = name});
        application.presentError({.localizedDescription = name});
        application.ask({.text = name,
                         .details = name,
                         .acceptTitle = QStringLiteral("Yes"),
                         .refuseTitle = QStringLiteral("No")},
                        [](bool) {});
        const QList<QMessageBox *> boxes = messageBoxes();
        QCOMPARE(boxes.size(), 3);
        for (const QMessageBox *box : boxes) {
            QCOMPARE(box->text(), name);
        }
        const ShownName shown(name);
        QCOMPARE(shown.places().filter(QStringLiteral("QLabel")).size(), 5);
        QCOMPARE(shown.misreadPlaces(), QStringList());
        for (QMessageBox *box : boxes) {
            box->close();
        }
        QTRY_VERIFY(messageBoxes().isEmpty());
    }
};

VELMORA_TEST_PROGRAM(VelmoraApplicationTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    const VelmoraApplication application(argumentCount, arguments);
    VelmoraApplicationTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}

#include "VelmoraApplicationTest.moc"
