#include "View/QVListView.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <algorithm>
#include <functional>
#include <stdexcept>

#include "Controller/QVBinding.h"
#include "Platform/Interface/ContextMenu.h"
#include "Platform/Interface/ListPalette.h"
#include "Platform/KeyValue/ArrayController.h"
#include "Support/TestMain.h"
#include "View/ListRow.h"
#include "View/ListScrollArea.h"
#include "View/QVListViewDelegate.h"
#include "View/QVSelectedItemBackgroundView.h"

namespace {

QVariantList texts(std::initializer_list<const char *> texts) {
    QVariantList result;
    for (const char *text : texts) {
        result.append(QString::fromLatin1(text));
    }
    return result;
}

/// The same objects in a list of their own.
QVariantList distinctCopy(const QVariantList &list) {
    QVariantList copy = list;
    copy.detach();
    return copy;
}

QString textOf(const CollectionViewItem *item) {
    return item->representedObject().toString();
}

/// Rows as high as the number that is their object, else 20.
QWidget *makeRow(CollectionViewItem *item) {
    auto *row = new QVSelectedItemBackgroundView;
    const int height = textOf(item).toInt();
    row->resize(50, height > 0 ? height : 20);
    return row;
}

/// Refuses what it is told to and remembers what it was asked.
class Delegate : public QVListViewDelegate {
public:
    CollectionViewItem *collectionViewItemPrototypeForRepresentedObject(
        QVListView *listView, const QVariant &object) override {
        lists.insert(listView);
        prototypeQuestions.append(object);
        return object.toString() == specialObject ? specialPrototype : nullptr;
    }
    bool collectionViewShouldSelectItem(QVListView *listView, CollectionViewItem *item) override {
        lists.insert(listView);
        selectionQuestions.append(textOf(item));
        return !refused.contains(textOf(item));
    }

    QSet<QString> refused;
    QString specialObject;
    CollectionViewItem *specialPrototype = nullptr;
    QSet<QVListView *> lists;
    QVariantList prototypeQuestions;
    QStringList selectionQuestions;
};

}  // namespace

class QVListViewTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { QVListView::registerBindingFactory(&QVBinding::bindingWithObject); }
    void init() {
        m_area = std::make_unique<ListScrollArea>();
        m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_area->setFrameShape(QFrame::NoFrame);
        m_area->resize(300, 200);
        m_list = new QVListView;
        m_area->setWidget(m_list);
        m_area->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_area.get()));
        m_delegate = std::make_unique<Delegate>();
        m_list->setDelegate(m_delegate.get());
        m_list->setItemPrototype(std::make_shared<CollectionViewItem>(&makeRow));
    }

    void cleanup() {
        m_area.reset();
        m_delegate.reset();
        QApplication::setPalette(QPalette());
    }

    // Bindings

    void exposesContentAndThenSelectionIndexes() {
        QCOMPARE(QVListView::exposedBindings(), QByteArrayList({"content", "selectionIndexes"}));
    }

    void onlyExposedBindingsHaveAValueClass() {
        QCOMPARE(QVListView::valueClassForBinding("content"), QMetaType::fromType<QVariantList>());
        QCOMPARE(QVListView::valueClassForBinding("selectionIndexes"),
                 QMetaType::fromType<IndexSet>());
        QVERIFY(!QVListView::valueClassForBinding("enabled").isValid());
        QVERIFY(!QVListView::valueClassForBinding("").isValid());
    }

    void onlySelectionIndexesIsEditable() {
        QCOMPARE(QVListView::editableBindings(), QSet<QByteArray>({"selectionIndexes"}));
    }

    void aViewThatWasNeverBoundHasNoRecords() {
        QVERIFY(m_list->bindings().empty());
        QVERIFY(m_list->bindingsForKey("selectionIndexes").empty());
    }

    void bindingContentFollowsTheModelWithoutARecord() {
        ArrayController controller;
        controller.setContent(texts({"a"}));
        m_list->bind("content", &controller, "arrangedObjects", {});
        QVERIFY(m_list->bindings().empty());
        QCOMPARE(m_list->content(), texts({"a"}));
        controller.setContent(texts({"b", "c"}));
        QCOMPARE(m_list->content(), texts({"b", "c"}));
    }

    void theViewNeverWritesItsContentBack() {
        ArrayController controller;
        m_list->bind("content", &controller, "content", {});
        m_list->setContent(texts({"a"}));
        QCOMPARE(controller.content(), QVariantList());
    }

    void bindingSelectionIndexesMakesOneRecordWithWhatWasGiven() {
        ArrayController controller;
        const QVariantMap options{{QStringLiteral("some"), 1}};
        m_list->bind("selectionIndexes", &controller, "selectionIndexes", options);
        QCOMPARE(m_list->bindings().size(), std::size_t(1));
        QCOMPARE(m_list->bindingsForKey("selectionIndexes"), m_list->bindings());
        QVERIFY(m_list->bindingsForKey("content").empty());
        const auto record = std::dynamic_pointer_cast<QVBinding>(*m_list->bindings().begin());
        QVERIFY(record);
        QCOMPARE(record->object(), m_list);
        QCOMPARE(record->target(), &controller);
        QCOMPARE(record->key(), QByteArray("selectionIndexes"));
        QCOMPARE(record->keyPath(), QByteArray("selectionIndexes"));
        QCOMPARE(record->options(), options);
    }

    void otherNamesAreBoundWithoutARecord() {
        ArrayController controller;
        controller.setObjectName(QStringLiteral("Databases"));
        m_list->bind("accessibleName", &controller, "objectName", {});
        QCOMPARE(m_list->accessibleName(), QStringLiteral("Databases"));
        QVERIFY(m_list->bindings().empty());
        m_list->unbind("accessibleName");
        controller.setObjectName(QStringLiteral("Locations"));
        QCOMPARE(m_list->accessibleName(), QStringLiteral("Databases"));
    }

    void selectionTravelsBothWays() {
        ArrayController controller;
        bindBoth(controller, texts({"a", "b", "c"}));
        QCOMPARE(controller.selectionIndexes(), IndexSet({0}));
        controller.setSelectionIndexes({2});
        QCOMPARE(m_list->selectionIndexes(), IndexSet({2}));
        click(1);
        QCOMPARE(controller.selectionIndexes(), IndexSet({1}));
        QCOMPARE(controller.selectedObjects(), texts({"b"}));
    }

    void anItemThatTheDelegateRefusesIsRemovedFromTheModelsSelection() {
        m_delegate->refused = {QStringLiteral("b")};
        ArrayController controller;
        bindBoth(controller, texts({"a", "b", "c"}));
        controller.setSelectionIndexes({1, 2});
        QCOMPARE(m_list->selectionIndexes(), IndexSet({2}));
        QCOMPARE(controller.selectionIndexes(), IndexSet({2}));
    }

    void aSelectionInTheModelThatIsRefusedAtBindingIsWrittenBackWithoutIt() {
        m_delegate->refused = {QStringLiteral("b")};
        m_list->setContent(texts({"a", "b"}));
        ArrayController controller;
        controller.setContent(texts({"a", "b"}));
        controller.setSelectionIndexes({0, 1});
        m_list->bind("selectionIndexes", &controller, "selectionIndexes", {});
        QCOMPARE(controller.selectionIndexes(), IndexSet({0}));
    }

    void theSelectionSurvivesARebuildThroughTheModel() {
        ArrayController controller;
        bindBoth(controller, texts({"a", "b", "c"}));
        controller.setSelectionIndexes({1});
        controller.setContent(texts({"x", "a", "b"}));
        QCOMPARE(controller.selectionIndexes(), IndexSet({2}));
        QCOMPARE(m_list->selectionIndexes(), IndexSet({2}));
    }

    void unbindingStopsTheWritingBackAndTheFollowing() {
        ArrayController controller;
        bindBoth(controller, texts({"a", "b", "c"}));
        m_list->unbind("selectionIndexes");
        QVERIFY(m_list->bindings().empty());
        click(2);
        QCOMPARE(controller.selectionIndexes(), IndexSet({0}));
        controller.setSelectionIndexes({1});
        QCOMPARE(m_list->selectionIndexes(), IndexSet({2}));
        m_list->unbind("selectionIndexes");
        m_list->unbind("nothing");
    }

    void boundTwiceHasTwoRecordsAndUnbindingRemovesBoth() {
        ArrayController first;
        ArrayController second;
        first.setContent(texts({"a", "b", "c"}));
        second.setContent(texts({"a", "b", "c"}));
        m_list->setContent(first.content());
        m_list->bind("selectionIndexes", &first, "selectionIndexes", {});
        m_list->bind("selectionIndexes", &second, "selectionIndexes", {});
        QCOMPARE(m_list->bindingsForKey("selectionIndexes").size(), std::size_t(2));
        click(2);
        QCOMPARE(first.selectionIndexes(), IndexSet({2}));
        QCOMPARE(second.selectionIndexes(), IndexSet({2}));
        m_list->unbind("selectionIndexes");
        QVERIFY(m_list->bindings().empty());
        click(1);
        QCOMPARE(first.selectionIndexes(), IndexSet({2}));
        QCOMPARE(second.selectionIndexes(), IndexSet({2}));
    }

    void aRecordCanBeAddedAndRemovedByHand() {
        ArrayController controller;
        controller.setContent(texts({"a", "b"}));
        controller.setSelectionIndexes({1});
        m_list->setContent(texts({"a", "b"}));
        const auto record = QVBinding::bindingWithObject(m_list, "selectionIndexes", &controller,
                                                         "selectionIndexes", {});
        m_list->addBinding(record);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({1}));
        click(0);
        QCOMPARE(controller.selectionIndexes(), IndexSet({0}));
        m_list->removeBinding(record);
        QVERIFY(m_list->bindings().empty());
        click(1);
        QCOMPARE(controller.selectionIndexes(), IndexSet({0}));
    }

    void aDestroyedViewIsUnboundFromAModelThatLivesOn() {
        ArrayController controller;
        bindBoth(controller, texts({"a", "b"}));
        const std::weak_ptr<ViewBinding> record = *m_list->bindings().begin();
        delete m_list;
        QVERIFY(record.expired());
        controller.setContent(texts({"c"}));
        controller.setSelectionIndexes({0});
        QCOMPARE(controller.selectionIndexes(), IndexSet({0}));
    }

    void aModelMayGoBeforeTheView() {
        {
            ArrayController controller;
            bindBoth(controller, texts({"a", "b"}));
        }
        click(1);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({1}));
    }

    // Items

    void oneItemForEachObjectInOrder() {
        m_list->setContent(texts({"a", "b", "c"}));
        QStringList found;
        QWidgetList views;
        for (const QVListView::Item &item : m_list->items()) {
            found.append(textOf(item.get()));
            views.append(item->view());
        }
        QCOMPARE(found,
                 QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
        QCOMPARE(subviews(), views);
        for (const QWidget *view : std::as_const(views)) {
            QVERIFY(view->isVisible());
        }
    }

    void contentSetBeforeTheListIsShownAppearsWithIt() {
        ListScrollArea area;
        auto *list = new QVListView;
        area.setWidget(list);
        list->setItemPrototype(std::make_shared<CollectionViewItem>(&makeRow));
        list->setContent(texts({"a"}));
        QVERIFY(!list->isVisible());
        area.show();
        QVERIFY(list->isVisible());
        QVERIFY(list->items().constFirst()->view()->isVisible());
    }

    void newContentLeavesExactlyTheNewViews() {
        m_list->setContent(texts({"a", "b", "c"}));
        const QPointer<QWidget> old = m_list->items().constFirst()->view();
        m_list->setContent(texts({"d"}));
        QCOMPARE(subviews(), QWidgetList({m_list->items().constFirst()->view()}));
        QTRY_VERIFY(!old);
    }

    void aSharedItemOutlivesTheRebuild() {
        m_list->setContent(texts({"a"}));
        const QVListView::Item kept = m_list->items().constFirst();
        m_list->setContent(texts({"b"}));
        QCOMPARE(textOf(kept.get()), QStringLiteral("a"));
        QVERIFY(!m_list->items().contains(kept));
    }

    void theDelegateIsAskedOnceForThePrototypeOfEachItem() {
        m_list->setContent(texts({"a", "b"}));
        QCOMPARE(m_delegate->prototypeQuestions, texts({"a", "b"}));
        QCOMPARE(m_delegate->lists, QSet<QVListView *>({m_list}));
    }

    void theDelegatesPrototypeIsCopiedWhereItNamesOne() {
        CollectionViewItem special([](CollectionViewItem *) { return new QLabel; });
        m_delegate->specialObject = QStringLiteral("b");
        m_delegate->specialPrototype = &special;
        m_list->setContent(texts({"a", "b"}));
        QVERIFY(qobject_cast<QVSelectedItemBackgroundView *>(m_list->items().at(0)->view()));
        QVERIFY(qobject_cast<QLabel *>(m_list->items().at(1)->view()));
        QVERIFY(m_list->items().at(1).get() != &special);
        QCOMPARE(m_list->items().at(1)->representedObject(), QVariant(QStringLiteral("b")));
    }

    void aNewItemBelongsToTheCaller() {
        const QVListView::Item item = m_list->newItemForRepresentedObject(QStringLiteral("a"));
        QCOMPARE(item.use_count(), 1L);
        QCOMPARE(item->representedObject(), QVariant(QStringLiteral("a")));
        QVERIFY(!item->isSelected());
        QVERIFY(m_list->items().isEmpty());
        QVERIFY(!item->view()->parentWidget());
    }

    void objectsMayBeAnything() {
        const auto object = std::make_shared<QObject>();
        m_list->setContent({QVariant::fromValue(object), QVariant::fromValue(nullptr)});
        QCOMPARE(m_list->items().size(), 2);
        QCOMPARE(KeyValue::objectValue(m_list->items().at(0)->representedObject()), object.get());
        QVERIFY(KeyValue::isAbsent(m_list->items().at(1)->representedObject()));
    }

    void theMenuOfTheListsPrototypeIsEveryItemsMenu() {
        QMenu shared;
        QMenu specials;
        ContextMenu::setMenu(m_list->itemPrototype()->view(), &shared);
        CollectionViewItem special([&](CollectionViewItem *) {
            auto *view = new QLabel;
            ContextMenu::setMenu(view, &specials);
            return view;
        });
        m_delegate->specialObject = QStringLiteral("b");
        m_delegate->specialPrototype = &special;
        m_list->setContent(texts({"a", "b"}));
        QCOMPARE(ContextMenu::menu(m_list->items().at(0)->view()), &shared);
        QCOMPARE(ContextMenu::menu(m_list->items().at(1)->view()), &shared);
    }

    void withoutAMenuInTheListsPrototypeNoItemHasOne() {
        QMenu specials;
        CollectionViewItem special([&](CollectionViewItem *) {
            auto *view = new QLabel;
            ContextMenu::setMenu(view, &specials);
            return view;
        });
        m_delegate->specialObject = QStringLiteral("a");
        m_delegate->specialPrototype = &special;
        m_list->setContent(texts({"a"}));
        QVERIFY(!ContextMenu::menu(m_list->items().at(0)->view()));
        m_list->setItemPrototype(nullptr);
        QVERIFY(
            !ContextMenu::menu(m_list->newItemForRepresentedObject(QStringLiteral("a"))->view()));
    }

    void aViewWithASelectedKeyFollowsItsItem() {
        m_delegate->refused = {QStringLiteral("a")};
        m_list->setContent(texts({"a"}));
        const QVListView::Item item = m_list->items().constFirst();
        item->setSelected(true);
        QCOMPARE(item->view()->property("selected"), QVariant(true));
        item->setSelected(false);
        QCOMPARE(item->view()->property("selected"), QVariant(false));
    }

    void aNewPrototypeChangesNoItemThatIsThere() {
        m_list->setContent(texts({"a"}));
        const auto items = m_list->items();
        m_list->setItemPrototype(
            std::make_shared<CollectionViewItem>([](CollectionViewItem *) { return new QLabel; }));
        QCOMPARE(m_list->items(), items);
        m_list->setContent(texts({"b"}));
        QVERIFY(qobject_cast<QLabel *>(m_list->items().constFirst()->view()));
    }

    void theFieldsArePlain() {
        const QList<QVListView::Item> items{std::make_shared<CollectionViewItem>(&makeRow)};
        m_list->setItems(items);
        QCOMPARE(m_list->items(), items);
        m_list->setItems({});
        ArrayController controller;
        const QVListView::Bindings bindings{
            QVBinding::bindingWithObject(m_list, "selectionIndexes", &controller, "content", {})};
        m_list->setBindings(bindings);
        QCOMPARE(m_list->bindings(), bindings);
        QCOMPARE(m_list->delegate(), m_delegate.get());
    }

    // Content

    void theVeryListThatIsThereIsIgnored() {
        const QVariantList content = texts({"a", "b"});
        m_list->setContent(content);
        const auto items = m_list->items();
        QSignalSpy announced(m_list, &QVListView::contentChanged);
        m_list->setContent(content);
        QCOMPARE(m_list->items(), items);
        QCOMPARE(announced.count(), 0);
    }

    void anEqualListIsRebuilt() {
        const QVariantList content = texts({"a", "b"});
        m_list->setContent(content);
        const auto items = m_list->items();
        m_list->setContent(distinctCopy(content));
        QCOMPARE(m_list->items().size(), 2);
        QVERIFY(m_list->items().at(0) != items.at(0));
        QVERIFY(m_list->items().at(1) != items.at(1));
    }

    void everyContentChangeDiscardsAllItemsAndViews() {
        m_list->setContent(texts({"40", "60"}));
        const auto items = m_list->items();
        const QWidgetList views = subviews();
        QList<QPointer<QWidget>> old(views.begin(), views.end());
        QVariantList content = m_list->content();
        content.append(QStringLiteral("20"));
        m_list->setContent(content);
        QCOMPARE(subviews().size(), 3);
        for (qsizetype i = 0; i < 3; ++i) {
            const QVListView::Item item = m_list->items().at(i);
            QVERIFY(!items.contains(item));
            QVERIFY(!views.contains(item->view()));
            QCOMPARE(item->view(), subviews().at(i));
            QVERIFY(item->view()->isVisible());
        }
        QCOMPARE(frames(), QList<QRect>({{0, 0, 300, 40}, {0, 40, 300, 60}, {0, 100, 300, 20}}));
        QTRY_VERIFY(!old.at(0) && !old.at(1));
    }

    void contentSetByAnObserverDuringARebuildWins() {
        m_list->setContent(texts({"a", "b", "c"}));
        m_list->items().at(0)->setSelected(false);
        const QVariantList other = texts({"a", "x"});
        bool isFirst = true;
        const auto observation = KeyValue::observe(m_list, "selectionIndexes", [&] {
            if (std::exchange(isFirst, false)) {
                m_list->setContent(other);
            }
        });
        m_list->setContent(texts({"a", "b", "c", "d"}));
        QCOMPARE(m_list->content(), other);
        QCOMPARE(m_list->items().size(), 2);
        QCOMPARE(subviews(),
                 QWidgetList({m_list->items().at(0)->view(), m_list->items().at(1)->view()}));
    }

    void aBatchMakesTheViewsOfItsLastContentOnly() {
        int made = 0;
        m_list->setItemPrototype(
            std::make_shared<CollectionViewItem>([&made](CollectionViewItem *item) {
                ++made;
                return makeRow(item);
            }));
        QList<IndexSet> selections;
        m_list->performBatchUpdates([&] {
            m_list->setContent(texts({"40"}));
            const QVListView::Item first = m_list->items().constFirst();
            selections.append(m_list->selectionIndexes());
            m_list->setContent(texts({"40", "60"}));
            QVERIFY(!m_list->items().contains(first));
            selections.append(m_list->selectionIndexes());
        });
        QCOMPARE(selections, QList<IndexSet>({{0}, {}}));
        QCOMPARE(m_delegate->prototypeQuestions, texts({"40", "40", "60"}));
        // One more is the prototype's own.
        QCOMPARE(made, 3);
        QCOMPARE(subviews(), QWidgetList({row(0), row(1)}));
        QVERIFY(row(0)->isVisible() && row(1)->isVisible());
        QCOMPARE(frames(), QList<QRect>({{0, 0, 300, 40}, {0, 40, 300, 60}}));
        QCOMPARE(m_list->height(), 100);
    }

    void aBatchDiscardsTheOldViewsAtItsFirstChange() {
        m_list->setContent(texts({"a", "b"}));
        const QPointer<QWidget> old = row(0);
        m_list->performBatchUpdates([&] {
            QCOMPARE(subviews().size(), 2);
            m_list->setContent(texts({"c"}));
            QVERIFY(subviews().isEmpty());
        });
        QCOMPARE(subviews(), QWidgetList({row(0)}));
        QTRY_VERIFY(!old);
    }

    void aBatchWithoutAChangeKeepsTheViews() {
        m_list->setContent(texts({"a", "b"}));
        const QWidgetList views = subviews();
        m_list->performBatchUpdates([] {});
        QCOMPARE(subviews(), views);
    }

    void anItemAskedForItsViewDuringABatchHasIt() {
        QMenu menu;
        ContextMenu::setMenu(m_list->itemPrototype()->view(), &menu);
        QWidget *view = nullptr;
        m_list->performBatchUpdates([&] {
            m_list->setContent(texts({"40", "60"}));
            view = row(1);
            QCOMPARE(ContextMenu::menu(view), &menu);
            m_list->items().at(1)->setSelected(true);
            QVERIFY(row(1)->isSelected());
        });
        QCOMPARE(row(1), view);
        QCOMPARE(subviews(), QWidgetList({row(0), view}));
        QCOMPARE(view->geometry(), QRect(0, 40, 300, 60));
    }

    void aSelectionInABatchShowsARowFarAway() {
        m_list->setContent(numbers(1000));
        m_list->performBatchUpdates([&] { m_list->setSelectionIndexes({700}); });
        QCOMPARE(m_list->viewOfRow(700)->parentWidget(), m_list);
        scrollTo(700 * 20);
    }

    void aBatchInsideAnotherEndsWithIt() {
        m_list->performBatchUpdates([&] {
            m_list->performBatchUpdates([&] { m_list->setContent(texts({"a"})); });
            QVERIFY(subviews().isEmpty());
        });
        QCOMPARE(subviews().size(), 1);
    }

    void aBatchThatFailsMakesTheViewsToo() {
        const auto fail = [&] {
            m_list->setContent(texts({"a"}));
            throw std::runtime_error("failure");
        };
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, m_list->performBatchUpdates(fail));
        QCOMPARE(subviews().size(), 1);
        m_list->setContent(texts({"a", "b"}));
        QCOMPARE(subviews().size(), 2);
    }

    void aFailureWhileTheContentChangesLeavesTheListVisible() {
        m_list->window()->show();
        QVERIFY(m_list->isVisible());
        {
            const auto observation = KeyValue::observe(m_list, "selectionIndexes",
                                                       [] { throw std::runtime_error("failure"); });
            QVERIFY_THROWS_EXCEPTION(std::runtime_error, m_list->setContent(texts({"a"})));
        }
        QVERIFY(m_list->isVisible());
        m_list->setContent(texts({"a", "b"}));
        QVERIFY(subviews().at(1)->isVisible());
    }

    void contentIsACopy() {
        QVariantList content = texts({"a"});
        m_list->setContent(content);
        content.append(QStringLiteral("b"));
        QCOMPARE(m_list->content(), texts({"a"}));
        m_list->setContent(content);
        QCOMPARE(m_list->items().size(), 2);
    }

    void contentIsAnnouncedOnceWhenItIsComplete() {
        qsizetype items = -1;
        int height = -1;
        const auto observation = KeyValue::observe(m_list, "content", [&] {
            items = m_list->items().size();
            height = m_list->height();
        });
        m_list->setContent(texts({"40", "60"}));
        QCOMPARE(items, 2);
        QCOMPARE(height, 100);
    }

    void noContentLeavesNoSubviewsAndNoHeight() {
        m_list->setContent({});
        QCOMPARE(m_list->height(), 0);
        m_list->setContent(texts({"a", "b"}));
        m_list->setContent({});
        QVERIFY(subviews().isEmpty());
        QVERIFY(m_list->items().isEmpty());
        QCOMPARE(m_list->height(), 0);
        QCOMPARE(m_list->selectionIndexes(), IndexSet());
    }

    void newContentSelectsTheFirstAcceptedItemIfNothingIsSelected() {
        m_delegate->refused = {QStringLiteral("a"), QStringLiteral("b")};
        QSignalSpy announced(m_list, &QVListView::selectionIndexesChanged);
        m_list->setContent(texts({"a", "b", "c", "d"}));
        QCOMPARE(m_list->selectionIndexes(), IndexSet({2}));
        QCOMPARE(announced.count(), 1);
    }

    void theFirstSelectionIsAppliedToTheItemsMadeSoFar() {
        m_delegate->refused = {QStringLiteral("a")};
        m_list->setContent(texts({"a", "b", "c"}));
        QCOMPARE(m_delegate->selectionQuestions,
                 QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("a"),
                              QStringLiteral("b")}));
    }

    void newContentClearsTheSelectionWithoutNotification() {
        m_list->setContent(texts({"a", "b"}));
        QCOMPARE(m_list->selectionIndexes(), IndexSet({0}));
        m_delegate->selectionQuestions.clear();
        QSignalSpy announced(m_list, &QVListView::selectionIndexesChanged);
        m_list->setContent(texts({"a", "b", "c"}));
        QCOMPARE(m_list->selectionIndexes(), IndexSet());
        QCOMPARE(announced.count(), 0);
        QCOMPARE(m_delegate->selectionQuestions, QStringList());
    }

    void aSelectionClearedByNewContentIsNotWrittenBack() {
        ArrayController controller;
        controller.setContent(texts({"a", "b"}));
        m_list->setContent(texts({"a", "b"}));
        m_list->bind("selectionIndexes", &controller, "selectionIndexes", {});
        click(1);
        m_list->setContent(texts({"c", "d"}));
        QCOMPARE(m_list->selectionIndexes(), IndexSet());
        QCOMPARE(controller.selectionIndexes(), IndexSet({1}));
    }

    void newContentAnnouncesNoSelectionIfNoItemIsAccepted() {
        m_delegate->refused = {QStringLiteral("a")};
        QSignalSpy announced(m_list, &QVListView::selectionIndexesChanged);
        m_list->setContent(texts({"a"}));
        QCOMPARE(announced.count(), 0);
    }

    void contentSetByAnObserverOfTheSelectionWins() {
        const QVariantList other = texts({"x", "y", "z"});
        const auto observation =
            KeyValue::observe(m_list, "selectionIndexes", [&] { m_list->setContent(other); });
        m_list->setContent(texts({"a", "b"}));
        QCOMPARE(m_list->content(), other);
        QCOMPARE(m_list->items().size(), 3);
        QCOMPARE(subviews().size(), 3);
        QVERIFY(m_list->isVisible());
    }

    // Selection

    void theSelectionIsComputedFromTheItems() {
        m_list->setContent(texts({"a", "b", "c"}));
        m_list->items().at(2)->setSelected(true);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({0, 2}));
    }

    void aRefusedItemIsNeitherSelectedNorDeselected() {
        m_delegate->refused = {QStringLiteral("b")};
        m_list->setContent(texts({"a", "b"}));
        m_list->setSelectionIndexes({0, 1});
        QCOMPARE(m_list->selectionIndexes(), IndexSet({0}));
        m_list->items().at(1)->setSelected(true);
        m_list->setSelectionIndexes({});
        QCOMPARE(m_list->selectionIndexes(), IndexSet({1}));
    }

    void aRefusedItemsKeyIsNotSet() {
        m_delegate->refused = {QStringLiteral("b")};
        m_list->setContent(texts({"a", "b"}));
        QSignalSpy refused(m_list->items().at(1).get(), &CollectionViewItem::selectedChanged);
        m_list->setSelectionIndexes({1});
        QCOMPARE(refused.count(), 0);
    }

    void indexesPastTheLastItemAreIgnored() {
        m_list->setContent(texts({"a", "b"}));
        m_list->setSelectionIndexes({1, 2, 70});
        QCOMPARE(m_list->selectionIndexes(), IndexSet({1}));
    }

    void anAbsentSelectionDeselectsEveryAcceptedItem() {
        m_list->setContent(texts({"a", "b"}));
        KeyValue::setValue(m_list, "selectionIndexes", QVariant());
        QCOMPARE(m_list->selectionIndexes(), IndexSet());
    }

    void everySettingOfTheSelectionIsAnnounced() {
        m_list->setContent(texts({"a"}));
        QSignalSpy announced(m_list, &QVListView::selectionIndexesChanged);
        m_list->setSelectionIndexes({0});
        m_list->setSelectionIndexes({0});
        QCOMPARE(announced.count(), 2);
    }

    void withoutADelegateNothingCanBeSelected() {
        m_list->setDelegate(nullptr);
        m_list->setContent(texts({"a", "b"}));
        QCOMPARE(m_list->selectionIndexes(), IndexSet());
        m_list->setSelectionIndexes({0});
        click(1);
        QCOMPARE(m_list->selectionIndexes(), IndexSet());
    }

    // Layout

    void rowsAreStackedAtTheirHeightsAndTheListsWidth() {
        m_list->resize(300, 10);
        m_list->setContent(texts({"40", "60", "20"}));
        QCOMPARE(frames(), QList<QRect>({{0, 0, 300, 40}, {0, 40, 300, 60}, {0, 100, 300, 20}}));
        QCOMPARE(m_list->size(), QSize(300, 120));
    }

    void rowsGetTheWidthThatTheListHadAndTheListThatOfTheScrollArea() {
        m_list->resize(250, 10);
        m_list->setContent(texts({"40"}));
        QCOMPARE(frames(), QList<QRect>({{0, 0, 250, 40}}));
        QCOMPARE(m_list->width(), 300);
        m_list->layoutSubviews();
        QCOMPARE(frames(), QList<QRect>({{0, 0, 300, 40}}));
    }

    void withoutAScrollAreaTheListEndsWithoutWidth() {
        QVListView list;
        list.setItemPrototype(m_list->itemPrototype());
        list.resize(300, 10);
        list.setContent(texts({"40", "60"}));
        QCOMPARE(list.items().at(1)->view()->geometry(), QRect(0, 40, 300, 60));
        QCOMPARE(list.size(), QSize(0, 100));
    }

    void aRowThatChangedItsHeightMovesAtTheNextLayout() {
        m_list->setContent(texts({"40", "60"}));
        m_list->items().at(0)->view()->resize(300, 50);
        QCOMPARE(m_list->height(), 100);
        m_list->layoutSubviews();
        QCOMPARE(frames(), QList<QRect>({{0, 0, 300, 50}, {0, 50, 300, 60}}));
        QCOMPARE(m_list->height(), 110);
    }

    void theScrollAreaLaysTheListOutWheneverItsWidthChanges() {
        m_list->setContent(texts({"40", "60"}));
        m_area->resize(200, 200);
        QCOMPARE(frames(), QList<QRect>({{0, 0, 200, 40}, {0, 40, 200, 60}}));
        QCOMPARE(m_list->size(), QSize(200, 100));
    }

    void aListThatIsShownAgainIsLaidOutAgain() {
        m_list->setContent(texts({"40", "60"}));
        m_area->hide();
        m_list->items().at(0)->view()->resize(300, 50);
        m_area->show();
        QCOMPARE(frames(), QList<QRect>({{0, 0, 300, 50}, {0, 50, 300, 60}}));
        QCOMPARE(m_list->height(), 110);
    }

    void rowsMakeRoomForAScrollBarThatAppears() {
        m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        m_list->setContent(texts({"150", "150"}));
        QTRY_VERIFY(m_area->viewport()->width() < 300);
        const int viewportWidth = m_area->viewport()->width();
        QCOMPARE(frames(),
                 QList<QRect>({{0, 0, viewportWidth, 150}, {0, 150, viewportWidth, 150}}));
    }

    void theScrollAreaHasTheGroundOfListsInEveryTheme() {
        QPalette dark(QColor(40, 40, 40));
        dark.setColor(QPalette::Base, QColor(10, 10, 12));
        QApplication::setPalette(dark);
        m_list->setContent(texts({"20"}));
        QCoreApplication::processEvents();
        const QImage image = m_area->grab().toImage();
        QCOMPARE(image.pixelColor(150, 100), QColor(10, 10, 12));
        QCOMPARE(image.pixelColor(150, 10), ListPalette::alternateSelectedControlColor());
        ListScrollArea made;
        made.resize(50, 50);
        QCOMPARE(made.grab().toImage().pixelColor(25, 25), QColor(10, 10, 12));
    }

    // Long lists

    void aLongListHasViewsOnlyNearTheViewport() {
        m_list->setContent(numbers(10'000));
        QCOMPARE(m_list->items().size(), 10'000);
        QCOMPARE(m_list->size(), QSize(300, 200'000));
        QCOMPARE(subviews().size(), 20);
        checkVisibleRows();
        QCOMPARE(m_delegate->prototypeQuestions, numbers(10'000));
        QCOMPARE(m_delegate->selectionQuestions, QStringList({text(0), text(0)}));
        QCOMPARE(m_list->selectionIndexes(), IndexSet({0}));
    }

    void everyRowIsThereWhereTheListIsScrolledTo_data() {
        QTest::addColumn<int>("step");
        QTest::newRow("lines") << 7;
        QTest::newRow("pages") << 200;
        QTest::newRow("jumps") << 12'345;
    }
    void everyRowIsThereWhereTheListIsScrolledTo() {
        QFETCH(int, step);
        m_list->setContent(numbers(1000));
        const int last = m_area->verticalScrollBar()->maximum();
        QCOMPARE(last, 20'000 - 200);
        for (int value = 0; value < last + step; value += step) {
            scrollTo(qMin(value, last));
        }
        for (int value = last; value > -step; value -= step) {
            scrollTo(qMax(value, 0));
        }
        QCOMPARE(m_list->height(), 20'000);
    }

    void aHigherViewportShowsMoreRows() {
        m_list->setContent(numbers(1000));
        m_area->resize(300, 900);
        checkVisibleRows();
        m_area->hide();
        m_area->resize(300, 3000);
        m_area->show();
        checkVisibleRows();
    }

    void aLongListThatIsShownLaterHasWhatCanBeSeen() {
        ListScrollArea area;
        auto *list = new QVListView;
        area.setWidget(list);
        list->setItemPrototype(std::make_shared<CollectionViewItem>(&makeRow));
        list->setContent(numbers(10'000));
        area.resize(300, 2000);
        area.show();
        const auto views = list->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(views.size() >= 100 && views.size() <= 201);
        for (int i = 0; i < 100; ++i) {
            QCOMPARE(views.at(i), list->items().at(i)->existingView());
            QVERIFY(views.at(i)->isVisible());
        }
    }

    void outsideAScrollAreaEveryItemHasAView() {
        QVListView list;
        list.setItemPrototype(m_list->itemPrototype());
        list.setContent(numbers(500));
        QCOMPARE(list.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size(), 500);
    }

    void anItemThatIsAskedForItsViewHasItAtItsPlaceAndKeepsIt() {
        m_list->setContent(numbers(1000));
        const QPointer<QWidget> view = row(500);
        QCOMPARE(view->parentWidget(), m_list);
        QCOMPARE(view->geometry(), QRect(0, 500 * 20, 300, 20));
        QVERIFY(view->isVisible());
        QCOMPARE(m_list->rowOfView(view), 500);
        QCOMPARE(subviews().constLast(), view.data());
        const QWidget *between = row(300);
        QCOMPARE(subviews().at(subviews().size() - 2), between);
        scrollTo(500 * 20);
        scrollTo(0);
        QCOMPARE(row(500), view.data());
        QCOMPARE(m_list->viewOfRow(500), view.data());
    }

    void aViewThatTheListMadeIsDiscardedTwoPagesAway() {
        m_list->setContent(numbers(1000));
        const QPointer<QWidget> view = m_list->viewOfRow(4);
        scrollTo(450);
        QVERIFY(view);
        scrollTo(520);
        QVERIFY(!view);
        QVERIFY(!m_list->items().at(4)->existingView());
        scrollTo(0);
        QVERIFY(m_list->items().at(4)->existingView());
    }

    void theViewsOfTheSelectedRowAndOfTheFocusAreKept() {
        m_list->setItemPrototype(std::make_shared<CollectionViewItem>([](CollectionViewItem *item) {
            QWidget *row = makeRow(item);
            (new QPushButton(row))->setFocusPolicy(Qt::ClickFocus);
            return row;
        }));
        m_list->setContent(numbers(1000));
        m_list->setSelectionIndexes({3});
        m_list->viewOfRow(5)->findChild<QPushButton *>()->setFocus();
        const QPointer<QWidget> selected = m_list->viewOfRow(3);
        const QPointer<QWidget> focused = m_list->viewOfRow(5);
        scrollTo(10'000);
        QVERIFY(selected && focused);
        QVERIFY(!m_list->items().at(4)->existingView());
        m_list->setSelectionIndexes({});
        m_area->setFocus();
        scrollTo(10'100);
        QVERIFY(!selected && !focused);
    }

    void aSelectedRowFarAwayHasAViewThatShowsIt() {
        m_list->setContent(numbers(1000));
        m_list->setSelectionIndexes({700});
        const auto *view =
            qobject_cast<QVSelectedItemBackgroundView *>(m_list->items().at(700)->existingView());
        QVERIFY(view && view->isSelected());
        scrollTo(700 * 20);
        scrollTo(0);
        m_list->setSelectionIndexes({0});
        scrollTo(20);
        QVERIFY(!m_list->items().at(700)->existingView());
        m_list->items().at(700)->setSelected(true);
        scrollTo(700 * 20);
        QVERIFY(row(700)->isSelected());
    }

    void aViewThatIsMadeLaterHasTheMenuOfTheTimeOfItsItem() {
        QMenu menu;
        const auto prototype = std::make_shared<CollectionViewItem>(&makeRow);
        ContextMenu::setMenu(prototype->view(), &menu);
        m_list->setItemPrototype(prototype);
        m_list->setContent(numbers(1000));
        m_list->setItemPrototype(std::make_shared<CollectionViewItem>(&makeRow));
        QCOMPARE(ContextMenu::menu(m_list->viewOfRow(700)), &menu);
        m_list->setContent(numbers(1000));
        QCOMPARE(ContextMenu::menu(m_list->viewOfRow(700)), nullptr);
    }

    void rowsOfOtherHeightsAreStackedWhenTheyAreSeen() {
        QVariantList heights;
        int total = 0;
        for (int i = 0; i < 300; ++i) {
            heights.append(QString::number(20 + i * 7 % 31));
            total += heights.constLast().toInt();
        }
        m_list->setContent(heights);
        for (int value = 0; value < m_area->verticalScrollBar()->maximum(); value += 150) {
            scrollTo(value);
        }
        scrollTo(m_area->verticalScrollBar()->maximum());
        QCOMPARE(m_list->height(), total);
        QCOMPARE(m_list->frameOfRow(299).bottom() + 1, total);
    }

    void whatCanBeSeenStaysWhereItIsWhenRowsAboveAreHigher() {
        QVariantList heights;
        for (int i = 0; i < 300; ++i) {
            heights.append(QString::number(i < 100 ? 70 : 20));
        }
        heights[0] = QStringLiteral("20");
        m_list->setContent(heights);
        // Below the rows that were never seen.
        scrollTo(m_area->verticalScrollBar()->maximum());
        for (int i = 0; i < 1000 && m_area->verticalScrollBar()->value() > 0; ++i) {
            const qsizetype top = m_list->rowAt({0, -m_list->y()});
            const int before = m_list->frameOfRow(top).y() + m_list->y();
            scrollTo(m_area->verticalScrollBar()->value() - 15);
            if (m_area->verticalScrollBar()->value() > 0) {
                QCOMPARE(m_list->frameOfRow(top).y() + m_list->y(), before + 15);
            }
        }
        QCOMPARE(m_area->verticalScrollBar()->value(), 0);
        QCOMPARE(m_list->height(), 100 * 70 - 50 + 200 * 20);
    }

    void rowsThatWereSeenFollowTheWidth() {
        m_list->setItemPrototype(std::make_shared<CollectionViewItem>([](CollectionViewItem *) {
            auto *row = new ListRow;
            auto *label = new QLabel(QStringLiteral("a long title ").repeated(6), row);
            label->setProperty("rowPlace", QStringLiteral("text"));
            label->setWordWrap(true);
            return row;
        }));
        m_list->setContent(numbers(500));
        scrollTo(2000);
        scrollTo(8000);
        m_area->resize(1500, 200);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        const int wide = m_list->viewOfRow(499)->height();
        QCOMPARE(m_list->height(), 500 * wide);
        m_area->resize(200, 200);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QVERIFY(m_list->frameOfRow(0).height() > wide);
        QCOMPARE(m_list->height(), 500 * m_list->frameOfRow(0).height());
    }

    void aRowFarAwayMayBeHigherThanExpected() {
        QVariantList heights;
        for (int i = 0; i < 300; ++i) {
            heights.append(QStringLiteral("20"));
        }
        heights[5] = QStringLiteral("90");
        heights[250] = QStringLiteral("10");
        m_list->setContent(heights);
        scrollTo(4000);
        m_list->setContent(distinctCopy(heights));
        scrollTo(4000);
        QVERIFY(!m_list->items().at(5)->existingView());
        const int before = m_list->frameOfRow(200).y() + m_list->y();
        QCOMPARE(row(5)->geometry(), QRect(0, 100, 300, 90));
        QCOMPARE(m_list->frameOfRow(200).y() + m_list->y(), before);
        QCOMPARE(m_list->viewOfRow(250)->height(), 10);
        QCOMPARE(m_list->height(), 298 * 20 + 90 + 10);
        checkVisibleRows();
    }

    void aPrototypeOfAnotherHeightIsMeasuredWithItsFirstView() {
        CollectionViewItem special([](CollectionViewItem *) {
            auto *view = new QLabel;
            view->resize(10, 90);
            return view;
        });
        m_delegate->specialObject = QStringLiteral("special");
        m_delegate->specialPrototype = &special;
        QVariantList content = numbers(1000);
        content[400] = m_delegate->specialObject;
        content[800] = m_delegate->specialObject;
        m_list->setContent(content);
        QCOMPARE(m_list->height(), 998 * 20 + 2 * 90);
        QCOMPARE(m_list->frameOfRow(801), QRect(0, 801 * 20 + 2 * 70, 300, 20));
        QVERIFY(!m_list->items().at(800)->existingView());
    }

    void aRowWithoutAViewIsAtThePlaceItWillHave() {
        m_list->setContent(numbers(1000));
        const QRect frame = m_list->frameOfRow(600);
        QVERIFY(!m_list->items().at(600)->existingView());
        QCOMPARE(row(600)->geometry(), frame);
        QCOMPARE(m_list->rowAt(frame.center()), 600);
        QCOMPARE(m_list->rowAt({10, 777 * 20}), 777);
        QCOMPARE(m_list->rowAt({10, 20'000}), -1);
    }

    void aLongListIsRebuiltWhereItWasScrolledTo() {
        m_list->setContent(numbers(1000));
        scrollTo(10'000);
        const QPointer<QWidget> old = m_list->viewOfRow(505);
        m_list->setContent(numbers(1000));
        QCOMPARE(m_area->verticalScrollBar()->value(), 10'000);
        checkVisibleRows();
        QCOMPARE(subviews().size(), 30);
        QTRY_VERIFY(!old);
        m_list->setContent(numbers(5));
        QCOMPARE(m_list->y(), 0);
        QCOMPARE(subviews().size(), 5);
    }

    void aListWhoseViewsChangeItsContentIsStackedForTheNewOne() {
        bool isFirst = true;
        m_list->setItemPrototype(
            std::make_shared<CollectionViewItem>([&](CollectionViewItem *item) {
                if (textOf(item) == text(15) && std::exchange(isFirst, false)) {
                    m_list->setContent(texts({"40", "60"}));
                }
                return makeRow(item);
            }));
        m_list->setContent(numbers(1000));
        QVERIFY(!isFirst);
        QCOMPARE(m_list->items().size(), 2);
        QCOMPARE(frames(), QList<QRect>({{0, 0, 300, 40}, {0, 40, 300, 60}}));
        QCOMPARE(m_list->height(), 100);
    }

    // Clicking

    void aClickSelectsTheItemUnderThePointerAlone() {
        m_list->setContent(texts({"a", "b", "c"}));
        click(2);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({2}));
        click(2);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({2}));
    }

    void modifierKeysMakeNoDifference() {
        m_list->setContent(texts({"a", "b", "c"}));
        click(1, Qt::ControlModifier);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({1}));
        click(2, Qt::ShiftModifier);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({2}));
    }

    void aClickOnARefusedItemChangesNothing() {
        m_delegate->refused = {QStringLiteral("b")};
        m_list->setContent(texts({"a", "b"}));
        QSignalSpy announced(m_list, &QVListView::selectionIndexesChanged);
        click(1);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({0}));
        QCOMPARE(announced.count(), 0);
    }

    void aClickOutsideEveryItemChangesNothing() {
        m_list->setContent(texts({"20", "20"}));
        m_list->resize(300, 100);
        QSignalSpy announced(m_list, &QVListView::selectionIndexesChanged);
        QTest::mouseClick(m_list, Qt::LeftButton, {}, QPoint(10, 60));
        m_list->items().at(1)->view()->move(0, 30);
        QTest::mouseClick(m_list, Qt::LeftButton, {}, QPoint(10, 25));
        QCOMPARE(m_list->selectionIndexes(), IndexSet({0}));
        QCOMPARE(announced.count(), 0);
    }

    void theFirstLineOfARowIsItsOwn() {
        m_list->setContent(texts({"20", "30"}));
        QTest::mouseClick(m_list, Qt::LeftButton, {}, QPoint(10, 20));
        QCOMPARE(m_list->selectionIndexes(), IndexSet({1}));
        QTest::mouseClick(m_list, Qt::LeftButton, {}, QPoint(10, 19));
        QCOMPARE(m_list->selectionIndexes(), IndexSet({0}));
    }

    void otherMouseButtonsDoNotSelect() {
        m_list->setContent(texts({"a", "b"}));
        for (const Qt::MouseButton button :
             {Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton}) {
            QTest::mouseClick(row(1), button);
            QCOMPARE(m_list->selectionIndexes(), IndexSet({0}));
        }
    }

    void aDoubleClickSelectsFirstAndThenSendsTheAction() {
        m_list->setContent(texts({"a", "b"}));
        IndexSet selectedAtAction;
        int actions = 0;
        connect(row(1), &Control::action, this, [&] {
            ++actions;
            selectedAtAction = m_list->selectionIndexes();
        });
        QSignalSpy announced(m_list, &QVListView::selectionIndexesChanged);
        QTest::mouseClick(row(1), Qt::LeftButton);
        QTest::mouseDClick(row(1), Qt::LeftButton);
        QCOMPARE(actions, 1);
        QCOMPARE(selectedAtAction, IndexSet({1}));
        QCOMPARE(announced.count(), 1);
        QTest::mouseClick(row(1), Qt::LeftButton);
        QCOMPARE(actions, 1);
        QCOMPARE(announced.count(), 2);
    }

    void aDoubleClickOnAnotherKindOfViewSelects() {
        m_list->setItemPrototype(std::make_shared<CollectionViewItem>(
            [](CollectionViewItem *) { return new QLabel(QStringLiteral("row")); }));
        m_list->setContent(texts({"a", "b"}));
        QTest::mouseDClick(m_list->items().at(1)->view(), Qt::LeftButton);
        QCOMPARE(m_list->selectionIndexes(), IndexSet({1}));
    }

    void theListMayBeRebuiltByTheActionOfARow() {
        m_list->setContent(texts({"a", "b"}));
        connect(row(0), &Control::action, this, [this] { m_list->setContent(texts({"c"})); });
        const QPointer<QWidget> old = row(0);
        QTest::mouseDClick(row(0), Qt::LeftButton);
        QCOMPARE(m_list->content(), texts({"c"}));
        QTRY_VERIFY(!old);
    }

    void theListMayBeRebuiltByAButtonOfARow() {
        m_list->setContent(texts({"40", "40"}));
        auto *button = new QPushButton(row(1));
        button->show();
        connect(button, &QPushButton::clicked, this, [this] { m_list->setContent({}); });
        const QPointer<QWidget> old = button;
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(m_list->items().isEmpty());
        QTRY_VERIFY(!old);
    }

    void theListMayBeRebuiltByTheSelectionThatAClickMakes() {
        m_list->setContent(texts({"a", "b"}));
        const auto observation = KeyValue::observe(m_list->items().at(1).get(), "selected", [this] {
            m_list->setContent(texts({"c", "d", "e"}));
        });
        QTest::mouseClick(row(1), Qt::LeftButton);
        QCOMPARE(m_list->content(), texts({"c", "d", "e"}));
        QCOMPARE(subviews().size(), 3);
    }

    void theListTakesNoFocus() { QCOMPARE(m_list->focusPolicy(), Qt::NoFocus); }

private:
    void bindBoth(ArrayController &controller, const QVariantList &content) {
        controller.setContent(content);
        m_list->bind("content", &controller, "arrangedObjects", {});
        m_list->bind("selectionIndexes", &controller, "selectionIndexes", {});
        controller.setSelectionIndexes({0});
    }

    static QString text(int number) { return QStringLiteral("row %1").arg(number); }

    static QVariantList numbers(int count) {
        QVariantList result;
        for (int i = 0; i < count; ++i) {
            result.append(text(i));
        }
        return result;
    }

    /// Scrolls, and checks that the rows are there and that not many others have a view.
    void scrollTo(int value) const {
        m_area->verticalScrollBar()->setValue(value);
        checkVisibleRows();
    }

    void checkVisibleRows() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const int top = -m_list->y();
        const int bottom = qMin(top + m_area->viewport()->height(), m_list->height());
        int y = -1;
        for (qsizetype i = m_list->rowAt({0, top}); y < bottom; ++i) {
            QVERIFY2(i >= 0 && i < m_list->items().size(), qPrintable(QString::number(top)));
            const QWidget *view = m_list->items().at(i)->existingView();
            QVERIFY2(view && view->isVisible(), qPrintable(QString::number(i)));
            QVERIFY(y < 0 || view->y() == y);
            QCOMPARE(view->width(), m_list->width());
            y = view->geometry().bottom() + 1;
        }
        const QWidgetList views = subviews();
        QVERIFY2(views.size() <= 5 * m_area->viewport()->height() / 20 + 6,
                 qPrintable(QString::number(views.size())));
        QVERIFY(std::is_sorted(views.begin(), views.end(), [](const auto *left, const auto *right) {
            return left->y() < right->y();
        }));
    }

    QVSelectedItemBackgroundView *row(qsizetype index) const {
        return qobject_cast<QVSelectedItemBackgroundView *>(m_list->items().at(index)->view());
    }

    void click(qsizetype index, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::mouseClick(row(index), Qt::LeftButton, modifiers);
    }

    QWidgetList subviews() const {
        return m_list->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    }

    QList<QRect> frames() const {
        QList<QRect> result;
        for (const QWidget *view : subviews()) {
            result.append(view->geometry());
        }
        return result;
    }

    std::unique_ptr<ListScrollArea> m_area;
    QVListView *m_list = nullptr;
    std::unique_ptr<Delegate> m_delegate;
};

VELMORA_TEST(QVListViewTest)
#include "QVListViewTest.moc"
