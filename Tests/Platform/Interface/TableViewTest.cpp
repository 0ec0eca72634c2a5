#include "Platform/Interface/TableView.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyledItemDelegate>

#include "Platform/Interface/Nib.h"
#include "Platform/Interface/TableViewDelegate.h"
#include "Platform/KeyValue/ArrayController.h"
#include "Platform/KeyValue/Binding.h"
#include "Platform/KeyValue/ValueTransformer.h"
#include "Support/AnnouncementRecorder.h"
#include "Support/TestMain.h"

namespace {

class Contact : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name)
public:
    explicit Contact(const QString &name) : m_name(name) {}

private:
    QString m_name;
};

QVariant contact(const char *name) {
    return QVariant::fromValue(std::make_shared<Contact>(QLatin1StringView(name)));
}

class UpperCaseTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override { return QMetaType::fromType<QString>(); }
    QVariant transformedValue(const QVariant &value) const override {
        return value.toString().toUpper();
    }
};

class ColorTransformer : public ValueTransformer {
public:
    QMetaType transformedValueClass() const override { return QMetaType::fromType<QPixmap>(); }
    QVariant transformedValue(const QVariant &value) const override {
        QPixmap pixmap(8, 8);
        pixmap.fill(QColor(value.toString()));
        return pixmap;
    }
};

/// Shows labels that say where they are, in the column "label" only.
class LabelDelegate : public TableViewDelegate {
public:
    int numberOfRowsInTableView(TableView * /*tableView*/) override { return rows; }
    QWidget *tableViewViewForTableColumnRow(TableView * /*tableView*/,
                                            const QString &columnIdentifier, int row) override {
        asked.append(columnIdentifier + QString::number(row));
        return columnIdentifier == QLatin1StringView("label") ? new QLabel(asked.last()) : nullptr;
    }
    void tableViewSelectionDidChange(TableView *tableView) override {
        selections.append(tableView->selectionIndexes());
    }

    int rows = 0;
    QStringList asked;
    QList<IndexSet> selections;
};

/// Asks the table for the view of each of its two rows.
class ReusingDelegate : public TableViewDelegate {
public:
    explicit ReusingDelegate(QObject &owner) : m_owner(owner) {}
    int numberOfRowsInTableView(TableView * /*tableView*/) override { return 2; }
    QWidget *tableViewViewForTableColumnRow(TableView *tableView,
                                            const QString & /*columnIdentifier*/,
                                            int /*row*/) override {
        auto *label =
            qobject_cast<QLabel *>(tableView->makeViewWithIdentifier(identifier, &m_owner));
        label->setText(text);
        return label;
    }
    void tableViewSelectionDidChange(TableView * /*tableView*/) override {}

    QString identifier = QStringLiteral("Cell");
    QString text;

private:
    QObject &m_owner;
};

/// Counts how often the size of a row is asked for.
class CountingItemDelegate : public QStyledItemDelegate {
public:
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
        ++count;
        return QStyledItemDelegate::sizeHint(option, index);
    }
    mutable int count = 0;
};

}  // namespace

class TableViewTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TableView> m_table;

    QStringList texts() const {
        QStringList result;
        for (int row = 0; row < m_table->rowCount(); ++row) {
            result.append(m_table->item(row, 0)->text());
        }
        return result;
    }
    QPoint middleOfRow(int row) const {
        return m_table->visualItemRect(m_table->item(row, 0)).center();
    }
    void click(const QPoint &point, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(m_table->viewport(), button, {}, point);
    }

private Q_SLOTS:
    void initTestCase() {
        ValueTransformer::setTransformerForName(std::make_unique<UpperCaseTransformer>(),
                                                QStringLiteral("UpperCase"));
        ValueTransformer::setTransformerForName(std::make_unique<ColorTransformer>(),
                                                QStringLiteral("Color"));
    }
    void init() {
        m_table = std::make_unique<TableView>();
        m_table->resize(300, 300);
        m_table->show();
    }
    void cleanup() { m_table.reset(); }

    void rowsShowTheObjectsThemselves() {
        m_table->setContent({QStringLiteral("b"), QStringLiteral("a")});
        QCOMPARE(texts(), QStringList({QStringLiteral("b"), QStringLiteral("a")}));
        m_table->setContent({});
        QCOMPARE(m_table->rowCount(), 0);
    }

    void manyRowsAreShownWithoutMeasuringEach() {
        CountingItemDelegate delegate;
        m_table->setItemDelegate(&delegate);
        m_table->setContent(QVariantList(20'000, QString(4000, u'x')));
        QCoreApplication::processEvents();
        m_table->scrollToBottom();
        m_table->grab();
        QVERIFY2(delegate.count < 1000, QByteArray::number(delegate.count));
        m_table->setItemDelegate(nullptr);
    }

    void aLongTextIsShownOnOneLineAndCut() {
        m_table->setContent({QStringLiteral("a"), QString(4000, u'x'), QStringLiteral("b\nc\nd")});
        QCOMPARE(m_table->item(1, 0)->text(), QString(500, u'x') + u'…');
        QCOMPARE(m_table->rowHeight(1), m_table->rowHeight(0));
        QCOMPARE(m_table->rowHeight(2), m_table->rowHeight(0));
        QVERIFY(m_table->rowHeight(0) >= m_table->fontMetrics().height());
        QFont large = m_table->font();
        large.setPointSize(40);
        m_table->setFont(large);
        QVERIFY(m_table->rowHeight(0) >= QFontMetrics(large).height());
    }

    void rowsShowTheValueAtTheContentKeyWithAnIcon() {
        QPixmap pixmap(8, 8);
        pixmap.fill(Qt::red);
        m_table->setRowIcon(QIcon(pixmap));
        m_table->setProperty("contentKey", QStringLiteral("name"));
        m_table->setContent({contact("Kim"), contact("Ada")});
        QCOMPARE(texts(), QStringList({QStringLiteral("Kim"), QStringLiteral("Ada")}));
        QVERIFY(!m_table->item(1, 0)->icon().isNull());
    }

    void transformersMakeTextAndIconOfEachObject() {
        m_table->setProperty("textTransformer", QStringLiteral("UpperCase"));
        m_table->setProperty("iconTransformer", QStringLiteral("Color"));
        m_table->setContent({QStringLiteral("red"), QStringLiteral("blue")});
        QCOMPARE(texts(), QStringList({QStringLiteral("RED"), QStringLiteral("BLUE")}));
        const QImage icon = m_table->item(1, 0)->icon().pixmap(8).toImage();
        QCOMPARE(icon.pixelColor(4, 4), QColor(Qt::blue));
    }

    void theSelectionIsAnnouncedAndCanBeSet() {
        m_table->setContent({1, 2, 3});
        AnnouncementRecorder recorder(m_table.get());
        m_table->selectRow(1);
        QCOMPARE(m_table->selectionIndexes(), IndexSet{1});
        QCOMPARE(m_table->selectedRow(), 1);
        QVERIFY(recorder.count("selectionIndexes") > 0);
        m_table->setSelectionIndexes({0, 2, 7});
        QCOMPARE(m_table->selectionIndexes(), IndexSet({0, 2}));
        QCOMPARE(m_table->selectedRow(), 0);
        m_table->setSelectionIndexes({});
        QCOMPARE(m_table->selectedRow(), -1);
    }

    void settingTheSameSelectionAnnouncesNothing() {
        m_table->setContent({1, 2, 3});
        m_table->setSelectionIndexes({1});
        AnnouncementRecorder recorder(m_table.get());
        m_table->setSelectionIndexes({1});
        QVERIFY(recorder.announced().isEmpty());
    }

    void newContentKeepsTheSelectedRowsByPosition() {
        m_table->setContent({1, 2, 3});
        m_table->setSelectionIndexes({2});
        m_table->setContent({4, 5, 6});
        QCOMPARE(m_table->selectionIndexes(), IndexSet{2});
        m_table->setContent({7, 8});
        QCOMPARE(m_table->selectionIndexes(), IndexSet());
    }

    void aTableFollowsAnArrayControllerBothWays() {
        ArrayController controller;
        KeyValue::bind(m_table.get(), "content", &controller, "arrangedObjects");
        KeyValue::bind(m_table.get(), "selectionIndexes", &controller, "selectionIndexes", {},
                       KeyValue::Direction::BothWays);
        controller.setContent({1, 2, 3});
        m_table->selectRow(2);
        QCOMPARE(controller.selectedObjects(), QVariantList{3});
        controller.setContent({3, 1});
        QCOMPARE(controller.selectedObjects(), QVariantList{3});
        QCOMPARE(m_table->selectionIndexes(), IndexSet{0});
        controller.setContent({1});
        QVERIFY(controller.selectedObjects().isEmpty());
        QVERIFY(m_table->selectionIndexes().empty());
        controller.setSelectionIndexes({0});
        QCOMPARE(m_table->selectedRow(), 0);
    }

    void aClickSendsTheActionWithItsRow() {
        m_table->setContent({1, 2});
        QSignalSpy actions(m_table.get(), &TableView::action);
        QCOMPARE(m_table->clickedRow(), -1);
        click(middleOfRow(1));
        QCOMPARE(m_table->clickedRow(), 1);
        QCOMPARE(actions.count(), 1);
        click({10, m_table->viewport()->height() - 2});
        QCOMPARE(m_table->clickedRow(), -1);
        QCOMPARE(actions.count(), 2);
    }

    void onlyTheLeftButtonSendsIt() {
        m_table->setContent({1, 2});
        QSignalSpy actions(m_table.get(), &TableView::action);
        for (const Qt::MouseButton button :
             {Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton}) {
            click(middleOfRow(0), button);
            QCOMPARE(actions.count(), 0);
        }
    }

    void theSpaceBarSendsItToo() {
        m_table->setContent({1, 2});
        QSignalSpy actions(m_table.get(), &TableView::action);
        QTest::keyClick(m_table.get(), Qt::Key_Space);
        QCOMPARE(actions.count(), 0);
        m_table->setCurrentCell(1, 0);
        QTest::keyClick(m_table.get(), Qt::Key_Space);
        QCOMPARE(actions.count(), 1);
        QCOMPARE(m_table->clickedRow(), 1);
    }

    void anArrowSelectsTheOnlyRow() {
        m_table->setContent({1});
        // As when Tab reaches the table.
        m_table->setCurrentCell(0, 0, QItemSelectionModel::NoUpdate);
        QCOMPARE(m_table->selectedRow(), -1);
        QTest::keyClick(m_table.get(), Qt::Key_Down);
        QCOMPARE(m_table->selectedRow(), 0);
    }

    void homeAndEndGoToTheFirstAndTheLastRow() {
        m_table->setContent({1, 2, 3, 4});
        m_table->setCurrentCell(1, 0);
        const std::pair<Qt::Key, int> targets[] = {
            {Qt::Key_End, 3}, {Qt::Key_Home, 0}, {Qt::Key_PageDown, 3}, {Qt::Key_PageUp, 0}};
        for (const auto &[key, row] : targets) {
            QTest::keyClick(m_table.get(), key);
            QCOMPARE(m_table->selectionIndexes(), IndexSet{row});
        }
    }

    void deleteClicksTheRemoveButton() {
        m_table->setContent({1, 2});
        QPushButton button(m_table.get());
        button.setObjectName(QStringLiteral("revokeButton"));
        QSignalSpy clicks(&button, &QPushButton::clicked);
        QTest::keyClick(m_table.get(), Qt::Key_Delete);
        QCOMPARE(clicks.count(), 0);
        m_table->setProperty("removeButton", QStringLiteral("revokeButton"));
        QTest::keyClick(m_table.get(), Qt::Key_Delete);
        QCOMPARE(clicks.count(), 1);
        button.setEnabled(false);
        QTest::keyClick(m_table.get(), Qt::Key_Delete);
        QCOMPARE(clicks.count(), 1);
    }

    void aDelegateMakesTheViews() {
        LabelDelegate delegate;
        delegate.rows = 2;
        m_table->setColumnIdentifiers({QStringLiteral("label"), QStringLiteral("empty")});
        m_table->setTableDelegate(&delegate);
        m_table->reloadData();
        QCOMPARE(delegate.asked, QStringList({QStringLiteral("label0"), QStringLiteral("empty0"),
                                              QStringLiteral("label1"), QStringLiteral("empty1")}));
        QCOMPARE(m_table->rowCount(), 2);
        QCOMPARE(qobject_cast<QLabel *>(m_table->cellWidget(1, 0))->text(),
                 QStringLiteral("label1"));
        QVERIFY(!m_table->cellWidget(1, 1));
        m_table->setTableDelegate(nullptr);
        m_table->reloadData();
        QCOMPARE(m_table->rowCount(), 0);
    }

    void viewsOfSelectedRowsWriteInTheColorForIt() {
        LabelDelegate delegate;
        delegate.rows = 2;
        m_table->setColumnIdentifiers({QStringLiteral("label")});
        m_table->setTableDelegate(&delegate);
        m_table->reloadData();
        const auto color = [this](int row) {
            const QWidget *view = m_table->cellWidget(row, 0);
            return view->palette().color(view->foregroundRole());
        };
        const QColor normal = color(0);
        const QColor selected = m_table->palette().color(QPalette::HighlightedText);
        QVERIFY(normal != selected);
        m_table->selectRow(1);
        QCOMPARE(color(1), selected);
        QCOMPARE(color(0), normal);
        m_table->reloadData();
        QCOMPARE(color(1), selected);
        m_table->clearSelection();
        QCOMPARE(color(1), normal);
        m_table->setTableDelegate(nullptr);
    }

    void theDelegateIsCalledWhenTheSelectionChanges() {
        LabelDelegate delegate;
        delegate.rows = 2;
        m_table->setTableDelegate(&delegate);
        m_table->reloadData();
        m_table->selectRow(1);
        QCOMPARE(delegate.selections, QList<IndexSet>{{1}});
        delegate.rows = 1;
        m_table->reloadData();
        QCOMPARE(delegate.selections.last(), IndexSet());
        QVERIFY(m_table->selectionIndexes().empty());
        m_table->setTableDelegate(nullptr);
    }

    void aCellIsReusedUnlessItWouldBeMadeInAnotherWay() {
        Nib::registerForm(QStringLiteral("Cell"), [] { return new QLabel; });
        Nib::registerForm(QStringLiteral("Other"), [] { return new QLabel; });
        QObject owner;
        ReusingDelegate delegate(owner);
        m_table->setTableDelegate(&delegate);
        m_table->reloadData();
        const QList<QPointer<QWidget>> before{m_table->cellWidget(0, 0), m_table->cellWidget(1, 0)};
        QVERIFY(before.first() != before.last());
        delegate.text = QStringLiteral("again");
        m_table->reloadData();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (int row = 0; row < 2; ++row) {
            QVERIFY(before.at(row));
            QCOMPARE(m_table->cellWidget(row, 0), before.at(row));
            QCOMPARE(qobject_cast<QLabel *>(before.at(row))->text(), QStringLiteral("again"));
        }
        delegate.identifier = QStringLiteral("Other");
        m_table->reloadData();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!before.first());
        QVERIFY(m_table->cellWidget(0, 0));
        m_table->setTableDelegate(nullptr);
    }

    void cellsAreMadeFromTheFormOfTheirIdentifier() {
        Nib::registerForm(QStringLiteral("Cell"),
                          [] { return new QLabel(QStringLiteral("cell")); });
        QObject owner;
        const std::unique_ptr<QWidget> view(
            m_table->makeViewWithIdentifier(QStringLiteral("Cell"), &owner));
        QCOMPARE(qobject_cast<QLabel *>(view.get())->text(), QStringLiteral("cell"));
    }
};

VELMORA_TEST(TableViewTest)
#include "TableViewTest.moc"
