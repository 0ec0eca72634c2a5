#include "View/ListRow.h"

#include <QtWidgets/QLabel>

#include "Platform/Interface/TextLabel.h"
#include "Support/TestMain.h"
#include "View/ListScrollArea.h"
#include "View/QVListView.h"

namespace {

/// A child that wants a certain size.
class Block : public QWidget {
public:
    Block(QWidget *row, const char *place, const QSize &size) : QWidget(row), m_size(size) {
        setProperty("rowPlace", QString::fromLatin1(place));
    }
    QSize sizeHint() const override { return m_size; }
    QSize minimumSizeHint() const override {
        ++m_measurements;
        return m_size;
    }
    int measurements() const { return m_measurements; }
    void want(const QSize &size) {
        m_size = size;
        updateGeometry();
    }

private:
    QSize m_size;
    mutable int m_measurements = 0;
};

}  // namespace

class ListRowTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 300);
        m_row = new ListRow;
        m_icon = new Block(m_row, "leading", {32, 32});
        m_check = new Block(m_row, "leading", {16, 16});
        m_title = new Block(m_row, "text", {100, 18});
        m_detail = new Block(m_row, "text", {120, 14});
        m_activity = new Block(m_row, "trailing", {48, 10});
        m_button = new Block(m_row, "trailing", {80, 24});
        m_gap = m_row->fontMetrics().height() * 5 / 8;
        m_margin = m_row->fontMetrics().height() * 7 / 16;
    }

    void cleanup() { m_window.reset(); }

    void theRowIsAsHighAsItsTallestPlaceAndItsMargins() {
        m_row->setParent(m_window.get());
        QCOMPARE(m_row->height(), 18 + 1 + 14 + 2 * m_margin);
        QCOMPARE(m_row->sizeHint().height(), m_row->height());
    }

    void onlyTheFirstParentMakesItMeasureItsChildren() {
        m_row->setParent(m_window.get());
        const int measurements = m_title->measurements();
        QVERIFY(measurements > 0);
        QWidget other;
        m_row->setParent(&other);
        m_row->setParent(nullptr);
        m_row->setParent(m_window.get());
        QCOMPARE(m_title->measurements(), measurements);
    }

    void withoutAParentItMeasuresNothing() {
        const std::unique_ptr<ListRow> row(m_row);
        QEvent event(QEvent::ParentChange);
        QCoreApplication::sendEvent(row.get(), &event);
        QCOMPARE(m_title->measurements(), 0);
    }

    void childrenStandFromStartToEndInTheOrderOfTheForm() {
        show(400);
        const int height = m_row->height();
        QCOMPARE(m_icon->geometry(), QRect(m_gap, (height - 32) / 2, 32, 32));
        QCOMPARE(m_check->geometry(), QRect(m_gap + 32 + m_gap, (height - 16) / 2, 16, 16));
        QCOMPARE(m_button->geometry(), QRect(400 - m_gap - 80, (height - 24) / 2, 80, 24));
        QCOMPARE(m_activity->geometry(),
                 QRect(m_button->x() - m_gap - 48, (height - 10) / 2, 48, 10));
        const int start = m_gap + 32 + m_gap + 16 + m_gap;
        const int width = m_activity->x() - m_gap - start;
        QCOMPARE(m_title->geometry(), QRect(start, m_margin, width, 18));
        QCOMPARE(m_detail->geometry(), QRect(start, m_margin + 18 + 1, width, 14));
    }

    void rightToLeftIsTheMirrorImage() {
        m_row->setLayoutDirection(Qt::RightToLeft);
        show(400);
        QCOMPARE(m_icon->geometry().right(), 399 - m_gap);
        QCOMPARE(m_button->x(), m_gap);
        m_row->setLayoutDirection(Qt::LeftToRight);
        QCOMPARE(m_icon->x(), m_gap);
    }

    void aHiddenChildTakesNoWidthAndKeepsTheHeight() {
        m_icon->want({60, 60});
        show(400);
        const int height = m_row->height();
        m_icon->hide();
        QTRY_COMPARE(m_check->x(), m_gap);
        m_button->hide();
        QTRY_COMPARE(m_activity->geometry().right(), 399 - m_gap);
        QCOMPARE(m_row->height(), height);
    }

    void childrenMoveWithTheWidth() {
        show(400);
        m_row->resize(300, m_row->height());
        QCOMPARE(m_button->geometry().right(), 299 - m_gap);
    }

    void aChildThatWantsMoreMakesTheRowHigher() {
        show(400);
        m_button->want({90, 70});
        QTRY_COMPARE(m_row->height(), 70 + 2 * m_margin);
        QCOMPARE(m_button->size(), QSize(90, 70));
    }

    void theLayoutFollowsAChangeMadeWhileTheRowWasHidden() {
        show(400);
        m_window->hide();
        m_icon->hide();
        m_window->show();
        QCOMPARE(m_check->x(), m_gap);
    }

    void limitsOfTheFormHold() {
        m_activity->setMaximumSize(20, 4);
        m_button->setMinimumSize(100, 26);
        show(400);
        QCOMPARE(m_activity->size(), QSize(20, 4));
        QCOMPARE(m_button->size(), QSize(100, 26));
    }

    void aTextThatDependsOnTheWidthIsWrapped() {
        auto *text = new TextLabel(m_row);
        text->setProperty("rowPlace", QStringLiteral("text"));
        text->setWordWrap(true);
        text->setText(QStringLiteral("one two three four five six seven eight nine ten"));
        show(text->sizeHint().width() + 400);
        const int line = text->fontMetrics().height();
        const int height = m_row->height();
        QCOMPARE(text->height(), line);
        m_row->resize(m_row->width() - 400, m_row->height());
        QVERIFY(text->height() >= 2 * line);
        QCOMPARE(m_row->height(), height + text->height() - line);
        QCOMPARE(text->height(), text->heightForWidth(text->width()));
        text->setText(QStringLiteral("one"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        QCOMPARE(m_row->height(), height);
    }

    void childrenWithoutAPlaceStayWhereTheyAre() {
        QWidget other(m_row);
        other.setGeometry(3, 4, 5, 200);
        show(400);
        QCOMPARE(other.geometry(), QRect(3, 4, 5, 200));
        QCOMPARE(m_row->height(), 18 + 1 + 14 + 2 * m_margin);
    }

    void nothingIsCutOffAtTheHintedWidth() {
        show(m_row->sizeHint().width());
        QCOMPARE(m_detail->width(), 120);
    }

    void theHeightFollowsTheFont() {
        auto *label = new QLabel(QStringLiteral("Title"), m_row);
        label->setProperty("rowPlace", QStringLiteral("text"));
        show(400);
        const int before = m_row->height();
        QFont large = m_window->font();
        large.setPointSize(large.pointSize() * 3);
        m_window->setFont(large);
        QVERIFY(m_row->height() > before);
        QCOMPARE(label->height(), label->minimumSizeHint().height());
    }

    void aListStacksItsRowsAnewWhenTheFontChanges() {
        ListScrollArea area;
        area.resize(300, 200);
        auto *list = new QVListView;
        area.setWidget(list);
        list->setItemPrototype(std::make_shared<CollectionViewItem>([](CollectionViewItem *item) {
            auto *row = new ListRow;
            auto *label = new QLabel(item->representedObject().toString(), row);
            label->setProperty("rowPlace", QStringLiteral("text"));
            return row;
        }));
        area.show();
        list->setContent({QStringLiteral("a"), QStringLiteral("b")});
        const QWidget *second = list->items().at(1)->view();
        const int before = second->height();
        QCOMPARE(second->y(), before);
        QFont large = area.font();
        large.setPointSize(large.pointSize() * 3);
        area.setFont(large);
        QVERIFY(second->height() > before);
        QTRY_COMPARE(second->y(), second->height());
        QCOMPARE(list->height(), 2 * second->height());
    }

private:
    void show(int width) {
        m_row->setParent(m_window.get());
        m_row->resize(width, m_row->height());
        m_window->show();
    }

    std::unique_ptr<QWidget> m_window;
    ListRow *m_row = nullptr;
    Block *m_icon = nullptr;
    Block *m_check = nullptr;
    Block *m_title = nullptr;
    Block *m_detail = nullptr;
    Block *m_activity = nullptr;
    Block *m_button = nullptr;
    int m_gap = 0;
    int m_margin = 0;
};

VELMORA_TEST(ListRowTest)
#include "ListRowTest.moc"
