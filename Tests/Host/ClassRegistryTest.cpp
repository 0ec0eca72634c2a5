#include "Host/ClassRegistry.h"

#include <thread>

#include "Platform/Foundation/Assertion.h"
#include "Support/TestMain.h"

namespace {
struct FirstClass : HostClass {
    static constexpr QLatin1StringView Name{"QVTestClass"};
};
struct SecondClass : HostClass {};
}  // namespace

class ClassRegistryTest : public QObject {
    Q_OBJECT

    const QString m_name = FirstClass::Name;

private Q_SLOTS:
    void anUnknownNameHasNoClass() {
        QCOMPARE(NSClassFromString(m_name), nullptr);
        QCOMPARE(NSClassFromString(QString()), nullptr);
    }

    void aClassIsFoundUnderItsExactNameWhileItsRegistrationLives() {
        FirstClass object;
        {
            const HostClassRegistration registration(m_name, &object);
            QCOMPARE(NSClassFromString(m_name), &object);
            QCOMPARE(NSClassFromString(m_name.toLower()), nullptr);
        }
        QCOMPARE(NSClassFromString(m_name), nullptr);
        const HostClassRegistration again(m_name, &object);
        QCOMPARE(NSClassFromString(m_name), &object);
    }

    void aSecondClassOfTheNameRaisesAndLeavesTheFirst() {
        FirstClass first;
        SecondClass second;
        const HostClassRegistration registration(m_name, &first);
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, HostClassRegistration(m_name, &second));
        QCOMPARE(NSClassFromString(m_name), &first);
    }

    void aRequiredClassIsGivenAsWhatItIs() {
        FirstClass object;
        const HostClassRegistration registration(&object);
        QCOMPARE(&requiredHostClass<FirstClass>(), &object);
    }

    void aRequiredClassThatIsMissingOrAnotherRaisesWithItsName() {
        try {
            requiredHostClass<FirstClass>();
            QFAIL("a missing class was found");
        } catch (const AssertionFailure &failure) {
            QVERIFY(failure.message().contains(m_name));
        }
        SecondClass object;
        const HostClassRegistration registration(m_name, &object);
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, requiredHostClass<FirstClass>());
    }

    void aClassHasTheVersionOfTheHeadersThatItsHostWasCompiledWith() {
        QCOMPARE(hostVersionOfClass(m_name), std::nullopt);
        FirstClass object;
        const HostClassRegistration registration(m_name, &object);
        QCOMPARE(hostVersionOfClass(m_name), CurrentHostVersion);
    }

    void anyThreadMayRegisterAndLookUp() {
        const auto work = [](const QString &name, bool *isSound) {
            FirstClass object;
            *isSound = true;
            for (int i = 0; i < 1000; ++i) {
                const HostClassRegistration registration(name, &object);
                *isSound = *isSound && NSClassFromString(name) == &object;
            }
        };
        bool isFirstSound = false;
        bool isSecondSound = false;
        std::thread first(work, QStringLiteral("first"), &isFirstSound);
        std::thread second(work, QStringLiteral("second"), &isSecondSound);
        first.join();
        second.join();
        QVERIFY(isFirstSound);
        QVERIFY(isSecondSound);
    }
};

VELMORA_TEST(ClassRegistryTest)
#include "ClassRegistryTest.moc"
