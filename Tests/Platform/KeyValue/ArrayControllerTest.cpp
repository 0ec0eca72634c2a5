#include "Platform/KeyValue/ArrayController.h"

#include "Support/TestMain.h"

class Item : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name)
    Q_PROPERTY(int size MEMBER m_size)
    Q_PROPERTY(std::shared_ptr<Item> part MEMBER m_part)
public:
    Item(const QString &name, int size) : m_name(name), m_size(size) {}
    QString m_name;
    int m_size;
    std::shared_ptr<Item> m_part;
};

namespace {

QVariant makeItem(const char *name, int size = 0) {
    return QVariant::fromValue(std::make_shared<Item>(QString::fromUtf8(name), size));
}

QString names(const QVariantList &items) {
    QStringList result;
    for (const QVariant &item : items) {
        result.append(KeyValue::value(KeyValue::objectValue(item), "name").toString());
    }
    return result.join(u' ');
}

}  // namespace

class ArrayControllerTest : public QObject {
    Q_OBJECT

    QByteArrayList m_announced;
    std::vector<KeyValue::Observation> m_observations;

    void record(ArrayController *controller) {
        for (const char *key : {"content", "arrangedObjects", "sortDescriptors", "selectionIndexes",
                                "selectedObjects"}) {
            m_observations.push_back(
                KeyValue::observe(controller, key, [this, key] { m_announced.append(key); }));
        }
    }
    QByteArray takeAnnounced() { return std::exchange(m_announced, {}).join(' '); }

private Q_SLOTS:
    void cleanup() {
        m_observations.clear();
        m_announced.clear();
    }

    void aNewControllerIsEmpty() {
        const ArrayController controller;
        QVERIFY(controller.content().isEmpty());
        QVERIFY(controller.arrangedObjects().isEmpty());
        QVERIFY(controller.selectionIndexes().empty());
        QVERIFY(controller.selectedObjects().isEmpty());
    }

    void unsortedContentIsHandedThroughAsTheVeryList() {
        ArrayController controller;
        const QVariantList content{makeItem("b"), makeItem("a")};
        controller.setContent(content);
        QCOMPARE(controller.arrangedObjects().constData(), content.constData());
    }

    void contentIsArrangedByItsDescriptors() {
        ArrayController controller;
        controller.setContent({makeItem("b", 1), makeItem("a", 2), makeItem("c", 1)});
        controller.setSortDescriptors({{"size"}, {"name", false}});
        QCOMPARE(names(controller.arrangedObjects()), QStringLiteral("c b a"));
        QCOMPARE(names(controller.content()), QStringLiteral("b a c"));
        controller.setSortDescriptors({{"size", false}});
        QCOMPARE(names(controller.arrangedObjects()), QStringLiteral("a b c"));
        controller.setSortDescriptors({});
        QCOMPARE(names(controller.arrangedObjects()), QStringLiteral("b a c"));
    }

    void stringsAreOrderedByTheirCodeUnits() {
        ArrayController controller;
        controller.setSortDescriptors({{"name"}});
        controller.setContent(
            {makeItem("é"), makeItem("a"), makeItem("Z"), makeItem("10"), makeItem("9")});
        QCOMPARE(names(controller.arrangedObjects()), QStringLiteral("10 9 Z a é"));
    }

    void plainValuesAreOrderedBySelf() {
        ArrayController controller;
        controller.setSortDescriptors({{"self", false}});
        controller.setContent({2, 3, 1});
        QCOMPARE(controller.arrangedObjects(), QVariantList({3, 2, 1}));
    }

    void absentObjectsAndValuesComeFirstAndTheRestStaysOrdered() {
        ArrayController controller;
        const auto whole = [](const char *name, const char *part) {
            auto item = std::make_shared<Item>(QString::fromUtf8(name), 0);
            item->m_part = std::make_shared<Item>(QString::fromUtf8(part), 0);
            return QVariant::fromValue(item);
        };
        controller.setSortDescriptors({{"part.name"}});
        controller.setContent(
            {whole("x", "3"), makeItem("none"), whole("y", "1"), makeItem("nil"), whole("z", "2")});
        QCOMPARE(names(controller.arrangedObjects()), QStringLiteral("none nil y z x"));
        controller.setContent({whole("x", "3"), QVariant::fromValue(std::shared_ptr<Item>())});
        QVERIFY(KeyValue::isAbsent(controller.arrangedObjects().constFirst()));
    }

    void newContentIsAnnouncedThenTheArrangedObjectsThenTheSelection() {
        ArrayController controller;
        record(&controller);
        const QByteArray expected("content arrangedObjects selectionIndexes selectedObjects");
        controller.setContent({1, 2});
        QCOMPARE(takeAnnounced(), expected);
        controller.setContent({1, 2});
        QCOMPARE(takeAnnounced(), expected);
    }

    void newDescriptorsAreAnnouncedThenTheArrangedObjectsThenTheSelection() {
        ArrayController controller;
        controller.setContent({1, 2});
        record(&controller);
        controller.setSortDescriptors({{"self", false}});
        QCOMPARE(takeAnnounced(), QByteArray("sortDescriptors arrangedObjects selectionIndexes "
                                             "selectedObjects"));
    }

    void aNewSelectionIsAnnouncedAndAnEqualOneIsNot() {
        ArrayController controller;
        controller.setContent({1, 2});
        record(&controller);
        controller.setSelectionIndexes({1});
        QCOMPARE(takeAnnounced(), QByteArray("selectionIndexes selectedObjects"));
        controller.setSelectionIndexes({1});
        QCOMPARE(takeAnnounced(), QByteArray());
        controller.setSelectionIndexes({1, 2, -1});
        QCOMPARE(takeAnnounced(), QByteArray());
        QCOMPARE(controller.selectionIndexes(), IndexSet({1}));
    }

    void theSelectionIsKnownBeforeTheArrangedObjectsAreAnnounced() {
        ArrayController controller;
        const QVariant a = makeItem("a");
        const QVariant b = makeItem("b");
        controller.setContent({a, b});
        controller.setSelectionIndexes({1});
        QString seen;
        const auto observation = KeyValue::observe(
            &controller, "arrangedObjects", [&] { seen = names(controller.selectedObjects()); });
        controller.setContent({b, a});
        QCOMPARE(seen, QStringLiteral("b"));
    }

    void theSelectionStaysOnTheSameObjects() {
        ArrayController controller;
        const QVariant a = makeItem("a");
        const QVariant b = makeItem("b");
        const QVariant c = makeItem("c");
        controller.setContent({a, b, c});
        controller.setSelectionIndexes({0, 2});
        controller.setContent({c, b, a, makeItem("d")});
        QCOMPARE(controller.selectionIndexes(), IndexSet({0, 2}));
        QCOMPARE(names(controller.selectedObjects()), QStringLiteral("c a"));
        controller.setContent({b, makeItem("a"), c});
        QCOMPARE(names(controller.selectedObjects()), QStringLiteral("c"));
        controller.setSortDescriptors({{"name", false}});
        QCOMPARE(controller.selectionIndexes(), IndexSet({0}));
        controller.setContent({});
        QVERIFY(controller.selectionIndexes().empty());
        controller.setContent({a, b, c});
        QVERIFY(controller.selectionIndexes().empty());
    }

    void theContentKeepsItsObjectsAlive() {
        ArrayController controller;
        auto item = std::make_shared<Item>(QString(), 0);
        const std::weak_ptr<Item> weak = item;
        controller.setContent({QVariant::fromValue(item)});
        item.reset();
        QVERIFY(!weak.expired());
        controller.setContent({});
        QVERIFY(weak.expired());
    }

    void aHandlerMaySetContentAgain() {
        ArrayController controller;
        const auto observation = KeyValue::observe(&controller, "content", [&] {
            if (controller.content().size() < 3) {
                controller.setContent(controller.content() + QVariantList{1});
            }
        });
        controller.setContent({1});
        QCOMPARE(controller.arrangedObjects().size(), 3);
    }

    void aHandlerMayDeleteTheController() {
        for (const char *key : {"content", "arrangedObjects", "selectionIndexes"}) {
            auto *controller = new ArrayController;
            const auto observation = KeyValue::observe(
                controller, key, [&] { delete std::exchange(controller, nullptr); });
            controller->setContent({1});
            QVERIFY(!controller);
        }
    }

    void everyKeyIsReachableByName() {
        ArrayController controller;
        KeyValue::setValue(&controller, "content", QVariantList{1, 2});
        KeyValue::setValue(&controller, "selectionIndexes", QVariant::fromValue(IndexSet{1}));
        QCOMPARE(KeyValue::value(&controller, "selectedObjects").toList(), QVariantList{2});
        KeyValue::setValue(&controller, "selectionIndexes", QVariant());
        QVERIFY(controller.selectionIndexes().empty());
        QVERIFY(!KeyValue::isWritable(&controller, "arrangedObjects"));
    }
};

VELMORA_TEST(ArrayControllerTest)
#include "ArrayControllerTest.moc"
