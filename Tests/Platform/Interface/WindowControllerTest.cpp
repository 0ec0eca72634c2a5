#include "Platform/Interface/WindowController.h"

#include <QtGui/QCloseEvent>
#include <QtWidgets/QPushButton>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/Nib.h"
#include "Support/TestMain.h"

namespace {

const QString WindowNib = QStringLiteral("Window");

class TestController : public WindowController {
    Q_OBJECT
    Q_PROPERTY(QWidget *outlet MEMBER m_outlet)
public:
    explicit TestController(const QString &nibName = WindowNib) : WindowController(nibName) {}
    using WindowController::beginSheet;
    using WindowController::endSheet;
    using WindowController::runModalSheet;
    using WindowController::stopModal;

    QWidget *m_outlet = nullptr;
    QStringList m_calls;

protected:
    void awakeFromNib() override {
        m_calls.append(m_outlet ? QStringLiteral("awake") : QStringLiteral("awake too early"));
    }
    void windowDidLoad() override { m_calls.append(QStringLiteral("load")); }
    void leaveSheet() override { m_calls.append(QStringLiteral("leave")); }
};

}  // namespace

class WindowControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        Nib::registerForm(WindowNib, [] {
            auto *window = new SheetWindow;
            (new QWidget(window))->setObjectName(QStringLiteral("outlet"));
            return window;
        });
        Nib::registerForm(QStringLiteral("No window"), [] { return new QWidget; });
    }

    void theWindowIsLoadedOnceWhenAskedFor() {
        TestController controller;
        QVERIFY(!controller.isWindowLoaded());
        const QWidget *window = controller.window();
        QVERIFY(controller.isWindowLoaded());
        QVERIFY(!window->isVisible());
        QCOMPARE(controller.window(), window);
        QCOMPARE(controller.m_calls,
                 QStringList({QStringLiteral("awake"), QStringLiteral("load")}));
    }

    void aFormThatIsNoWindowIsAProgrammingError() {
        TestController controller(QStringLiteral("No window"));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, controller.window());
    }

    void aSheetIsModalToTheWindowOfItsParent() {
        QWidget parent;
        auto *view = new QWidget(&parent);
        TestController controller;
        controller.beginSheet(view);
        QVERIFY(controller.window()->isVisible());
        QCOMPARE(controller.window()->parentWidget(), &parent);
        QCOMPARE(controller.window()->windowModality(), Qt::WindowModal);
        controller.endSheet(0);
        QVERIFY(!controller.window()->isVisible());
    }

    void aSheetCanBeBegunAgain() {
        QWidget parent;
        TestController controller;
        for (int i = 0; i < 2; ++i) {
            controller.beginSheet(&parent);
            QVERIFY(controller.window()->isVisible());
            controller.endSheet(0);
            QVERIFY(!controller.window()->isVisible());
        }
    }

    void endingASheetThatWasNotBegunHasNoEffect() {
        TestController controller;
        controller.endSheet(0);
        QVERIFY(!controller.isWindowLoaded());
    }

    void escapeAndTheCloseButtonOnlyEmitLeaving() {
        QWidget parent;
        TestController controller;
        controller.beginSheet(&parent);
        controller.m_calls.clear();
        QTest::keyClick(controller.window(), Qt::Key_Escape);
        QVERIFY(!controller.window()->close());
        QVERIFY(controller.window()->isVisible());
        QCOMPARE(controller.m_calls,
                 QStringList({QStringLiteral("leave"), QStringLiteral("leave")}));
        controller.endSheet(0);
    }

    void aModalSheetEndsWithTheCodeOfTheStop() {
        QWidget parent;
        TestController controller;
        auto *window = qobject_cast<QDialog *>(controller.window());
        QTimer::singleShot(0, &controller, [&] {
            QVERIFY(window->isVisible());
            controller.stopModal(3);
        });
        controller.runModalSheet(&parent);
        QVERIFY(!window->isVisible());
        QCOMPARE(window->result(), 3);
    }

    void aModalSheetKeepsClicksFromAllOtherWindows() {
        QWidget parent;
        QWidget otherWindow;
        QPushButton button(QStringLiteral("Click"), &otherWindow);
        otherWindow.show();
        QVERIFY(QTest::qWaitForWindowExposed(&otherWindow));
        QSignalSpy clicks(&button, &QPushButton::clicked);
        const auto click = [&] {
            QTest::mouseClick(otherWindow.windowHandle(), Qt::LeftButton, {},
                              button.geometry().center());
        };
        TestController controller;
        QTimer::singleShot(0, &controller, [&] {
            QCOMPARE(controller.window()->parentWidget(), &parent);
            QCOMPARE(controller.window()->windowModality(), Qt::ApplicationModal);
            click();
            controller.stopModal(1);
        });
        controller.runModalSheet(&parent);
        QCOMPARE(clicks.count(), 0);
        click();
        QCOMPARE(clicks.count(), 1);
    }

    void destroyingTheParentEndsTheModalLoop() {
        auto parent = std::make_unique<QWidget>();
        TestController controller;
        QTimer::singleShot(0, &controller, [&] { parent.reset(); });
        controller.runModalSheet(parent.get());
        QVERIFY(!controller.isWindowLoaded());
        controller.endSheet(0);
    }

    void theWindowIsDestroyedWithItsController() {
        QPointer<QWidget> window;
        {
            TestController controller;
            window = controller.window();
            window->show();
        }
        QVERIFY(!window->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!window);
    }

    void aWindowThatWentWithItsParentIsLoadedAnew() {
        auto parent = std::make_unique<QWidget>();
        TestController controller;
        controller.beginSheet(parent.get());
        parent.reset();
        QVERIFY(!controller.isWindowLoaded());
        QVERIFY(controller.window());
    }
};

VELMORA_TEST(WindowControllerTest)
#include "WindowControllerTest.moc"
