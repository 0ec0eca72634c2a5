#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Url.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Support/TestMain.h"

class User : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName)
    Q_PROPERTY(int age MEMBER m_age)
    Q_PROPERTY(bool old READ isOld)
    Q_PROPERTY(QVariant anything MEMBER m_anything)
    Q_PROPERTY(std::shared_ptr<User> friend_ MEMBER m_friend)
    Q_PROPERTY(User *boss MEMBER m_boss)
    Q_PROPERTY(std::optional<Error> error MEMBER m_error)

public:
    QString name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    bool isOld() const { return m_age > 40; }

    QString m_name;
    int m_age = 0;
    QVariant m_anything;
    std::shared_ptr<User> m_friend;
    User *m_boss = nullptr;
    std::optional<Error> m_error;
};

class NeverRegistered : public User {
    Q_OBJECT
};

class KeyValueCodingTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aSharedPointerOfATypeNeverSeenBeforeYieldsItsObject() {
        const auto object = std::make_shared<NeverRegistered>();
        QCOMPARE(KeyValue::objectValue(QVariant::fromValue(object)), object.get());
        User user;
        user.m_anything = QVariant::fromValue(object);
        object->setName(QStringLiteral("n"));
        QCOMPARE(KeyValue::value(&user, "anything.name"), QVariant(QStringLiteral("n")));
    }

    void objectsAreFoundInEveryKindOfPointer() {
        User user;
        const auto shared = std::make_shared<User>();
        QCOMPARE(KeyValue::objectValue(QVariant::fromValue(&user)), &user);
        QCOMPARE(KeyValue::objectValue(QVariant::fromValue(static_cast<QObject *>(&user))), &user);
        QCOMPARE(KeyValue::objectValue(QVariant::fromValue(shared)), shared.get());
        QCOMPARE(
            KeyValue::objectValue(QVariant::fromValue(std::static_pointer_cast<QObject>(shared))),
            shared.get());
        QCOMPARE(KeyValue::objectValue(QVariant::fromValue(std::shared_ptr<User>())), nullptr);
        QCOMPARE(KeyValue::objectValue(QVariant()), nullptr);
        QCOMPARE(KeyValue::objectValue(QVariant(5)), nullptr);
        QCOMPARE(KeyValue::objectValue(QVariant(QStringLiteral("x"))), nullptr);
    }

    void nullValuesOfEachTypeAreAbsent() {
        User user;
        QVERIFY(KeyValue::isAbsent(QVariant()));
        QVERIFY(KeyValue::isAbsent(QVariant::fromValue(nullptr)));
        QVERIFY(KeyValue::isAbsent(QVariant::fromValue<User *>(nullptr)));
        QVERIFY(KeyValue::isAbsent(QVariant::fromValue(std::shared_ptr<User>())));
        QVERIFY(KeyValue::isAbsent(QVariant::fromValue(std::optional<Error>())));
        QVERIFY(KeyValue::isAbsent(QVariant(QDateTime())));
        QVERIFY(KeyValue::isAbsent(QVariant::fromValue(Url())));
        QVERIFY(!KeyValue::isAbsent(QVariant::fromValue(&user)));
        QVERIFY(!KeyValue::isAbsent(QVariant::fromValue(std::make_shared<User>())));
        QVERIFY(!KeyValue::isAbsent(QVariant::fromValue(std::optional<Error>(Error()))));
        QVERIFY(!KeyValue::isAbsent(QVariant(QDateTime::currentDateTime())));
        QVERIFY(
            !KeyValue::isAbsent(QVariant::fromValue(Url::fromString(QStringLiteral("http://a")))));
        QVERIFY(!KeyValue::isAbsent(QVariant(QString())));
        QVERIFY(!KeyValue::isAbsent(QVariant(0)));
        QVERIFY(!KeyValue::isAbsent(QVariant(false)));
        QVERIFY(!KeyValue::isAbsent(QVariant(QVariantList())));
    }

    void valuesAreReadAndWrittenAlongPaths() {
        User user;
        user.m_friend = std::make_shared<User>();
        User boss;
        user.m_friend->m_boss = &boss;
        KeyValue::setValue(&user, "friend_.boss.name", QStringLiteral("n"));
        QCOMPARE(boss.name(), QStringLiteral("n"));
        QCOMPARE(KeyValue::value(&user, "friend_.boss.name"), QVariant(QStringLiteral("n")));
        QVERIFY(KeyValue::isWritable(&user, "friend_.boss.name"));
        QVERIFY(!KeyValue::isWritable(&user, "friend_.boss.old"));
    }

    void aPathThroughNullIsNeitherReadableNorWritable() {
        User user;
        QVERIFY(!KeyValue::value(&user, "friend_.boss.name").isValid());
        QVERIFY(!KeyValue::value(&user, "boss.name").isValid());
        QVERIFY(!KeyValue::value(&user, "anything.name").isValid());
        KeyValue::setValue(&user, "friend_.boss.name", QStringLiteral("n"));
        QVERIFY(!KeyValue::isWritable(&user, "friend_.name"));
    }

    void anInvalidVariantWritesTheTypesNothing() {
        User user;
        User boss;
        user.m_name = QStringLiteral("n");
        user.m_age = 5;
        user.m_boss = &boss;
        user.m_friend = std::make_shared<User>();
        user.m_error = Error();
        user.m_anything = 5;
        for (const char *key : {"name", "age", "boss", "friend_", "error", "anything"}) {
            KeyValue::setValue(&user, key, QVariant());
        }
        QCOMPARE(user.m_name, QString());
        QCOMPARE(user.m_age, 0);
        QCOMPARE(user.m_boss, nullptr);
        QCOMPARE(user.m_friend, nullptr);
        QVERIFY(!user.m_error);
        QVERIFY(!user.m_anything.isValid());
    }

    void aValueThatConvertsIsWritten() {
        User user;
        KeyValue::setValue(&user, "age", QStringLiteral("42"));
        QCOMPARE(user.m_age, 42);
        QVERIFY(KeyValue::value(&user, "old").toBool());
    }

    void aMissingKeyRaisesAndNeverBecomesADynamicProperty() {
        User user;
        user.m_boss = &user;
        for (const char *key : {"missing", "", "boss.missing", "boss..name", ".name", "Name"}) {
            QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)KeyValue::value(&user, key));
            QVERIFY_THROWS_EXCEPTION(AssertionFailure, KeyValue::setValue(&user, key, 1));
            QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)KeyValue::isWritable(&user, key));
        }
        QVERIFY(user.dynamicPropertyNames().isEmpty());
        user.setProperty("dynamic", 1);
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)KeyValue::value(&user, "dynamic"));
    }

    void theMessageNamesClassAndKey() {
        User user;
        try {
            KeyValue::setValue(&user, "missing", 1);
            QFAIL("a missing key was written");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(), QStringLiteral("User has no key \"missing\""));
        }
        try {
            KeyValue::setValue(&user, "age", QStringLiteral("x"));
            QFAIL("a wrong type was written");
        } catch (const AssertionFailure &failure) {
            QCOMPARE(failure.message(),
                     QStringLiteral(
                         "A value of type QString cannot be set for the key \"age\" of User"));
        }
    }

    void aValueOfAWrongTypeRaisesAndChangesNothing() {
        User user;
        QObject other;
        user.m_age = 5;
        QVERIFY_THROWS_EXCEPTION(AssertionFailure,
                                 KeyValue::setValue(&user, "age", QStringLiteral("x")));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, KeyValue::setValue(&user, "friend_", 5));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure,
                                 KeyValue::setValue(&user, "boss", QVariant::fromValue(&other)));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, KeyValue::setValue(&user, "old", true));
        QCOMPARE(user.m_age, 5);
        QCOMPARE(user.m_boss, nullptr);
        QVERIFY(user.dynamicPropertyNames().isEmpty());
    }

    void aPathThroughAValueThatIsNoObjectRaises() {
        User user;
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)KeyValue::value(&user, "age.name"));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, KeyValue::setValue(&user, "name.age", 1));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)KeyValue::isWritable(&user, "name.age"));
    }

    void aMissingObjectRaises() {
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)KeyValue::value(nullptr, "name"));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, KeyValue::setValue(nullptr, "name", 1));
    }
};

VELMORA_TEST(KeyValueCodingTest)
#include "KeyValueCodingTest.moc"
