#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Support/TestMain.h"

using KeyValue::KeyPaths;

#define KEY(name)                                       \
    int name() const {                                  \
        return 0;                                       \
    }                                                   \
    void announce_##name() {                            \
        KeyValue::announce<&Self::name##Changed>(this); \
    }

/// What `object` announces, in order.
class Recorder {
public:
    explicit Recorder(QObject *object) {
        const QMetaObject *meta = object->metaObject();
        for (int i = 0; i < meta->propertyCount(); ++i) {
            const QByteArray key = meta->property(i).name();
            if (meta->property(i).hasNotifySignal()) {
                m_observations.push_back(
                    KeyValue::observe(object, key, [this, key] { m_keys.append(key); }));
            }
        }
    }
    QByteArray take() { return std::exchange(m_keys, {}).join(' '); }

private:
    QByteArrayList m_keys;
    std::vector<KeyValue::Observation> m_observations;
};

/// Keys declared in an order that is not the one of their dependencies.
///   source -> left, right -> bottom; source -> far; bottom -> far
class Diamond : public QObject {
    Q_OBJECT
    Q_PROPERTY(int far READ far NOTIFY farChanged)
    Q_PROPERTY(int bottom READ bottom NOTIFY bottomChanged)
    Q_PROPERTY(int silent READ silent)
    Q_PROPERTY(int right READ right NOTIFY rightChanged)
    Q_PROPERTY(int left READ left NOTIFY leftChanged)
    Q_PROPERTY(int source READ source NOTIFY sourceChanged)
    Q_PROPERTY(int behindSilent READ behindSilent NOTIFY behindSilentChanged)

public:
    using Self = Diamond;
    KEY(source)
    KEY(left)
    KEY(right)
    KEY(bottom)
    KEY(far)
    KEY(behindSilent)
    int silent() const { return 0; }

    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingLeft() { return {"source"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingRight() { return {"source"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingBottom() { return {"left", "right"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingFar() { return {"source", "bottom"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingSilent() { return {"right"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingBehindSilent() { return {"silent"}; }

Q_SIGNALS:
    void sourceChanged();
    void leftChanged();
    void rightChanged();
    void bottomChanged();
    void farChanged();
    void behindSilentChanged();
};

/// Adds a dependent to an inherited key.
class DerivedDiamond : public Diamond {
    Q_OBJECT
    Q_PROPERTY(int added READ added NOTIFY addedChanged)
public:
    using Self = DerivedDiamond;
    KEY(added)
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingAdded() { return {"left"}; }
Q_SIGNALS:
    void addedChanged();
};

class Cycle : public QObject {
    Q_OBJECT
    Q_PROPERTY(int a READ a NOTIFY aChanged)
    Q_PROPERTY(int b READ b NOTIFY bChanged)
    Q_PROPERTY(int c READ c NOTIFY cChanged)
public:
    using Self = Cycle;
    KEY(a)
    KEY(b)
    KEY(c)
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingA() { return {"c"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingB() { return {"a"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingC() { return {"b"}; }
Q_SIGNALS:
    void aChanged();
    void bChanged();
    void cChanged();
};

/// "first" and "second" share a signal; "ofSecond" depends on the second alone.
class SharedSignal : public QObject {
    Q_OBJECT
    Q_PROPERTY(int ofSecond READ ofSecond NOTIFY ofSecondChanged)
    Q_PROPERTY(int first READ first NOTIFY bothChanged)
    Q_PROPERTY(int second READ second NOTIFY bothChanged)
    Q_PROPERTY(int source READ source NOTIFY sourceChanged)
public:
    using Self = SharedSignal;
    KEY(ofSecond)
    KEY(source)
    int first() const { return 0; }
    int second() const { return 0; }
    void announceBoth() { KeyValue::announce<&SharedSignal::bothChanged>(this); }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingOfSecond() { return {"second"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingFirst() { return {"second", "source"}; }
Q_SIGNALS:
    void ofSecondChanged();
    void bothChanged();
    void sourceChanged();
};

class Row : public QObject {
    Q_OBJECT
    Q_PROPERTY(int schedule READ schedule NOTIFY scheduleChanged)
    Q_PROPERTY(int name READ name NOTIFY nameChanged)
public:
    using Self = Row;
    KEY(schedule)
    KEY(name)
Q_SIGNALS:
    void scheduleChanged();
    void nameChanged();
};

/// Depends on a row and on keys of it.
class Editor : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariant row READ row WRITE setRow NOTIFY rowChanged)
    Q_PROPERTY(int schedule READ schedule NOTIFY scheduleChanged)
    Q_PROPERTY(int hourly READ hourly NOTIFY hourlyChanged)
    Q_PROPERTY(int nameOnly READ nameOnly NOTIFY nameOnlyChanged)
public:
    using Self = Editor;
    Editor() { KeyValue::followDependencies(this); }
    QVariant row() const { return m_row; }
    void setRow(const QVariant &row) {
        m_row = row;
        KeyValue::announce<&Editor::rowChanged>(this);
    }
    KEY(schedule)
    KEY(hourly)
    KEY(nameOnly)
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingSchedule() {
        return {"row", "row.schedule"};
    }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingHourly() { return {"schedule"}; }
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingNameOnly() { return {"row.name"}; }
Q_SIGNALS:
    void rowChanged();
    void scheduleChanged();
    void hourlyChanged();
    void nameOnlyChanged();

private:
    QVariant m_row;
};

/// Adds a dependent to what its base class derives from a path.
class DerivedEditor : public Editor {
    Q_OBJECT
    Q_PROPERTY(int added READ added NOTIFY addedChanged)
public:
    using Self = DerivedEditor;
    KEY(added)
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingAdded() { return {"schedule"}; }
Q_SIGNALS:
    void addedChanged();
};

class MisspeltDependency : public QObject {
    Q_OBJECT
    Q_PROPERTY(int key READ key NOTIFY keyChanged)
public:
    using Self = MisspeltDependency;
    KEY(key)
    Q_INVOKABLE static KeyPaths keyPathsForValuesAffectingKey() { return {"keey"}; }
Q_SIGNALS:
    void keyChanged();
};

class WrongDeclaration : public QObject {
    Q_OBJECT
    Q_PROPERTY(int key READ key NOTIFY keyChanged)
public:
    using Self = WrongDeclaration;
    KEY(key)
    Q_INVOKABLE static QStringList keyPathsForValuesAffectingKey() { return {}; }
Q_SIGNALS:
    void keyChanged();
};

class SignalWithArgument : public QObject {
    Q_OBJECT
    Q_PROPERTY(int key READ key NOTIFY keyChanged)
public:
    using Self = SignalWithArgument;
    KEY(key)
Q_SIGNALS:
    void keyChanged(int key);
    void noKeyChanged();
};

class DependentKeysTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void sourcesAreAnnouncedBeforeDependentsAndEachOnce() {
        Diamond diamond;
        Recorder recorder(&diamond);
        diamond.announce_source();
        QCOMPARE(recorder.take(), QByteArray("source right behindSilent left bottom far"));
        diamond.announce_left();
        QCOMPARE(recorder.take(), QByteArray("left bottom far"));
        diamond.announce_far();
        QCOMPARE(recorder.take(), QByteArray("far"));
    }

    void aKeyWithoutNotifyPassesAChangeOnButHasNoneItself() {
        Diamond diamond;
        Recorder recorder(&diamond);
        diamond.announce_right();
        QCOMPARE(recorder.take(), QByteArray("right bottom far behindSilent"));
    }

    void aDerivedClassAddsDependentsToInheritedKeys() {
        DerivedDiamond derived;
        Diamond base;
        Recorder ofDerived(&derived);
        Recorder ofBase(&base);
        for (int i = 0; i < 2; ++i) {
            derived.announce_left();
            base.announce_left();
            QCOMPARE(ofDerived.take(), QByteArray("left bottom far added"));
            QCOMPARE(ofBase.take(), QByteArray("left bottom far"));
        }
    }

    void inACycleEachKeyIsAnnouncedOnce() {
        Cycle cycle;
        Recorder recorder(&cycle);
        cycle.announce_a();
        QCOMPARE(recorder.take(), QByteArray("a b c"));
        cycle.announce_c();
        QCOMPARE(recorder.take(), QByteArray("c a b"));
    }

    void keysThatShareASignalAreAnnouncedTogetherWithTheDependentsOfEach() {
        SharedSignal object;
        Recorder recorder(&object);
        object.announceBoth();
        QCOMPARE(recorder.take(), QByteArray("first second ofSecond"));
        object.announce_source();
        QCOMPARE(recorder.take(), QByteArray("source first second ofSecond"));
    }

    void replacingTheHeadOfAPathAnnouncesEachDependentOnceAfterIt() {
        Editor editor;
        Recorder recorder(&editor);
        editor.setRow(QVariant::fromValue(std::make_shared<Row>()));
        QCOMPARE(recorder.take(), QByteArray("row schedule hourly nameOnly"));
        editor.setRow(QVariant());
        QCOMPARE(recorder.take(), QByteArray("row schedule hourly nameOnly"));
    }

    void aChangeBehindAPathAnnouncesItsDependentsAndNotTheHead() {
        Editor editor;
        const auto row = std::make_shared<Row>();
        editor.setRow(QVariant::fromValue(row));
        Recorder recorder(&editor);
        row->announce_schedule();
        QCOMPARE(recorder.take(), QByteArray("schedule hourly"));
        row->announce_name();
        QCOMPARE(recorder.take(), QByteArray("nameOnly"));
    }

    void aDerivedClassAddsDependentsToAPathOfItsBase() {
        DerivedEditor editor;
        const auto row = std::make_shared<Row>();
        editor.setRow(QVariant::fromValue(row));
        Recorder recorder(&editor);
        row->announce_schedule();
        QCOMPARE(recorder.take(), QByteArray("schedule hourly added"));
    }

    void anObjectThatWasReplacedBeforeTheFirstObservationIsNotObserved() {
        const auto first = std::make_shared<Row>();
        const auto second = std::make_shared<Row>();
        Editor editor;
        editor.setRow(QVariant::fromValue(first));
        editor.setRow(QVariant::fromValue(second));
        Recorder recorder(&editor);
        first->announce_schedule();
        QCOMPARE(recorder.take(), QByteArray());
        second->announce_schedule();
        QCOMPARE(recorder.take(), QByteArray("schedule hourly"));
        editor.setRow(QVariant());
        recorder.take();
        second->announce_schedule();
        QCOMPARE(recorder.take(), QByteArray());
    }

    void theFollowedObjectMayDieFirstOrLast() {
        const auto row = std::make_shared<Row>();
        {
            Editor editor;
            editor.setRow(QVariant::fromValue(row.get()));
            row->announce_schedule();
        }
        row->announce_schedule();

        Editor editor;
        auto short_lived = std::make_unique<Row>();
        editor.setRow(QVariant::fromValue(short_lived.get()));
        short_lived.reset();
        Recorder recorder(&editor);
        editor.announce_schedule();
        QCOMPARE(recorder.take(), QByteArray("schedule hourly"));
    }

    void deletingTheObjectAtItsFirstSignalEndsTheAnnouncement() {
        auto *diamond = new Diamond;
        int later = 0;
        const auto first = KeyValue::observe(diamond, "source", [&] { delete diamond; });
        const auto last = KeyValue::observe(diamond, "far", [&] { ++later; });
        diamond->announce_source();
        QCOMPARE(later, 0);
    }

    void deletingTheDependentObjectFromBehindItsPathIsSafe() {
        auto *editor = new Editor;
        const auto row = std::make_shared<Row>();
        editor->setRow(QVariant::fromValue(row));
        const auto observation = KeyValue::observe(editor, "schedule", [&] { delete editor; });
        row->announce_schedule();
        row->announce_schedule();
        QCOMPARE(row.use_count(), 1L);
    }

    void anExceptionKeepsTheOtherObserversFromThisNotificationOnly() {
        Diamond diamond;
        bool isThrowing = true;
        const auto observation = KeyValue::observe(&diamond, "left", [&] {
            if (isThrowing) {
                failAssertion(QStringLiteral("no"), "method", "file");
            }
        });
        Recorder recorder(&diamond);
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, diamond.announce_source());
        QCOMPARE(recorder.take(), QByteArray("source right behindSilent"));
        isThrowing = false;
        diamond.announce_source();
        QCOMPARE(recorder.take(), QByteArray("source right behindSilent left bottom far"));
    }

    void aDependencyOnAMissingKeyRaisesAnAssertion() {
        MisspeltDependency object;
        for (int i = 0; i < 2; ++i) {
            QVERIFY_THROWS_EXCEPTION(AssertionFailure, object.announce_key());
        }
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, KeyValue::followDependencies(&object));
    }

    void aDeclarationOfAnotherTypeRaises() {
        WrongDeclaration object;
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, object.announce_key());
    }

    void aSignalWithArgumentsOrOfNoKeyCannotBeAnnounced() {
        SignalWithArgument object;
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, object.announce_key());
        QVERIFY_THROWS_EXCEPTION(AssertionFailure,
                                 KeyValue::announce<&SignalWithArgument::noKeyChanged>(&object));
    }
};

VELMORA_TEST(DependentKeysTest)
#include "DependentKeysTest.moc"
