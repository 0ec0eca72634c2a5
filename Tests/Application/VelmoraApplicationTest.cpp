#include "Application/VelmoraApplication.h"

#include <QtCore/QPointer>
#include <QtGui/QCloseEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QTableWidget>
#include <algorithm>
#include <cmath>

#include "Platform/Security/Keychain.h"
#include "Platform/Security/SecretStore.h"
#include "Platform/Security/UrlCredentialStorage.h"
#include "Support/SecretService.h"
#include "Support/ShownName.h"
#include "Support/TestMain.h"

namespace {

/// A window, shown, that cannot be closed.
class StayingWindow : public QMainWindow {
public:
    StayingWindow() { show(); }

protected:
    void closeEvent(QCloseEvent *event) override { event->ignore(); }
};

}  // namespace

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

    static VelmoraApplication &application() { return *static_cast<VelmoraApplication *>(qApp); }

    /// Returns the text of the button without its mnemonic.
    static QString titleOf(const QAbstractButton *button) { return button->text().remove(u'&'); }
    static void press(QMessageBox *box, const QString &title) {
        for (QAbstractButton *button : box->buttons()) {
            if (titleOf(button) == title) {
                button->click();
                return;
            }
        }
        QFAIL("there is no such button");
    }

    static void store(const QString &user) {
        UrlCredentialStorage::shared().setCredentialForProtectionSpace(
            {.user = user,
             .password = QStringLiteral("secret"),
             .persistence = UrlCredential::Persistence::Permanent},
            UrlProtectionSpace{.host = QStringLiteral("example-host")});
        SecretStore::shared().finishWriting();
    }

    static Question question() {
        return {.text = QStringLiteral("Continue?"),
                .details = {},
                .acceptTitle = QStringLiteral("Yes"),
                .refuseTitle = QStringLiteral("No")};
    }

    /// Returns the relative luminance of sRGB (WCAG 2).
    static double luminance(QRgb color) {
        const auto linear = [](int channel) {
            const double value = channel / 255.0;
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
               0.0722 * linear(qBlue(color));
    }
    /// Returns the contrast of the lightest and the darkest pixel.
    static double contrastIn(const QImage &image) {
        double least = 1;
        double most = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const double here = luminance(image.pixel(x, y));
                least = std::min(least, here);
                most = std::max(most, here);
            }
        }
        return (most + 0.05) / (least + 0.05);
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

    void theNextStepsAreButtons() {
        QStringList chosen;
        const auto option = [&](const QString &title) {
            return RecoveryOption{title, [&chosen, title] { chosen.append(title); }};
        };
        const Error error{.domain = QStringLiteral("domain"),
                          .code = 7,
                          .localizedDescription = QStringLiteral("The server is busy."),
                          .recoveryOptions = {option(QStringLiteral("Edit Location…")),
                                              option(QStringLiteral("Try Again"))}};
        application().presentError(error);
        QMessageBox *box = messageBoxes().first();
        QStringList titles;
        for (const QAbstractButton *button : box->buttons()) {
            titles.append(titleOf(button));
            QVERIFY2(!QKeySequence::mnemonic(button->text()).isEmpty(), qPrintable(button->text()));
            QVERIFY2(button->icon().isNull(), qPrintable(button->text()));
        }
        for (const QString &title : {QStringLiteral("Edit Location…"), QStringLiteral("Try Again"),
                                     QStringLiteral("Close")}) {
            QVERIFY2(titles.contains(title), qPrintable(titles.join(u' ')));
        }
        QCOMPARE(titleOf(box->defaultButton()), QStringLiteral("Close"));
        QVERIFY(box->detailedText().contains(QStringLiteral("Error 7 of domain")));
        press(box, QStringLiteral("Try Again"));
        QTRY_COMPARE(chosen, QStringList{QStringLiteral("Try Again")});
        QTRY_VERIFY(messageBoxes().isEmpty());
        // The step was the user's: if it fails in the same way, that is shown.
        application().presentError(error);
        QCOMPARE(messageBoxes().size(), 1);
        press(messageBoxes().first(), QStringLiteral("Close"));
        QTRY_VERIFY(messageBoxes().isEmpty());
        QCOMPARE(chosen.size(), 1);
    }

    void theSameErrorIsNotShownTwiceInARow() {
        const Error full{.localizedDescription = QStringLiteral("The disk is full.")};
        const Error other{.localizedDescription = QStringLiteral("The disk is gone.")};
        application().presentError(full);
        application().presentError(full);
        QCOMPARE(messageBoxes().size(), 1);
        QTest::keyClick(messageBoxes().first(), Qt::Key_Escape);
        QTRY_VERIFY(messageBoxes().isEmpty());
        const int entries = application().eventLog()->rowCount();
        application().presentError(full);
        QVERIFY(messageBoxes().isEmpty());
        QCOMPARE(application().eventLog()->rowCount(), entries + 1);
        application().presentError(other);
        QCOMPARE(messageBoxes().size(), 1);
        messageBoxes().first()->close();
        QTRY_VERIFY(messageBoxes().isEmpty());
        application().presentError(full);
        QCOMPARE(messageBoxes().size(), 1);
        messageBoxes().first()->close();
        QTRY_VERIFY(messageBoxes().isEmpty());
        QWidget window;
        QTest::keyClick(&window, Qt::Key_A);
        application().presentError(full);
        QCOMPARE(messageBoxes().size(), 1);
        messageBoxes().first()->close();
        QTRY_VERIFY(messageBoxes().isEmpty());
    }

    void aCodeIsShownLargeAndComesToTheFront() {
        QWidget window;
        window.showMinimized();
        QTRY_VERIFY(window.isMinimized());
        std::optional<bool> answer;
        application().ask({.text = QStringLiteral("Let “Kim” synchronize with this computer?"),
                           .details = QStringLiteral("It shows a code."),
                           .acceptTitle = QStringLiteral("Allow"),
                           .refuseTitle = QStringLiteral("Refuse"),
                           .code = QStringLiteral("123 456")},
                          [&](bool isAccepted) { answer = isAccepted; });
        QCOMPARE(messageBoxes().size(), 1);
        QMessageBox *box = messageBoxes().first();
        QVERIFY(!window.isMinimized());
        QTRY_VERIFY(box->isActiveWindow());
        const auto *code = box->findChild<QLabel *>(QStringLiteral("code"));
        QVERIFY(code && code->isVisible());
        QCOMPARE(code->text(), QStringLiteral("123 456"));
        QVERIFY(code->font().pointSizeF() >= 2 * QApplication::font().pointSizeF());
        const auto buttons = box->buttons();
        QVERIFY(code->geometry().bottom() < buttons.first()->mapTo(box, QPoint()).y());
        const auto accept = std::find_if(buttons.begin(), buttons.end(), [](const auto *button) {
            return titleOf(button) == QStringLiteral("Allow");
        });
        (*accept)->click();
        QTRY_COMPARE(answer, std::optional(true));
        QTRY_VERIFY(messageBoxes().isEmpty());
    }

    void aDialogThatEndsTakesNeitherQuestionsNorErrorsAlong() {
        QMainWindow window;
        window.show();
        auto dialog = std::make_unique<QDialog>(&window);
        dialog->open();
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        std::optional<bool> answer;
        application().ask(question(), [&](bool isAccepted) { answer = isAccepted; });
        QPointer<QMessageBox> asked = messageBoxes().value(0);
        QVERIFY(asked);
        // Also of a question, which may be withdrawn.
        asked->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(asked));
        application().presentError({.localizedDescription = QStringLiteral("It is lost.")});
        dialog.reset();
        QCOMPARE(messageBoxes().size(), 2);
        for (const QMessageBox *box : messageBoxes()) {
            QCOMPARE(box->parentWidget(), &window);
        }
        QVERIFY(!answer);
        press(asked, QStringLiteral("Yes"));
        QTRY_COMPARE(answer, std::optional(true));
        messageBoxes().first()->close();
        QTRY_VERIFY(messageBoxes().isEmpty());
    }

    void aQuestionIsRefusedOnceWhenItsWindowGoes() {
        auto window = std::make_unique<QMainWindow>();
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QList<bool> answers;
        const auto withdraw =
            application().ask(question(), [&](bool isAccepted) { answers.append(isAccepted); });
        QCOMPARE(messageBoxes().size(), 1);
        window.reset();
        QTRY_COMPARE(answers, QList<bool>{false});
        withdraw();
        QCoreApplication::processEvents();
        QCOMPARE(answers.size(), 1);
    }

    void aQuestionIsRefusedIfQuittingHasClosedItInVain() {
        StayingWindow window;
        QList<bool> answers;
        application().ask(question(), [&](bool isAccepted) { answers.append(isAccepted); });
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        QVERIFY(!quit.isAccepted());
        QVERIFY(messageBoxes().isEmpty());
        QTRY_COMPARE(answers, QList<bool>{false});
    }

    void anErrorIsShownAgainWhenItsWindowGoes() {
        auto window = std::make_unique<QMainWindow>();
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        const QString text = QStringLiteral("Nobody has read it.");
        application().presentError({.localizedDescription = text});
        QCOMPARE(messageBoxes().first()->parentWidget(), window.get());
        window.reset();
        QVERIFY(messageBoxes().isEmpty());
        QTRY_COMPARE(messageBoxes().size(), 1);
        QCOMPARE(messageBoxes().first()->text(), text);
        messageBoxes().first()->close();
        QTRY_VERIFY(messageBoxes().isEmpty());
    }

    void anEmptyCheckBoxIsVisibleOnDarkColors() {
        application().setDarkAppearance(true);
        QCheckBox box;
        QRadioButton button;
        QTableWidget table(1, 1);
        table.setShowGrid(false);
        auto *item = new QTableWidgetItem;
        item->setCheckState(Qt::Unchecked);
        table.setItem(0, 0, item);
        for (QWidget *widget : QWidgetList{&box, &button, table.viewport()}) {
            QVERIFY2(contrastIn(widget->grab(QRect(1, 1, 24, 24)).toImage()) >= 3,
                     widget->metaObject()->className());
        }
        application().setDarkAppearance(false);
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

    // The last function: the application does not ask any more afterwards.
    void theEndOfTheProgramAnswersNoQuestion() {
        auto window = std::make_unique<QMainWindow>();
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QList<bool> answers;
        const auto remember = [&](bool isAccepted) { answers.append(isAccepted); };
        // The program ends with its last window, and closes the others.
        application().ask(question(), remember);
        QTimer::singleShot(0, window.get(), &QWidget::close);
        QApplication::exec();
        QVERIFY(messageBoxes().isEmpty());
        // After a signal they are destroyed.
        window->show();
        application().ask(question(), remember);
        application().presentError({.localizedDescription = QStringLiteral("Nobody has read it.")});
        QCOMPARE(messageBoxes().size(), 2);
        window.reset();
        QCoreApplication::processEvents();
        QCOMPARE(answers, QList<bool>());
        QVERIFY(messageBoxes().isEmpty());
    }
};

VELMORA_TEST_PROGRAM(VelmoraApplicationTest)(int argumentCount, char **arguments) {
    prepareTestProcess();
    const VelmoraApplication application(argumentCount, arguments);
    VelmoraApplicationTest test;
    return QTest::qExec(&test, argumentCount, arguments);
}

#include "VelmoraApplicationTest.moc"
