#include "Platform/KeyValue/Binding.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>

#include "Platform/Foundation/Assertion.h"
#include "Platform/KeyValue/ArrayController.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Support/TestMain.h"

using KeyValue::bind;
using KeyValue::Direction;
using KeyValue::unbind;

/// A model that takes no text longer than three letters, trims what it takes, and counts.
class Model : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool flag READ flag WRITE setFlag NOTIFY flagChanged)
    Q_PROPERTY(std::shared_ptr<Model> inner READ inner WRITE setInner NOTIFY innerChanged)
    Q_PROPERTY(QString silent READ silent WRITE setSilent)
    Q_PROPERTY(QVariant error READ error NOTIFY textChanged)

public:
    QString text() const { return m_text; }
    void setText(const QString &text) {
        ++writes;
        if (text.size() > 3) {
            return;
        }
        m_text = text.trimmed();
        KeyValue::announce<&Model::textChanged>(this);
    }
    bool flag() const { return m_flag; }
    void setFlag(bool flag) {
        m_flag = flag;
        KeyValue::announce<&Model::flagChanged>(this);
    }
    std::shared_ptr<Model> inner() const { return m_inner; }
    void setInner(const std::shared_ptr<Model> &inner) {
        m_inner = inner;
        KeyValue::announce<&Model::innerChanged>(this);
    }
    QString silent() const { return m_silent; }
    void setSilent(const QString &silent) { m_silent = silent; }
    QVariant error() const { return {}; }

    int writes = 0;

Q_SIGNALS:
    void textChanged();
    void flagChanged();
    void innerChanged();

private:
    QString m_text;
    bool m_flag = false;
    std::shared_ptr<Model> m_inner;
    QString m_silent;
};

/// A target that counts what it is set to and may refuse "no".
class Target : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QVariant anything READ anything WRITE setAnything NOTIFY anythingChanged)
    Q_PROPERTY(int number READ number WRITE setNumber NOTIFY numberChanged)

public:
    QString text() const { return m_text; }
    void setText(const QString &text) {
        ++sets;
        if (text != QLatin1StringView("no")) {
            m_text = text;
        }
        KeyValue::announce<&Target::textChanged>(this);
    }
    QVariant anything() const { return m_anything; }
    void setAnything(const QVariant &anything) {
        m_anything = anything;
        KeyValue::announce<&Target::anythingChanged>(this);
    }
    int number() const { return m_number; }
    void setNumber(int number) {
        m_number = number;
        KeyValue::announce<&Target::numberChanged>(this);
    }

    int sets = 0;

Q_SIGNALS:
    void textChanged();
    void anythingChanged();
    void numberChanged();

private:
    QString m_text;
    QVariant m_anything;
    int m_number = 0;
};

/// A list as a list view is: rebuilding it silently drops the selection, its selection is read from
/// its items, and its setter announces always.
class BoundList : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList content READ content WRITE setContent NOTIFY contentChanged)
    Q_PROPERTY(IndexSet selectionIndexes READ selectionIndexes WRITE setSelectionIndexes NOTIFY
                   selectionIndexesChanged)

public:
    ~BoundList() override { unbindSelection(); }
    QVariantList content() const { return m_content; }
    void setContent(const QVariantList &content) {
        ++rebuilds;
        m_content = content;
        m_selected = QList<bool>(content.size(), false);
        KeyValue::announce<&BoundList::contentChanged>(this);
    }
    IndexSet selectionIndexes() const {
        IndexSet result;
        for (qsizetype i = 0; i < m_selected.size(); ++i) {
            if (m_selected[i]) {
                result.insert(i);
            }
        }
        return result;
    }
    void setSelectionIndexes(const IndexSet &indexes) {
        ++selections;
        for (qsizetype i = 0; i < m_selected.size(); ++i) {
            m_selected[i] = indexes.contains(i) && m_content[i] != refused;
        }
        KeyValue::announce<&BoundList::selectionIndexesChanged>(this);
    }
    void bindTo(ArrayController *controller) {
        bind(this, "content", controller, "arrangedObjects");
        setSelectionIndexes(controller->selectionIndexes());
        m_record = KeyValue::observe(this, "selectionIndexes", [this, controller] {
            controller->setSelectionIndexes(selectionIndexes());
        });
        bind(this, "selectionIndexes", controller, "selectionIndexes");
    }
    void unbindSelection() {
        m_record.stop();
        unbind(this, "selectionIndexes");
    }

    QVariant refused;
    int rebuilds = 0;
    int selections = 0;

Q_SIGNALS:
    void contentChanged();
    void selectionIndexesChanged();

private:
    QVariantList m_content;
    QList<bool> m_selected;
    KeyValue::Observation m_record;
};

class BindingTest : public QObject {
    Q_OBJECT

    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");

private Q_SLOTS:
    void theTargetShowsTheModelAtOnceAndAfterEachAnnouncementAlsoAnEqualOne() {
        Model model;
        Target target;
        model.setText(a);
        bind(&target, "text", &model, "text");
        QCOMPARE(target.text(), a);
        QCOMPARE(target.sets, 1);
        model.setText(b);
        model.setText(b);
        QCOMPARE(target.text(), b);
        QCOMPARE(target.sets, 3);
    }

    void aOneWayBindingNeverWritesToTheModel() {
        Model model;
        Target target;
        bind(&target, "text", &model, "text");
        target.setText(a);
        QCOMPARE(target.text(), a);
        QCOMPARE(model.writes, 0);
    }

    void aTwoWayBindingWritesTheChangesOfTheUser() {
        Model model;
        QLineEdit edit;
        bind(&edit, "text", &model, "text", {}, Direction::BothWays);
        edit.setText(a);
        QCOMPARE(model.text(), a);
        QCOMPARE(model.writes, 1);
        model.setText(b);
        QCOMPARE(edit.text(), b);
        QCOMPARE(model.writes, 2);
    }

    void aValueThatTheModelRefusesSnapsBack() {
        Model model;
        model.setText(a);
        QLineEdit edit;
        bind(&edit, "text", &model, "text", {}, Direction::BothWays);
        edit.setText(QStringLiteral("too long"));
        QCOMPARE(edit.text(), a);
        QCOMPARE(model.text(), a);
    }

    void aValueThatTheModelAltersIsShownAsAltered() {
        Model model;
        QLineEdit edit;
        bind(&edit, "text", &model, "text", {}, Direction::BothWays);
        edit.setText(QStringLiteral(" a "));
        QCOMPARE(model.text(), a);
        QCOMPARE(edit.text(), a);
        QCOMPARE(model.writes, 1);
    }

    void typingInTheMiddleOfALineKeepsTheCursorThere() {
        Model model;
        QLineEdit edit;
        bind(&edit, "text", &model, "text", {}, Direction::BothWays);
        edit.setText(QStringLiteral("ac"));
        edit.setCursorPosition(1);
        QTest::keyClicks(&edit, b);
        QCOMPARE(model.text(), QStringLiteral("abc"));
        QCOMPARE(edit.cursorPosition(), 2);
    }

    void showingTheModelWritesNothingBackEvenWhenTheTargetRefuses() {
        Model model;
        Target target;
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        model.setText(QStringLiteral("no"));
        QCOMPARE(target.text(), QString());
        QCOMPARE(model.text(), QStringLiteral("no"));
        QCOMPARE(model.writes, 1);
        target.setText(a);
        QCOMPARE(model.text(), a);
    }

    void anEqualValueOfTheTargetIsNotWritten() {
        Model model;
        model.setText(a);
        Target target;
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        target.setText(a);
        QCOMPARE(model.writes, 1);
    }

    void valuesOfDifferentTypesAreConverted() {
        Model model;
        model.setText(QStringLiteral("12"));
        Target target;
        bind(&target, "number", &model, "text", {}, Direction::BothWays);
        QCOMPARE(target.number(), 12);
        target.setNumber(34);
        QCOMPARE(model.text(), QStringLiteral("34"));
        target.setNumber(12345);
        QCOMPARE(target.number(), 34);
    }

    void twoTargetsOfOneModelFollowEachOther() {
        Model model;
        QCheckBox first;
        QCheckBox second;
        bind(&first, "checked", &model, "flag", {}, Direction::BothWays);
        bind(&second, "checked", &model, "flag", {}, Direction::BothWays);
        first.click();
        QVERIFY(model.flag());
        QVERIFY(second.isChecked());
        second.click();
        QVERIFY(!model.flag());
        QVERIFY(!first.isChecked());
    }

    void aPathIsFollowedAndItsAbsenceShownAsTheTypesNothing() {
        Model model;
        Target target;
        bind(&target, "text", &model, "inner.text", {}, Direction::BothWays);
        bind(&target, "anything", &model, "inner.text");
        QVERIFY(!target.anything().isValid());
        const auto inner = std::make_shared<Model>();
        inner->setText(a);
        model.setInner(inner);
        QCOMPARE(target.text(), a);
        QCOMPARE(target.anything(), QVariant(a));
        target.setText(b);
        QCOMPARE(inner->text(), b);
        model.setInner(nullptr);
        QCOMPARE(target.text(), QString());
        QVERIFY(!target.anything().isValid());
        target.setText(a);
        QCOMPARE(target.text(), QString());
    }

    void aKeyWithoutNotifyIsReadOnce() {
        Model model;
        model.setSilent(a);
        Target target;
        bind(&target, "text", &model, "silent");
        model.setSilent(b);
        QCOMPARE(target.text(), a);
    }

    void aSilentModelIsWrittenAndShownAsItIs() {
        Model model;
        Target target;
        bind(&target, "text", &model, "silent", {}, Direction::BothWays);
        target.setText(a);
        QCOMPARE(model.silent(), a);
        QCOMPARE(target.text(), a);
    }

    void aNamedTransformerIsAppliedOnTheWayToTheTarget() {
        const QVariantMap options{
            {QStringLiteral("NSValueTransformerName"), QStringLiteral("NSNegateBoolean")}};
        Model model;
        QCheckBox box;
        bind(&box, "checked", &model, "flag", options);
        QVERIFY(box.isChecked());
        model.setFlag(true);
        QVERIFY(!box.isChecked());
        QVERIFY_THROWS_EXCEPTION(
            AssertionFailure, bind(&box, "checked", &model, "flag", options, Direction::BothWays));
    }

    void unbindingKeepsTheValueAndEndsBothDirections() {
        Model model;
        Target target;
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        bind(&target, "number", &model, "flag");
        model.setText(a);
        unbind(&target, "text");
        unbind(&target, "text");
        unbind(&target, "missing");
        model.setText(b);
        QCOMPARE(target.text(), a);
        target.setText(QStringLiteral("c"));
        QCOMPARE(model.text(), b);
        model.setFlag(true);
        QCOMPARE(target.number(), 1);
    }

    void theBindingEndsWithTheTarget() {
        Model model;
        auto target = std::make_unique<Target>();
        bind(target.get(), "text", &model, "text", {}, Direction::BothWays);
        target.reset();
        model.setText(a);
        QCOMPARE(model.text(), a);
    }

    void theBindingEndsQuietlyWithTheObservedObject() {
        auto model = std::make_unique<Model>();
        model->setText(a);
        Target target;
        bind(&target, "text", model.get(), "text", {}, Direction::BothWays);
        model.reset();
        QCOMPARE(target.text(), a);
        target.setText(b);
        QCOMPARE(target.text(), b);
        unbind(&target, "text");
    }

    void unbindingInsideADeliveryToTheTargetIsSafe() {
        Model model;
        Target target;
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        const auto observation =
            KeyValue::observe(&target, "text", [&] { unbind(&target, "text"); });
        model.setText(a);
        model.setText(b);
        QCOMPARE(target.text(), a);
    }

    void unbindingInsideTheInitialDeliveryIsSafe() {
        Model model;
        model.setText(a);
        Target target;
        const auto observation =
            KeyValue::observe(&target, "text", [&] { unbind(&target, "text"); });
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        model.setText(b);
        QCOMPARE(target.text(), a);
    }

    void unbindingInsideAWriteToTheModelIsSafe() {
        Model model;
        Target target;
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        const auto observation =
            KeyValue::observe(&model, "text", [&] { unbind(&target, "text"); });
        target.setText(a);
        model.setText(b);
        QCOMPARE(target.text(), a);
    }

    void deletingEitherSideInsideAWriteIsSafe() {
        auto *model = new Model;
        auto *target = new Target;
        bind(target, "text", model, "text", {}, Direction::BothWays);
        {
            const auto observation = KeyValue::observe(model, "text", [&] { delete model; });
            target->setText(a);
        }
        Model other;
        bind(target, "text", &other, "text", {}, Direction::BothWays);
        const auto observation =
            KeyValue::observe(&other, "text", [&] { delete std::exchange(target, nullptr); });
        target->setText(b);
        QVERIFY(!target);
        QCOMPARE(other.text(), b);
    }

    void deletingTheTargetWhileItIsShownIsSafe() {
        Model model;
        auto *target = new Target;
        bind(target, "text", &model, "text", {}, Direction::BothWays);
        const auto observation =
            KeyValue::observe(target, "text", [&] { delete std::exchange(target, nullptr); });
        model.setText(a);
        QVERIFY(!target);
        model.setText(b);
        QCOMPARE(model.text(), b);
    }

    void aModelThatChangesWhileItIsShownEndsUpShown() {
        Model model;
        Target target;
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        const auto observation = KeyValue::observe(&target, "text", [&] {
            if (target.text() == a) {
                model.setText(b);
            }
        });
        model.setText(a);
        QCOMPARE(target.text(), b);
        QCOMPARE(model.text(), b);
        QCOMPARE(model.writes, 2);
    }

    void anExceptionWhileTheModelIsShownLeavesTheBindingWorking() {
        Model model;
        Target target;
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        {
            const auto observation = KeyValue::observe(
                &target, "text", [] { failAssertion(QStringLiteral("no"), "method", "file"); });
            QVERIFY_THROWS_EXCEPTION(AssertionFailure, model.setText(a));
            QVERIFY_THROWS_EXCEPTION(AssertionFailure, target.setText(b));
        }
        target.setText(QStringLiteral("c"));
        QCOMPARE(model.text(), QStringLiteral("c"));
        model.setText(a);
        QCOMPARE(target.text(), a);
    }

    void anExceptionFromTheModelLeavesTheBindingWorking() {
        Model model;
        Target target;
        bind(&target, "text", &model, "text", {}, Direction::BothWays);
        {
            const auto observation = KeyValue::observe(
                &model, "text", [] { failAssertion(QStringLiteral("no"), "method", "file"); });
            QVERIFY_THROWS_EXCEPTION(AssertionFailure, target.setText(a));
        }
        model.setText(b);
        QCOMPARE(target.text(), b);
    }

    void aBindingThatCannotBeMadeIsAnErrorAndLeavesNothing() {
        Model model;
        Target target;
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, bind(&target, "missing", &model, "text"));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, bind(&target, "text", &model, "missing"));
        QVERIFY_THROWS_EXCEPTION(AssertionFailure,
                                 bind(&target, "missing", &model, "text", {}, Direction::BothWays));
        const QVariantMap unknown{
            {QStringLiteral("NSValueTransformerName"), QStringLiteral("unknown")}};
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, bind(&target, "text", &model, "text", unknown));
        model.setText(a);
        QVERIFY_THROWS_EXCEPTION(AssertionFailure, bind(&target, "number", &model, "text"));
        QCOMPARE(target.children().size(), 0);
        model.setText(b);
        QCOMPARE(target.sets, 0);
        QVERIFY(target.dynamicPropertyNames().isEmpty());
    }

    void aListAndAnArrayControllerShareTheSelectionBothWays() {
        ArrayController controller;
        controller.setContent({1, 2, 3});
        controller.setSelectionIndexes({1});
        BoundList list;
        list.bindTo(&controller);
        QCOMPARE(list.content(), QVariantList({1, 2, 3}));
        QCOMPARE(list.selectionIndexes(), IndexSet({1}));

        list.setSelectionIndexes({0, 2});
        QCOMPARE(controller.selectedObjects(), QVariantList({1, 3}));
        controller.setSelectionIndexes({2});
        QCOMPARE(list.selectionIndexes(), IndexSet({2}));
    }

    void aRebuiltListShowsTheSelectionAgainAlsoAnEqualOne() {
        ArrayController controller;
        controller.setContent({1, 2, 3});
        BoundList list;
        list.bindTo(&controller);
        list.setSelectionIndexes({1});
        const int rebuilds = list.rebuilds;
        controller.setContent({1, 2, 3});
        QCOMPARE(list.rebuilds, rebuilds + 1);
        QCOMPARE(list.selectionIndexes(), IndexSet({1}));
        controller.setContent({2, 3});
        QCOMPARE(list.selectionIndexes(), IndexSet({0}));
        QCOMPARE(controller.selectedObjects(), QVariantList{2});
        controller.setContent({3});
        QCOMPARE(list.selectionIndexes(), IndexSet());
    }

    void aSelectionRefusedByTheListIsResetInTheController() {
        ArrayController controller;
        controller.setContent({1, 2, 3});
        BoundList list;
        list.refused = 2;
        list.bindTo(&controller);
        controller.setSelectionIndexes({0, 1});
        QCOMPARE(list.selectionIndexes(), IndexSet({0}));
        QCOMPARE(controller.selectionIndexes(), IndexSet({0}));
        controller.setSelectionIndexes({1});
        QCOMPARE(controller.selectionIndexes(), IndexSet());
    }

    void eachSelectionOfAListEndsAfterOneRoundTrip() {
        ArrayController controller;
        controller.setContent({1, 2, 3});
        BoundList list;
        list.bindTo(&controller);
        const int selections = list.selections;
        QSignalSpy spy(&controller, &ArrayController::selectionIndexesChanged);
        list.setSelectionIndexes({1});
        QCOMPARE(spy.size(), 1);
        QCOMPARE(list.selections, selections + 2);
    }

    void anUnboundListNeitherFollowsNorWrites() {
        ArrayController controller;
        controller.setContent({1, 2, 3});
        BoundList list;
        list.bindTo(&controller);
        list.unbindSelection();
        list.setSelectionIndexes({1});
        QCOMPARE(controller.selectionIndexes(), IndexSet());
        controller.setSelectionIndexes({2});
        QCOMPARE(list.selectionIndexes(), IndexSet({1}));
    }
};

VELMORA_TEST(BindingTest)
#include "BindingTest.moc"
