#include "View/ListSelection.h"

#include "View/QVListView.h"
#include "View/QVListViewDelegate.h"

qsizetype ListSelection::row() const {
    const IndexSet selected = m_list->selectionIndexes();
    return selected.empty() ? -1 : *selected.begin();
}

bool ListSelection::accepts(qsizetype row) const {
    const QList<QVListView::Item> items = m_list->items();
    return row >= 0 && row < items.size() && m_list->delegate() &&
           m_list->delegate()->collectionViewShouldSelectItem(m_list, items.at(row).get());
}

bool ListSelection::select(qsizetype row) const {
    if (!accepts(row)) {
        return false;
    }
    m_list->setSelectionIndexes({row});
    return true;
}

qsizetype ListSelection::acceptedFrom(qsizetype row, int step) const {
    const qsizetype count = m_list->items().size();
    for (; row >= 0 && row < count; row += step) {
        if (accepts(row)) {
            return row;
        }
    }
    return -1;
}

qsizetype ListSelection::pageFromSelection(int step, int height) const {
    const QList<QVListView::Item> items = m_list->items();
    const qsizetype selected = row();
    if (selected < 0) {
        return acceptedFrom(step > 0 ? 0 : items.size() - 1, step);
    }
    const int start = m_list->frameOfRow(selected).y();
    qsizetype target = selected + step;
    while (target + step >= 0 && target + step < items.size() &&
           qAbs(m_list->frameOfRow(target + step).y() - start) <= height) {
        target += step;
    }
    const qsizetype further = acceptedFrom(target, step);
    const qsizetype nearer = further < 0 ? acceptedFrom(target, -step) : further;
    return nearer == selected ? -1 : nearer;
}

qsizetype ListSelection::rowWithPrefix(const QString &text, qsizetype row) const {
    const QList<QVListView::Item> items = m_list->items();
    for (qsizetype i = 0; i < items.size(); ++i) {
        const qsizetype candidate = (qMax(row, qsizetype(0)) + i) % items.size();
        if (items.at(candidate)->name().startsWith(text, Qt::CaseInsensitive) &&
            accepts(candidate)) {
            return candidate;
        }
    }
    return -1;
}
