#include "Controller/NSArrayController+Emptiness.h"
#include "Platform/KeyValue/Binding.h"
#include "Support/TestMain.h"

class NSArrayControllerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void isEmptyExactlyWhenNothingIsArranged() {
        NSArrayController controller;
        QVERIFY(controller.isEmpty());
        controller.setContent({1});
        QVERIFY(!controller.isEmpty());
        controller.setContent({});
        QVERIFY(controller.isEmpty());
    }

    void emptinessIsAnnouncedOnceAfterTheArrangedObjects() {
        NSArrayController controller;
        QStringList announced;
        connect(&controller, &ArrayController::arrangedObjectsChanged, this,
                [&] { announced.append(QStringLiteral("arrangedObjects")); });
        connect(&controller, &NSArrayController::isEmptyChanged, this,
                [&] { announced.append(QStringLiteral("isEmpty")); });
        controller.setContent({1, 2});
        QCOMPARE(announced,
                 QStringList({QStringLiteral("arrangedObjects"), QStringLiteral("isEmpty")}));
    }

    void theSelectionDoesNotAnnounceEmptiness() {
        NSArrayController controller;
        controller.setContent({1, 2});
        QSignalSpy announced(&controller, &NSArrayController::isEmptyChanged);
        controller.setSelectionIndexes({1});
        QCOMPARE(announced.count(), 0);
    }

    void aMissingSelectionIsAnnouncedWithTheContentAndTheSelection() {
        NSArrayController controller;
        QWidget hint;
        KeyValue::bind(&hint, "enabled", &controller, "nothingSelected");
        QVERIFY(!hint.isEnabled());
        controller.setContent({1, 2});
        QVERIFY(hint.isEnabled());
        controller.setSelectionIndexes({1});
        QVERIFY(!hint.isEnabled());
        controller.setSelectionIndexes({});
        QVERIFY(hint.isEnabled());
        controller.setContent({});
        QVERIFY(!hint.isEnabled());
    }

    void aBindingToEmptinessFollowsTheContent() {
        NSArrayController controller;
        QWidget note;
        KeyValue::bind(&note, "enabled", &controller, "isEmpty");
        QVERIFY(note.isEnabled());
        controller.setContent({1});
        QVERIFY(!note.isEnabled());
    }
};

VELMORA_TEST(NSArrayControllerTest)
#include "NSArrayControllerTest.moc"
