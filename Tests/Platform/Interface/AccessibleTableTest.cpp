#include "Platform/Interface/AccessibleTable.h"

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
};

VELMORA_TEST(AccessibleTableTest)
#include "AccessibleTableTest.moc"
