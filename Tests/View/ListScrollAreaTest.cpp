#include "View/ListScrollArea.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include "Platform/Interface/CollectionViewItem.h"
#include "Platform/Interface/ContextMenu.h"
#include "Platform/Interface/Contrast.h"
#include "Support/TestMain.h"
#include "View/AccessibleList.h"
#include "View/QVListView.h"
#include "View/QVListViewDelegate.h"
#include "View/QVSelectedItemBackgroundView.h"

namespace {

constexpr int RowHeight = 20;

/// A row named after its object, with a check box and a button.
QWidget *makeNamedRow(CollectionViewItem *item) {
    auto *row = new QVSelectedItemBackgroundView;
    row->resize(100, RowHeight);
    row->setAccessibleName(item->representedObject().toString());
    auto *box = new QCheckBox(row);
    box->setObjectName(QStringLiteral("box"));
    row->setCheckBoxName(QStringLiteral("box"));
    box->setFocusPolicy(Qt::ClickFocus);
    auto *button = new QPushButton(QStringLiteral("Sync Now"), row);
    button->setFocusPolicy(Qt::ClickFocus);
    button->move(50, 0);
    return row;
}

class RefusingDelegate : public QVListViewDelegate {
public:
    CollectionViewItem *collectionViewItemPrototypeForRepresentedObject(
        QVListView * /*listView*/, const QVariant & /*object*/) override {
        return nullptr;
    }
    bool collectionViewShouldSelectItem(QVListView * /*listView*/,
                                        CollectionViewItem *item) override {
        return !refused.contains(item->representedObject().toString());
    }

    QStringList refused;
};

}  // namespace

/// The list by keyboard, and as assistive technologies see it.
class ListScrollAreaTest : public QObject {
    Q_OBJECT

    std::unique_ptr<QWidget> m_window;
    ListScrollArea *m_area = nullptr;
    QVListView *m_list = nullptr;
    QLineEdit *m_before = nullptr;
    QLineEdit *m_after = nullptr;
    RefusingDelegate m_delegate;

    void fill(const QStringList &names) const {
        m_list->setContent(QVariantList(names.begin(), names.end()));
    }
    void fillWithNumbers(int count) const {
        QStringList names;
        for (int i = 0; i < count; ++i) {
            names.append(QString::number(i));
        }
        fill(names);
    }
    qsizetype countOfViews() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return m_list->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size();
    }
    void checkSelectedRowIsVisible() const {
        const QRect frame = m_list->frameOfRow(selected()).translated(m_list->pos());
        QVERIFY2(m_area->viewport()->rect().contains(
                     QRect(QPoint(0, frame.y()), QSize(1, frame.height()))),
                 qPrintable(QStringLiteral("%1 at %2").arg(selected()).arg(frame.y())));
        QVERIFY(m_area->selectedView()->isVisible());
    }
    QWidget *row(int index) const { return m_list->items().at(index)->view(); }
    qsizetype selected() const {
        const IndexSet rows = m_list->selectionIndexes();
        return rows.size() == 1 ? *rows.begin() : -1;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(m_area, key, modifiers);
    }
    void type(const QString &text, quint64 time) const {
        QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, text);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(m_area, &event);
    }
    QAccessibleInterface *accessibleArea() const {
        return QAccessible::queryAccessibleInterface(m_area);
    }

private Q_SLOTS:
    void initTestCase() { AccessibleList::install(); }

    void init() {
        m_window = std::make_unique<QWidget>();
        auto *layout = new QVBoxLayout(m_window.get());
        m_before = new QLineEdit;
        m_area = new ListScrollArea;
        m_area->setAccessibleName(QStringLiteral("Locations"));
        m_after = new QLineEdit;
        layout->addWidget(m_before);
        layout->addWidget(m_area);
        layout->addWidget(m_after);
        m_list = new QVListView;
        m_area->setWidget(m_list);
        m_delegate.refused.clear();
        m_list->setDelegate(&m_delegate);
        m_list->setItemPrototype(std::make_shared<CollectionViewItem>(&makeNamedRow));
        m_window->resize(200, 200);
        m_window->show();
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_area->setFocus();
    }
    void cleanup() { m_window.reset(); }

    void theArrowsSelectTheNextRowThatTheDelegateAccepts() {
        m_delegate.refused = {QStringLiteral("b"), QStringLiteral("d")};
        fill({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")});
        QCOMPARE(selected(), 0);
        press(Qt::Key_Down);
        QCOMPARE(selected(), 2);
        press(Qt::Key_Down);
        QCOMPARE(selected(), 2);
        press(Qt::Key_Up);
        QCOMPARE(selected(), 0);
        press(Qt::Key_Up);
        QCOMPARE(selected(), 0);
    }

    void homeAndEndSelectTheOutermostRowsThatTheDelegateAccepts() {
        m_delegate.refused = {QStringLiteral("a"), QStringLiteral("d")};
        fill({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")});
        press(Qt::Key_End);
        QCOMPARE(selected(), 2);
        press(Qt::Key_Home);
        QCOMPARE(selected(), 1);
    }

    void pagesAreAsHighAsTheViewportAndTheSelectedRowIsVisible() {
        QStringList names;
        for (int i = 0; i < 40; ++i) {
            names.append(QString::number(i));
        }
        fill(names);
        press(Qt::Key_PageDown);
        const qsizetype page = selected();
        QCOMPARE(page, m_area->viewport()->height() / RowHeight);
        QVERIFY(m_area->viewport()->rect().contains(
            QRect(row(static_cast<int>(page))->mapTo(m_area->viewport(), QPoint()),
                  QSize(1, RowHeight))));
        press(Qt::Key_End);
        QCOMPARE(selected(), 39);
        press(Qt::Key_PageUp);
        QCOMPARE(selected(), 39 - page);
        press(Qt::Key_Home);
        press(Qt::Key_PageUp);
        QCOMPARE(selected(), 0);
        QCOMPARE(m_list->y(), 0);
    }

    void everyRowOfALongListIsReachedByKeyboard() {
        fillWithNumbers(300);
        QCOMPARE(selected(), 0);
        for (int i = 0; selected() < 299; ++i) {
            QVERIFY(i < 300);
            press(i % 2 == 0 ? Qt::Key_PageDown : Qt::Key_Down);
            checkSelectedRowIsVisible();
        }
        for (int i = 0; selected() > 0; ++i) {
            QVERIFY(i < 300);
            press(i % 2 == 0 ? Qt::Key_PageUp : Qt::Key_Up);
            checkSelectedRowIsVisible();
        }
        press(Qt::Key_End);
        QCOMPARE(selected(), 299);
        checkSelectedRowIsVisible();
        press(Qt::Key_Space);
        QVERIFY(row(299)->findChild<QCheckBox *>()->isChecked());
        QTest::keyClick(m_area, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), row(299)->findChild<QCheckBox *>());
        press(Qt::Key_Home);
        QCOMPARE(selected(), 0);
        checkSelectedRowIsVisible();
        QVERIFY(countOfViews() < 60);
    }

    void theSelectedRowIsVisibleEvenIfRowsOnTheWayAreHigher() {
        m_list->setItemPrototype(std::make_shared<CollectionViewItem>([](CollectionViewItem *item) {
            QWidget *row = makeNamedRow(item);
            const int number = item->representedObject().toString().toInt();
            row->resize(100, number < 20 ? RowHeight : RowHeight + number % 50);
            return row;
        }));
        fillWithNumbers(500);
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_Home,
                                  Qt::Key_PageDown, Qt::Key_PageDown, Qt::Key_PageDown}) {
            press(key);
            checkSelectedRowIsVisible();
        }
    }

    void typingFindsARowFarAwayByTheNameOfItsItem() {
        auto prototype = std::make_shared<CollectionViewItem>(&makeNamedRow);
        prototype->setNameKeyPath("representedObject");
        m_list->setItemPrototype(prototype);
        fillWithNumbers(5000);
        type(QStringLiteral("4"), 1000);
        QCOMPARE(selected(), 4);
        for (const char *digit : {"3", "2", "1"}) {
            type(QLatin1StringView(digit), 1000);
        }
        QCOMPARE(selected(), 4321);
        checkSelectedRowIsVisible();
        QVERIFY(countOfViews() < 80);
    }

    void typingFindsARowFarAwayByTheNameOfItsView() {
        fillWithNumbers(500);
        for (const char *digit : {"3", "2", "1"}) {
            type(QLatin1StringView(digit), 1000);
        }
        QCOMPARE(selected(), 321);
        checkSelectedRowIsVisible();
    }

    void withoutASelectionTheArrowsBeginAtTheEnds() {
        fill({QStringLiteral("a"), QStringLiteral("b")});
        m_list->setSelectionIndexes({});
        press(Qt::Key_Down);
        QCOMPARE(selected(), 0);
        m_list->setSelectionIndexes({});
        press(Qt::Key_Up);
        QCOMPARE(selected(), 1);
    }

    void anEmptyListAndOneWithoutDelegateIgnoreTheKeys() {
        press(Qt::Key_Down);
        press(Qt::Key_Space);
        type(QStringLiteral("a"), 1);
        QCOMPARE(selected(), -1);
        m_list->setDelegate(nullptr);
        fill({QStringLiteral("a")});
        press(Qt::Key_Down);
        QCOMPARE(selected(), -1);
    }

    void typingSelectsTheRowWhoseNameBeginsWithIt() {
        m_delegate.refused = {QStringLiteral("Recipes (old)")};
        fill({QStringLiteral("Inbox"), QStringLiteral("Recipes (old)"), QStringLiteral("Recipes"),
              QStringLiteral("Reports"), QStringLiteral("Projects")});
        type(QStringLiteral("r"), 1000);
        QCOMPARE(selected(), 2);
        type(QStringLiteral("e"), 1010);
        QCOMPARE(selected(), 2);
        type(QStringLiteral("p"), 1020);
        QCOMPARE(selected(), 3);
        type(QStringLiteral("p"), 90000);
        QCOMPARE(selected(), 4);
        type(QStringLiteral("x"), 190000);
        QCOMPARE(selected(), 4);
    }

    void aBlankWithinANameTicksNothing() {
        fill({QStringLiteral("a"), QStringLiteral("a b"), QStringLiteral("a c")});
        const auto typeBlank = [this](quint64 time) {
            QKeyEvent event(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
            event.setTimestamp(time);
            QCoreApplication::sendEvent(m_area, &event);
        };
        const auto ticked = [this](int index) {
            return row(index)->findChild<QCheckBox *>()->isChecked();
        };
        m_list->setSelectionIndexes({0});
        type(QStringLiteral("a"), 1000);
        QCOMPARE(selected(), 1);
        typeBlank(1010);
        type(QStringLiteral("c"), 1020);
        QCOMPARE(selected(), 2);
        QVERIFY(!ticked(0) && !ticked(1) && !ticked(2));
        // No name goes on with it.
        typeBlank(1030);
        QVERIFY(ticked(2));
        typeBlank(90000);
        QVERIFY(!ticked(2));
    }

    void theSameLetterAgainSelectsTheNextSuchRow() {
        fill({QStringLiteral("Alba"), QStringLiteral("Anna"), QStringLiteral("Berta")});
        type(QStringLiteral("a"), 1000);
        QCOMPARE(selected(), 1);
        type(QStringLiteral("a"), 1010);
        QCOMPARE(selected(), 0);
    }

    void spaceClicksTheCheckBoxAndReturnSendsTheActionOfTheSelectedRow() {
        fill({QStringLiteral("a"), QStringLiteral("b")});
        press(Qt::Key_Down);
        QSignalSpy actions(static_cast<Control *>(row(1)), &Control::action);
        auto *box = row(1)->findChild<QCheckBox *>();
        press(Qt::Key_Space);
        QVERIFY(box->isChecked());
        QVERIFY(!row(0)->findChild<QCheckBox *>()->isChecked());
        press(Qt::Key_Return);
        press(Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(actions.count(), 2);
        box->setEnabled(false);
        press(Qt::Key_Space);
        QVERIFY(box->isChecked());
    }

    void onlyTheCheckBoxThatTheRowNamesIsClicked() {
        fill({QStringLiteral("a")});
        auto *other = new QCheckBox(row(0));
        other->lower();
        other->show();
        press(Qt::Key_Space);
        QVERIFY(!other->isChecked());
        QVERIFY(row(0)->findChild<QCheckBox *>(QStringLiteral("box"))->isChecked());
        auto *view = qobject_cast<QVSelectedItemBackgroundView *>(row(0));
        view->setCheckBoxName(QString());
        press(Qt::Key_Space);
        QVERIFY(!other->isChecked());
        QVERIFY(!view->checkBox());
    }

    void tabEntersTheSelectedRowOnly() {
        fill({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        press(Qt::Key_Down);
        const QWidgetList stops{m_area, row(1)->findChild<QCheckBox *>(),
                                row(1)->findChild<QPushButton *>(), m_after};
        for (QWidget *stop : stops) {
            QCOMPARE(QApplication::focusWidget(), stop);
            QTest::keyClick(stop, Qt::Key_Tab);
        }
        m_after->setFocus();
        QTest::keyClick(m_after, Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), m_area);
        QTest::keyClick(m_area, Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), m_before);
        stops.at(2)->setFocus();
        QTest::keyClick(stops.at(2), Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), stops.at(1));
    }

    void theMenuOpensForTheSelectedRow() {
        QMenu menu;
        menu.addAction(QStringLiteral("Remove"));
        ContextMenu::setMenu(m_area, &menu);
        fill({QStringLiteral("a"), QStringLiteral("b")});
        press(Qt::Key_Down);
        press(Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(menu.isVisible());
        QCOMPARE(menu.pos(), row(1)->mapToGlobal(row(1)->rect().center()));
        menu.close();
    }

    void aSecondaryClickSelectsTheRowAndOpensItsMenu() {
        QMenu menu;
        menu.addAction(QStringLiteral("Remove"));
        ContextMenu::setMenu(m_area, &menu);
        m_delegate.refused = {QStringLiteral("c")};
        fill({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        const auto clickOn = [](QWidget *view) {
            const QPoint place(3, 3);
            QContextMenuEvent event(QContextMenuEvent::Mouse, place, view->mapToGlobal(place));
            QCoreApplication::sendEvent(view, &event);
        };
        clickOn(row(1));
        QCOMPARE(selected(), 1);
        QVERIFY(menu.isVisible());
        menu.close();
        clickOn(row(2));
        QCOMPARE(selected(), 1);
        QVERIFY(!menu.isVisible());
        clickOn(m_list->parentWidget());
        QVERIFY(menu.isVisible());
        QCOMPARE(selected(), 0);
        menu.close();
    }

    void theFrameShowsTheFocus() {
        fill({QStringLiteral("a")});
        const QPoint corner(0, m_area->height() - 1);
        const QColor focused = m_area->grab().toImage().pixelColor(corner);
        QCOMPARE(focused, Contrast::focus(m_area->palette()));
        m_after->setFocus();
        QVERIFY(m_area->grab().toImage().pixelColor(corner) != focused);
    }

    // Assistive technologies

    void theAreaIsAListOfItsRows() {
        fill({QStringLiteral("a"), QStringLiteral("b")});
        QAccessibleInterface *area = accessibleArea();
        QCOMPARE(area->role(), QAccessible::List);
        QCOMPARE(area->text(QAccessible::Name), QStringLiteral("Locations"));
        QCOMPARE(area->childCount(), 2);
        row(1)->setAccessibleDescription(QStringLiteral("never synchronized"));
        QAccessibleInterface *second = area->child(1);
        QCOMPARE(second->role(), QAccessible::ListItem);
        QCOMPARE(second->text(QAccessible::Name), QStringLiteral("b"));
        QCOMPARE(second->text(QAccessible::Description), QStringLiteral("never synchronized"));
        QCOMPARE(second->parent(), area);
        QCOMPARE(area->indexOfChild(second), 1);
        QVERIFY(!area->child(2) && !area->child(-1));
        const QPoint place = second->rect().center();
        QCOMPARE(area->childAt(place.x(), place.y()), second);
        QCOMPARE(second->childCount(), 2);
        QCOMPARE(second->child(0)->parent(), second);
    }

    void everyRowOfALongListIsAChild() {
        fillWithNumbers(2000);
        QAccessibleInterface *area = accessibleArea();
        QCOMPARE(area->childCount(), 2000);
        QVERIFY(countOfViews() < 80);
        QAccessibleInterface *last = area->child(1999);
        QCOMPARE(last->text(QAccessible::Name), QStringLiteral("1999"));
        QCOMPARE(last->role(), QAccessible::ListItem);
        QCOMPARE(area->indexOfChild(last), 1999);
        const QPoint place = last->rect().center();
        QCOMPARE(area->childAt(place.x(), place.y()), last);
        last->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(selected(), 1999);
        checkSelectedRowIsVisible();
        QCOMPARE(area->focusChild(), last);
        press(Qt::Key_Home);
        QCOMPARE(area->child(1999), last);
        const QPoint first = area->child(0)->rect().center();
        QCOMPARE(area->childAt(first.x(), first.y()), area->child(0));
    }

    void aRowFarAwayIsVisibleWhenItIsSelected() {
        QStringList visible;
        m_list->setItemPrototype(
            std::make_shared<CollectionViewItem>([&](CollectionViewItem *item) {
                auto *row = static_cast<QVSelectedItemBackgroundView *>(makeNamedRow(item));
                // A row that is not visible does not announce itself.
                connect(row, &QVSelectedItemBackgroundView::selectedChanged, row, [&visible, row] {
                    if (row->isSelected() && row->isVisible()) {
                        visible.append(row->accessibleName());
                    }
                });
                return row;
            }));
        fillWithNumbers(2000);
        visible.clear();
        m_list->setSelectionIndexes({1500});
        QCOMPARE(visible, QStringList(QStringLiteral("1500")));
    }

    void aRowSaysWhetherItIsSelectedAndHasTheFocus() {
        fill({QStringLiteral("a"), QStringLiteral("b")});
        press(Qt::Key_Down);
        const QAccessible::State first = accessibleArea()->child(0)->state();
        const QAccessible::State second = accessibleArea()->child(1)->state();
        QVERIFY(first.selectable == 1 && first.selected == 0);
        QVERIFY(first.focusable == 1 && first.focused == 0);
        QVERIFY(second.selectable == 1 && second.selected == 1 && second.focused == 1);
        QCOMPARE(accessibleArea()->focusChild(), accessibleArea()->child(1));
        m_after->setFocus();
        QVERIFY(accessibleArea()->child(1)->state().focused == 0);
    }

    void aRowHasActions() {
        QMenu menu;
        QAction remove(QStringLiteral("&Remove…"));
        remove.setShortcut(Qt::Key_Delete);
        menu.addAction(&remove);
        ContextMenu::setMenu(m_area, &menu);
        m_area->addAction(&remove);
        fill({QStringLiteral("a"), QStringLiteral("b")});
        QAccessibleActionInterface *actions = accessibleArea()->child(1)->actionInterface();
        QCOMPARE(actions->actionNames(), QStringList({QAccessibleActionInterface::pressAction(),
                                                      QAccessibleActionInterface::toggleAction(),
                                                      QAccessibleActionInterface::showMenuAction(),
                                                      QStringLiteral("Remove…")}));
        QCOMPARE(actions->keyBindingsForAction(QStringLiteral("Remove…")),
                 QStringList{QKeySequence(Qt::Key_Delete).toString(QKeySequence::NativeText)});
        actions->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(row(1)->findChild<QCheckBox *>()->isChecked());
        QCOMPARE(selected(), 0);
        actions->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(selected(), 1);
        QSignalSpy removals(&remove, &QAction::triggered);
        accessibleArea()->child(0)->actionInterface()->doAction(QStringLiteral("Remove…"));
        QCOMPARE(removals.count(), 1);
        QCOMPARE(selected(), 0);
        actions->doAction(QAccessibleActionInterface::showMenuAction());
        QVERIFY(menu.isVisible());
        QCOMPARE(selected(), 1);
        menu.close();
    }

    void aRefusedRowHasNoEffect() {
        QAction remove(QStringLiteral("Remove"));
        m_area->addAction(&remove);
        m_delegate.refused = {QStringLiteral("b")};
        fill({QStringLiteral("a"), QStringLiteral("b")});
        QSignalSpy removals(&remove, &QAction::triggered);
        accessibleArea()->child(1)->actionInterface()->doAction(QStringLiteral("Remove"));
        QCOMPARE(removals.count(), 0);
        QCOMPARE(selected(), 0);
    }

    void aRowOutsideAListIsAPlainWidget() {
        QVSelectedItemBackgroundView view;
        QVERIFY(QAccessible::queryAccessibleInterface(&view)->role() != QAccessible::ListItem);
    }
};

VELMORA_TEST(ListScrollAreaTest)
#include "ListScrollAreaTest.moc"
