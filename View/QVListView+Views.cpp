// The part of QVListView that makes the views of its items where they can be seen, and stacks them.

#include <QtCore/QEvent>
#include <QtCore/QScopedValueRollback>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QAbstractScrollArea>
#include <QtWidgets/QScrollBar>
#include <algorithm>

#include "View/QVListView.h"

namespace {

int widthOfEnclosingScrollArea(const QWidget *view) {
    for (const QWidget *parent = view->parentWidget(); parent; parent = parent->parentWidget()) {
        if (const auto *area = qobject_cast<const QAbstractScrollArea *>(parent)) {
            return area->viewport()->width();
        }
    }
    return 0;
}

/// Returns the scroll area whose viewport contains `view`; null if there is none.
const QAbstractScrollArea *scrollAreaOf(const QWidget *view) {
    const QWidget *viewport = view->parentWidget();
    const auto *area =
        viewport ? qobject_cast<const QAbstractScrollArea *>(viewport->parentWidget()) : nullptr;
    return area && area->viewport() == viewport ? area : nullptr;
}

bool containsFocus(const QWidget *view) {
    const QWidget *focus = view->window()->focusWidget();
    return focus && (view == focus || view->isAncestorOf(focus));
}

}  // namespace

QRect QVListView::frameOfRow(qsizetype row) const {
    if (const QWidget *view = m_items.at(row)->existingView()) {
        return view->geometry();
    }
    return isStacked() ? QRect(0, m_tops.at(row), m_rowWidth, m_tops.at(row + 1) - m_tops.at(row))
                       : QRect();
}

qsizetype QVListView::rowAt(const QPoint &point) const {
    for (qsizetype row = 0; row < m_items.size(); ++row) {
        if (frameOfRow(row).contains(point)) {
            return row;
        }
    }
    return -1;
}

qsizetype QVListView::rowOfView(const QWidget *view) const {
    const auto found = std::find_if(m_items.begin(), m_items.end(), [view](const Item &item) {
        return item->existingView() == view;
    });
    return found == m_items.end() ? -1 : found - m_items.begin();
}

QWidget *QVListView::viewOfRow(qsizetype row) {
    // A copy, because what makes a view may change the content.
    const Item item = m_items.at(row);
    return item->makeView();
}

void QVListView::addView(qsizetype row) {
    QWidget *view = m_items.at(row)->existingView();
    view->setParent(this);
    const auto next = m_rowsWithView.upper_bound(row);
    if (QWidget *above =
            next == m_rowsWithView.end() ? nullptr : m_items.at(*next)->existingView()) {
        view->stackUnder(above);
    }
    m_rowsWithView.insert(row);
    if (isStacked()) {
        view->setGeometry(0, m_tops.at(row), m_rowWidth, view->height());
    }
    view->show();
    m_isStackOutdated =
        m_isStackOutdated || !isStacked() || view->height() != m_tops.at(row + 1) - m_tops.at(row);
}

void QVListView::measureViews() {
    QHash<const void *, QList<int>> found;
    for (const qsizetype row : m_rowsWithView) {
        const CollectionViewItem &item = *m_items.at(row);
        if (QWidget *view = item.existingView()) {
            view->resize(m_rowWidth, view->height());
            found[item.viewKind()].append(view->height());
        }
    }
    for (auto kind = found.cbegin(); kind != found.cend(); ++kind) {
        // As long as some view is that high, so that the rows without one stay where they are.
        if (!kind->contains(m_heights.value(kind.key(), -1))) {
            m_heights.insert(kind.key(), kind->constFirst());
        }
    }
}

int QVListView::expectedHeight(qsizetype row) const {
    return m_knownHeights.value(row, m_heights.value(m_items.at(row)->viewKind()));
}

void QVListView::stackRows() {
    measureViews();
    // A copy, because what makes a view may change the content.
    const QList<Item> items = m_items;
    QList<int> tops{0};
    tops.reserve(items.size() + 1);
    for (qsizetype row = 0; row < items.size() && m_items.isSharedWith(items); ++row) {
        CollectionViewItem &item = *items.at(row);
        QWidget *view = item.existingView();
        if (!view && !m_heights.contains(item.viewKind())) {
            view = item.makeView();
            measureViews();
        }
        if (view) {
            view->setGeometry(0, tops.constLast(), m_rowWidth, view->height());
        }
        tops.append(tops.constLast() + (view ? view->height() : expectedHeight(row)));
    }
    if (m_items.isSharedWith(items)) {
        m_tops = tops;
        m_isStackOutdated = false;
    }
}

void QVListView::layoutSubviews() {
    if (m_needsViews) {
        return;  // At the end of the batch.
    }
    m_rowWidth = width();
    keepPlace(widthOfEnclosingScrollArea(this), [this] {
        stackRows();
        makeVisibleViews();
    });
}

void QVListView::keepPlace(int width, const std::function<void()> &change) {
    const QList<Item> items = m_items;
    const bool wasStacked = isStacked() && !items.isEmpty();
    const qsizetype first = wasStacked ? rowAtHeight(visiblePart(0).top()) : 0;
    const int before = wasStacked ? m_tops.at(first) : 0;
    {
        const QScopedValueRollback<bool> making(m_isMakingViews, true);
        change();
    }
    resize(width, m_tops.value(m_items.size()));
    const int moved =
        wasStacked && isStacked() && m_items.isSharedWith(items) ? m_tops.at(first) - before : 0;
    if (const QAbstractScrollArea *area = scrollAreaOf(this); area && moved != 0) {
        area->verticalScrollBar()->setValue(area->verticalScrollBar()->value() + moved);
    }
    discardViews();
}

qsizetype QVListView::rowAtHeight(int y) const {
    const auto below = std::upper_bound(m_tops.cbegin(), m_tops.cend() - 1, y);
    return qMax(below - m_tops.cbegin() - 1, qsizetype(0));
}

QRect QVListView::visiblePart(int pages) const {
    const QAbstractScrollArea *area = scrollAreaOf(this);
    if (!area) {
        return {0, 0, width(), m_tops.constLast()};
    }
    const int page = area->viewport()->height();
    return QRect(-pos(), area->viewport()->size()).adjusted(0, -pages * page, 0, pages * page);
}

void QVListView::makeVisibleViews() {
    while (isStacked() && makeViews(visiblePart(1))) {
        if (m_isStackOutdated) {
            stackRows();
        }
    }
}

bool QVListView::makeViews(const QRect &part) {
    bool isAnyMade = false;
    for (qsizetype row = rowAtHeight(part.top());
         isStacked() && row < m_items.size() && m_tops.at(row) <= part.bottom(); ++row) {
        if (!m_items.at(row)->existingView()) {
            viewOfRow(row);
            isAnyMade = true;
        }
    }
    return isAnyMade;
}

void QVListView::updateViews() {
    if (!m_isMakingViews && isStacked()) {
        keepPlace(width(), [this] { makeVisibleViews(); });
    }
}

void QVListView::discardViews() {
    if (!isStacked()) {
        return;
    }
    const QRect kept = visiblePart(2);
    QList<QWidget *> discarded;
    for (auto row = m_rowsWithView.begin(); row != m_rowsWithView.end();) {
        CollectionViewItem &item = *m_items.at(*row);
        QWidget *view = item.existingView();
        const QRect frame = view ? view->geometry() : QRect();
        const bool isFar = view && (frame.bottom() < kept.top() || frame.top() > kept.bottom());
        if (isFar && !item.isSelected() && !containsFocus(view) && item.discardView()) {
            m_knownHeights.insert(*row, frame.height());
            discarded.append(view);
            row = m_rowsWithView.erase(row);
        } else {
            ++row;
        }
    }
    if (!discarded.isEmpty()) {
        moveOut(discarded)->deleteLater();
    }
}

void QVListView::changeEvent(QEvent *event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        m_knownHeights.clear();
    }
    QWidget::changeEvent(event);
}

void QVListView::resizeEvent(QResizeEvent *event) {
    if (event->oldSize().width() != event->size().width()) {
        m_knownHeights.clear();
    }
    QWidget::resizeEvent(event);
}

bool QVListView::event(QEvent *event) {
    if (event->type() == QEvent::ParentChange && parentWidget()) {
        parentWidget()->installEventFilter(this);
    }
    return QWidget::event(event);
}

bool QVListView::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Resize && watched == parentWidget()) {
        updateViews();
    }
    return QWidget::eventFilter(watched, event);
}

void QVListView::moveEvent(QMoveEvent *event) {
    QWidget::moveEvent(event);
    updateViews();
}

void QVListView::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    updateViews();
}

void QVListView::forgetRows() {
    m_rowsWithView.clear();
    m_tops.clear();
    m_heights.clear();
    m_knownHeights.clear();
}
