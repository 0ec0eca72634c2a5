#include <QtWidgets/QtWidgets>

#include "Benchmarks/Benchmark.h"
#include "Platform/Interface/TextLabel.h"
#include "View/ListRow.h"
#include "View/ListScrollArea.h"
#include "View/QVListView.h"
#include "View/QVListViewDelegate.h"

namespace {

constexpr int rowCount = 1000;
constexpr QSize windowSize(400, 600);

class Delegate : public QVListViewDelegate {
public:
    CollectionViewItem *collectionViewItemPrototypeForRepresentedObject(
        QVListView * /*listView*/, const QVariant & /*object*/) override {
        return nullptr;
    }
    bool collectionViewShouldSelectItem(QVListView * /*listView*/,
                                        CollectionViewItem * /*item*/) override {
        return true;
    }
};

/// The contents of a row: an icon, a title, a line below it and a button.
struct Parts {
    Parts(QWidget *row, const QString &text)
        : icon(new QLabel(row)),
          title(new TextLabel(row)),
          detail(new TextLabel(row)),
          button(new QPushButton(QStringLiteral("Sync Now"), row)) {
        static const QPixmap picture = [] {
            QPixmap pixmap(32, 32);
            pixmap.fill(Qt::darkCyan);
            return pixmap;
        }();
        icon->setPixmap(picture);
        title->setText(text);
        detail->setText(QStringLiteral("Synchronized 3 minutes ago"));
    }

    QLabel *icon;
    TextLabel *title;
    TextLabel *detail;
    QPushButton *button;
};

QWidget *makeListRow(const QString &text) {
    auto *row = new ListRow;
    const Parts parts(row, text);
    parts.icon->setProperty("rowPlace", QStringLiteral("leading"));
    parts.title->setProperty("rowPlace", QStringLiteral("text"));
    parts.detail->setProperty("rowPlace", QStringLiteral("text"));
    parts.button->setProperty("rowPlace", QStringLiteral("trailing"));
    return row;
}

/// Returns a row with a QLayout, for comparison.
QWidget *makeRowWithLayout(const QString &text) {
    auto *row = new QWidget;
    const Parts parts(row, text);
    auto *texts = new QVBoxLayout;
    texts->addWidget(parts.title);
    texts->addWidget(parts.detail);
    auto *layout = new QHBoxLayout(row);
    layout->addWidget(parts.icon);
    layout->addLayout(texts, 1);
    layout->addWidget(parts.button);
    return row;
}

QVariantList objects(int count = rowCount) {
    QVariantList result;
    for (int i = 0; i < count; ++i) {
        result.append(QStringLiteral("Database %1").arg(i));
    }
    return result;
}

/// Waits until everything is painted and all discarded objects are deleted.
void finish(QAbstractScrollArea &area) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    area.viewport()->repaint();
}

class OurList {
public:
    OurList() {
        m_area.resize(windowSize);
        auto *list = new QVListView;
        list->setDelegate(&m_delegate);
        list->setItemPrototype(std::make_shared<CollectionViewItem>([](CollectionViewItem *item) {
            return makeListRow(item->representedObject().toString());
        }));
        m_area.setWidget(list);
    }

    void fill(int count = rowCount) {
        static_cast<QVListView *>(m_area.widget())->setContent(objects(count));
    }
    QAbstractScrollArea &area() { return m_area; }

private:
    Delegate m_delegate;
    ListScrollArea m_area;
};

class ListWidget {
public:
    explicit ListWidget(QWidget *(*makeRow)(const QString &)) : m_makeRow(makeRow) {
        m_list.resize(windowSize);
    }

    void fill() {
        m_list.clear();
        QWidgetList rows;
        for (const QVariant &object : objects()) {
            auto *item = new QListWidgetItem(&m_list);
            rows.append(m_makeRow(object.toString()));
            item->setSizeHint(rows.constLast()->sizeHint());
        }
        // Apart, because a list that is shown lays itself out for each widget after a new item.
        for (int i = 0; i < rowCount; ++i) {
            m_list.setItemWidget(m_list.item(i), rows.at(i));
        }
    }
    QAbstractScrollArea &area() { return m_list; }

private:
    QWidget *(*const m_makeRow)(const QString &);
    QListWidget m_list;
};

template <class List>
Benchmark::Report::Work rebuild(List &list) {
    list.area().show();
    return [&list] {
        list.fill();
        finish(list.area());
    };
}

template <class Make>
Benchmark::Report::Work show(Make make) {
    return [make] {
        auto list = make();
        list.fill();
        list.area().show();
        finish(list.area());
    };
}

void run(Benchmark::Report &report) {
    const auto ours = [] { return OurList(); };
    const auto withLayouts = [] { return ListWidget(&makeRowWithLayout); };
    const auto withOurRows = [] { return ListWidget(&makeListRow); };
    {
        OurList list;
        ListWidget reference(&makeListRow);
        report.compare(QStringLiteral("1,000 rows rebuilt / QListWidget, the same rows"),
                       rebuild(list), rebuild(reference), 0.2);
    }
    // For comparison: rows as one would make them without ours, and lists that were never shown.
    {
        OurList list;
        ListWidget reference(&makeRowWithLayout);
        report.compare(QStringLiteral("1,000 rows rebuilt / QListWidget, rows with layouts"),
                       rebuild(list), rebuild(reference));
    }
    report.compare(QStringLiteral("1,000 rows made and shown / QListWidget, the same rows"),
                   show(ours), show(withOurRows), 0.35);
    report.compare(QStringLiteral("1,000 rows made and shown / QListWidget, rows with layouts"),
                   show(ours), show(withLayouts));
}

/// Returns the CPU time of making and showing a list, in milliseconds.
double timeToShow(int count) {
    return Benchmark::median([count] {
        const double start = Benchmark::processorNanoseconds();
        OurList list;
        list.fill(count);
        list.area().show();
        finish(list.area());
        return (Benchmark::processorNanoseconds() - start) / 1e6;
    });
}

void compareSizes(Benchmark::Report &report) {
    const double few = timeToShow(rowCount);
    const double many = timeToShow(10 * rowCount);
    report.add({QStringLiteral("10,000 rows made and shown / 1,000"),
                many,
                few,
                QStringLiteral("ms"),
                2.0,
                {{rowCount / 10, timeToShow(rowCount / 10)},
                 {rowCount, few},
                 {10 * rowCount, many},
                 {100 * rowCount, timeToShow(100 * rowCount)}}});
}

const Benchmark::Suite sizesSuite(QStringLiteral("list view sizes"), &compareSizes);
const Benchmark::Suite suite(QStringLiteral("list view"), &run);

}  // namespace
