#include "Platform/Interface/TableView.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QHeaderView>

#include "Platform/Interface/Nib.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/Interface/TableViewDelegate.h"
#include "Platform/KeyValue/ValueTransformer.h"

namespace {
/// The form and the owner of a view that the table has made.
constexpr char originProperty[] = "tableViewOrigin";

/// Of the text of a row, in characters. Rows are elided, but only after all of it was laid out.
constexpr qsizetype LongestText = 500;

QString shownText(const QString &text) {
    const QString message = PlainText::message(text);
    return message.size() > LongestText ? message.first(LongestText) + u'…' : message;
}
}  // namespace

TableViewDelegate::~TableViewDelegate() = default;

TableView::TableView(QWidget *parent)
    : QTableWidget(0, 1, parent), m_columnIdentifiers({QString()}) {
    horizontalHeader()->hide();
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->hide();
    // Measuring each of many rows would take long.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setShowGrid(false);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    connect(this, &QTableWidget::itemSelectionChanged, this, &TableView::selectionDidChange);
    connect(this, &QTableWidget::itemChanged, this, &TableView::itemDidChange);
}

void TableView::setColumnIdentifiers(const QStringList &identifiers) {
    m_columnIdentifiers = identifiers;
    setColumnCount(static_cast<int>(identifiers.size()));
}

void TableView::setContent(const QVariantList &content) {
    m_content = content;
    const IndexSet selected = selectionIndexes();
    m_isRebuilding = true;
    setRowCount(static_cast<int>(content.size()));
    for (int row = 0; row < rowCount(); ++row) {
        const QVariant &object = content.at(row);
        auto *item = new QTableWidgetItem(iconOf(object), shownText(textOf(object)));
        describe(*item);
        showCheck(item, object);
        setItem(row, 0, item);
    }
    verticalHeader()->setDefaultSectionSize(heightOfRow());
    setSelectionIndexes(selected);
    m_isRebuilding = false;
    KeyValue::announce<&TableView::selectedNameChanged>(this);
}

int TableView::heightOfRow() const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.features = QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasDecoration |
                      QStyleOptionViewItem::HasCheckIndicator;
    option.text = QStringLiteral("X");
    for (int row = 0; row < rowCount(); ++row) {
        if (item(row, 0) && item(row, 0)->text().contains(u'\n')) {
            option.text = QStringLiteral("X\u2028X");
            break;
        }
    }
    const QSize size = style()->sizeFromContents(QStyle::CT_ItemViewItem, &option, {}, this);
    return qMax(size.height(), verticalHeader()->minimumSectionSize());
}

void TableView::describe(QTableWidgetItem &item) const {
    const QString text = item.text();
    const QString description = text.section(u'\n', 1);
    item.setData(Qt::AccessibleTextRole, text.section(u'\n', 0, 0));
    item.setData(Qt::AccessibleDescriptionRole,
                 description.isEmpty() ? m_rowDescription : description);
}

void TableView::setTableDelegate(TableViewDelegate *delegate) {
    m_delegate = delegate;
    // The views of a delegate have heights of their own.
    verticalHeader()->setSectionResizeMode(delegate ? QHeaderView::ResizeToContents
                                                    : QHeaderView::Fixed);
}

void TableView::changeEvent(QEvent *event) {
    QTableWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        verticalHeader()->setDefaultSectionSize(heightOfRow());
    }
}

void TableView::showCheck(QTableWidgetItem *item, const QVariant &object) const {
    if (!m_checkKey.isEmpty()) {
        const QVariant value = KeyValue::value(KeyValue::objectValue(object), m_checkKey.toUtf8());
        item->setCheckState(value.toBool() ? Qt::Checked : Qt::Unchecked);
    }
}

void TableView::itemDidChange(QTableWidgetItem *item) {
    if (m_isRebuilding || m_checkKey.isEmpty()) {
        return;
    }
    const QVariant object = m_content.at(item->row());
    m_isRebuilding = true;
    KeyValue::setValue(KeyValue::objectValue(object), m_checkKey.toUtf8(),
                       item->checkState() == Qt::Checked);
    showCheck(item, object);
    m_isRebuilding = false;
}

QString TableView::textOf(const QVariant &object) const {
    if (!m_textTransformer.isEmpty()) {
        return ValueTransformer::transformerForName(m_textTransformer)
            ->transformedValue(object)
            .toString();
    }
    return (m_contentKey == QLatin1StringView("self")
                ? object
                : KeyValue::value(KeyValue::objectValue(object), m_contentKey.toUtf8()))
        .toString();
}

QIcon TableView::iconOf(const QVariant &object) const {
    return m_iconTransformer.isEmpty()
               ? m_rowIcon
               : QIcon(ValueTransformer::transformerForName(m_iconTransformer)
                           ->transformedValue(object)
                           .value<QPixmap>());
}

IndexSet TableView::selectionIndexes() const {
    IndexSet rows;
    for (const QModelIndex &index : selectionModel()->selectedRows()) {
        rows.insert(index.row());
    }
    return rows;
}

void TableView::setSelectionIndexes(const IndexSet &indexes) {
    if (indexes == selectionIndexes()) {
        return;
    }
    QItemSelection selection;
    for (const qsizetype row : indexes) {
        if (row >= 0 && row < rowCount()) {
            const auto cell = [&](int column) {
                return model()->index(static_cast<int>(row), column);
            };
            selection.select(cell(0), cell(columnCount() - 1));
        }
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void TableView::reloadData() {
    const IndexSet selected = selectionIndexes();
    m_isRebuilding = true;
    setRowCount(m_delegate ? m_delegate->numberOfRowsInTableView(this) : 0);
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            reloadCell(row, column);
        }
    }
    setSelectionIndexes(selected);
    m_isRebuilding = false;
    paintViews();
    if (selectionIndexes() != selected) {
        selectionDidChange();
    }
    KeyValue::announce<&TableView::selectedNameChanged>(this);
}

void TableView::reloadCell(int row, int column) {
    QWidget *before = cellWidget(row, column);
    m_reusableView = before;
    QWidget *view =
        m_delegate->tableViewViewForTableColumnRow(this, m_columnIdentifiers.at(column), row);
    m_reusableView = nullptr;
    auto *item = new QTableWidgetItem;
    item->setData(Qt::AccessibleTextRole, view ? view->accessibleName() : QString());
    item->setData(Qt::AccessibleDescriptionRole, view ? view->accessibleDescription() : QString());
    setItem(row, column, item);
    if (view == before) {
        return;
    }
    // The old widget is deleted later; hide it now.
    if (before) {
        before->hide();
    }
    setCellWidget(row, column, view);
}

QWidget *TableView::makeViewWithIdentifier(const QString &identifier, QObject *owner) {
    const QVariantList origin{identifier, QVariant::fromValue(owner)};
    if (m_reusableView && m_reusableView->property(originProperty) == origin) {
        return m_reusableView;
    }
    QWidget *view = Nib::load(identifier, owner);
    view->setProperty(originProperty, origin);
    return view;
}

int TableView::selectedRow() const {
    const IndexSet rows = selectionIndexes();
    return rows.empty() ? -1 : static_cast<int>(*rows.begin());
}

QString TableView::nameOfRow(int row) const {
    const QTableWidgetItem *shown = item(row, 0);
    if (!shown) {
        return {};
    }
    const QString name = shown->data(Qt::AccessibleTextRole).toString();
    return name.isEmpty() ? shown->text() : name;
}

void TableView::announceRow(int row, QAccessible::Event event) {
    QAccessibleEvent announcement(this, event);
    announcement.setChild(row);
    QAccessible::updateAccessibility(&announcement);
}

void TableView::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    // QTableWidget's own announces a cell and does nothing else.
    QAbstractItemView::currentChanged(current, previous);  // NOLINT(bugprone-parent-virtual-call)
    if (hasFocus() && current.isValid()) {
        announceRow(current.row(), QAccessible::Focus);
    }
}

void TableView::selectionChanged(const QItemSelection &selected, const QItemSelection &deselected) {
    // As above.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QAbstractItemView::selectionChanged(selected, deselected);
    for (const QModelIndex &index : deselected.indexes()) {
        announceRow(index.row(), QAccessible::SelectionRemove);
    }
    for (const QModelIndex &index : selected.indexes()) {
        announceRow(index.row(), QAccessible::Selection);
    }
}

void TableView::mouseReleaseEvent(QMouseEvent *event) {
    QTableWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton) {
        m_clickedRow = rowAt(event->position().toPoint().y());
        Q_EMIT action();
    }
}

QModelIndex TableView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // QTableView's keys go to the ends of the row without Ctrl.
    const bool isEnd = action == MoveHome || action == MoveEnd;
    return QTableWidget::moveCursor(action, isEnd ? modifiers | Qt::ControlModifier : modifiers);
}

QAbstractButton *TableView::buttonThatRemoves() const {
    return m_removeButton.isEmpty() ? nullptr
                                    : window()->findChild<QAbstractButton *>(m_removeButton);
}

// Makes the action available from the keyboard.
void TableView::keyPressEvent(QKeyEvent *event) {
    QAbstractButton *button = event->key() == Qt::Key_Delete ? buttonThatRemoves() : nullptr;
    if (button) {
        button->click();
        return;
    }
    QTableWidget::keyPressEvent(event);
    selectReachedRow(*event);
    if (event->key() == Qt::Key_Space && currentRow() >= 0) {
        m_clickedRow = currentRow();
        Q_EMIT action();
    }
}

// Qt's keys select the row that they move to, so not the one on which the focus was set before.
void TableView::selectReachedRow(const QKeyEvent &event) {
    const QList<int> keys = {Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,
                             Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    if (keys.contains(event.key()) && event.modifiers() == Qt::NoModifier && currentRow() >= 0 &&
        selectionMode() != MultiSelection && !selectionModel()->hasSelection()) {
        selectRow(currentRow());
    }
}

void TableView::selectionDidChange() {
    if (m_isRebuilding) {
        return;
    }
    paintViews();
    if (m_delegate) {
        m_delegate->tableViewSelectionDidChange(this);
    }
    KeyValue::announce<&TableView::selectedNameChanged>(this);
    KeyValue::announce<&TableView::selectionIndexesChanged>(this);
}

// Qt's own cells use the color of selected text automatically; cell widgets do not.
void TableView::paintViews() {
    QPalette selected;
    // A label in a table uses the color for text on its base.
    selected.setColor(QPalette::Text, palette().color(QPalette::HighlightedText));
    const IndexSet rows = selectionIndexes();
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            if (QWidget *view = cellWidget(row, column)) {
                view->setPalette(rows.contains(row) ? selected : QPalette());
            }
        }
    }
}
