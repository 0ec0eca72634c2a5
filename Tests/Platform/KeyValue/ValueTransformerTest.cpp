#include "Platform/KeyValue/ValueTransformer.h"

#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/Error.h"
#include "Platform/KeyValue/Binding.h"
#include "Support/TestMain.h"

class Suffix : public ValueTransformer {
public:
    explicit Suffix(const QString &suffix) : m_suffix(suffix) {}
    QMetaType transformedValueClass() const override { return QMetaType::fromType<QString>(); }
    QVariant transformedValue(const QVariant &value) const override {
        return value.toString() + m_suffix;
    }

private:
    QString m_suffix;
};

class ValueTransformerTest : public QObject {
    Q_OBJECT

    static QVariant transformed(const char *name, const QVariant &value) {
        return ValueTransformer::transformerForName(QString::fromLatin1(name))
            ->transformedValue(value);
    }

private Q_SLOTS:
    void nilAndNotNilTellAbsenceApart() {
        const QVariant none = QVariant::fromValue(std::optional<Error>());
        const QVariant some = QVariant::fromValue(std::optional<Error>(Error()));
        QCOMPARE(transformed("NSIsNil", QVariant()), QVariant(true));
        QCOMPARE(transformed("NSIsNil", none), QVariant(true));
        QCOMPARE(transformed("NSIsNil", some), QVariant(false));
        QCOMPARE(transformed("NSIsNotNil", QVariant()), QVariant(false));
        QCOMPARE(transformed("NSIsNotNil", none), QVariant(false));
        QCOMPARE(transformed("NSIsNotNil", some), QVariant(true));
        QCOMPARE(transformed("NSIsNotNil", 0), QVariant(true));
    }

    void negationTreatsNullAsFalse() {
        QCOMPARE(transformed("NSNegateBoolean", true), QVariant(false));
        QCOMPARE(transformed("NSNegateBoolean", false), QVariant(true));
        QCOMPARE(transformed("NSNegateBoolean", QVariant()), QVariant(true));
    }

    void builtInTransformersReturnBooleans() {
        for (const char *name : {"NSIsNil", "NSIsNotNil", "NSNegateBoolean"}) {
            QCOMPARE(ValueTransformer::transformerForName(QString::fromLatin1(name))
                         ->transformedValueClass(),
                     QMetaType::fromType<bool>());
        }
    }

    void anUnknownNameIsAnError() {
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, (void)ValueTransformer::transformerForName(
                                                       QStringLiteral("unknown")));
    }

    void aLaterTransformerReplacesAnEarlierOneAlsoInABindingThatStands() {
        const QString name = QStringLiteral("Suffix");
        ValueTransformer::setTransformerForName(std::make_unique<Suffix>(QStringLiteral("1")),
                                                name);
        QObject model;
        QObject target;
        model.setObjectName(QStringLiteral("a"));
        KeyValue::bind(&target, "objectName", &model, "objectName",
                       {{QStringLiteral("NSValueTransformerName"), name}});
        QCOMPARE(target.objectName(), QStringLiteral("a1"));
        ValueTransformer::setTransformerForName(std::make_unique<Suffix>(QStringLiteral("2")),
                                                name);
        model.setObjectName(QStringLiteral("b"));
        QCOMPARE(target.objectName(), QStringLiteral("b2"));
    }
};

VELMORA_TEST(ValueTransformerTest)
#include "ValueTransformerTest.moc"
