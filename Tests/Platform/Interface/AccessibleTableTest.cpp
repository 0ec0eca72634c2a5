#include "Platform/Interface/AccessibleTable.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QPushButton>

#include "Platform/Interface/TableView.h"
#include "Support/TestMain.h"

namespace {

class TickedFolder : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name)
    Q_PROPERTY(bool ticked MEMBER m_isTicked)
public:
    explicit TickedFolder(const QString &name) : m_name(name) {}
    bool isTicked() const { return m_isTicked; }

private:
    QString m_name;
    bool m_isTicked = false;
};

}  // namespace

/// A table as screen readers see it.
class AccessibleTableTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TableView> m_table;
    std::shared_ptr<TickedFolder> m_first;
    std::shared_ptr<TickedFolder> m_second;

    QAccessibleInterface *list() const {
        return QAccessible::queryAccessibleInterface(m_table.get());
    }

private Q_SLOTS:
    void initTestCase() { AccessibleTable::install(); }
    void init() {
        m_table = std::make_unique<TableView>();
        m_table->setProperty("contentKey", QStringLiteral("name"));
        m_table->setProperty("checkKey", QStringLiteral("ticked"));
        m_first = std::make_shared<TickedFolder>(QStringLiteral("Photos"));
        m_second = std::make_shared<TickedFolder>(QStringLiteral("Texts"));
        m_table->setContent({QVariant::fromValue(m_first), QVariant::fromValue(m_second)});
    }
    void cleanup() { m_table.reset(); }

    void itIsAListOfItsRows() {
        QCOMPARE(list()->role(), QAccessible::List);
        QCOMPARE(list()->childCount(), 2);
        QAccessibleInterface *second = list()->child(1);
        QCOMPARE(second->role(), QAccessible::ListItem);
        QCOMPARE(second->text(QAccessible::Name), QStringLiteral("Texts"));
        QCOMPARE(second->parent(), list());
        QCOMPARE(list()->child(1), second);
        QCOMPARE(list()->indexOfChild(second), 1);
        QVERIFY(!list()->child(2));
        m_table->show();
        const QPoint place = second->rect().center();
        QCOMPARE(list()->childAt(place.x(), place.y()), second);
    }

    void anItemSaysWhatIsSelectedAndTicked() {
        m_table->selectRow(1);
        QVERIFY(list()->child(0)->state().selected == 0);
        QVERIFY(list()->child(1)->state().selected == 1);
        QVERIFY(list()->child(1)->state().checkable == 1);
        QVERIFY(list()->child(1)->state().checked == 0);
        m_second->setProperty("ticked", true);
        m_table->setContent({QVariant::fromValue(m_first), QVariant::fromValue(m_second)});
        QVERIFY(list()->child(1)->state().checked == 1);
        QAccessibleInterface *second = list()->child(1);
        m_table->setContent({QVariant::fromValue(m_first)});
        QVERIFY(!second->isValid());
    }

    void itemsAreSelectedAndTickedByActions() {
        QAccessibleActionInterface *actions = list()->child(1)->actionInterface();
        QCOMPARE(actions->actionNames(), QStringList({QAccessibleActionInterface::pressAction(),
                                                      QAccessibleActionInterface::toggleAction()}));
        actions->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(m_table->selectionIndexes(), IndexSet{1});
        actions->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(m_second->isTicked());
        QVERIFY(!m_first->isTicked());
    }

    void anItemIsRemovedByTheActionOfTheButton() {
        QWidget window;
        m_table->setParent(&window);
        QPushButton button(QStringLiteral("&Revoke"), &window);
        button.setObjectName(QStringLiteral("revokeButton"));
        m_table->setProperty("removeButton", button.objectName());
        QString removed;
        connect(&button, &QPushButton::clicked, this, [&] { removed = m_table->selectedName(); });
        QAccessibleActionInterface *actions = list()->child(1)->actionInterface();
        QVERIFY(actions->actionNames().contains(QStringLiteral("Revoke")));
        QCOMPARE(actions->keyBindingsForAction(QStringLiteral("Revoke")).size(), 1);
        actions->doAction(QStringLiteral("Revoke"));
        QCOMPARE(removed, QStringLiteral("Texts"));
        m_table->setParent(nullptr);
    }

    void furtherLinesOrTheTableDescribeARow() {
        m_table->setProperty("rowDescription", QStringLiteral("A folder"));
        QVERIFY(m_table->rowHeight(0) < 2 * m_table->fontMetrics().height());
        m_first->setProperty("name", QStringLiteral("Photos\nLast used: today"));
        m_table->setContent({QVariant::fromValue(m_first), QVariant::fromValue(m_second)});
        QCOMPARE(list()->child(0)->text(QAccessible::Name), QStringLiteral("Photos"));
        QCOMPARE(list()->child(0)->text(QAccessible::Description),
                 QStringLiteral("Last used: today"));
        QCOMPARE(list()->child(1)->text(QAccessible::Name), QStringLiteral("Texts"));
        QCOMPARE(list()->child(1)->text(QAccessible::Description), QStringLiteral("A folder"));
        QVERIFY(m_table->rowHeight(0) >= 2 * m_table->fontMetrics().height());
    }

    void theNameOfTheSelectedRowFollowsItsContent() {
        QSignalSpy changes(m_table.get(), &TableView::selectedNameChanged);
        QCOMPARE(m_table->selectedName(), QString());
        m_table->selectRow(0);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(m_table->selectedName(), QStringLiteral("Photos"));
        m_table->setContent({QVariant::fromValue(m_second)});
        QCOMPARE(changes.size(), 2);
        QCOMPARE(m_table->selectedName(), QStringLiteral("Texts"));
    }
};

VELMORA_TEST(AccessibleTableTest)
#include "AccessibleTableTest.moc"
