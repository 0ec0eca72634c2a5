#include "Application/WrappingDelegate.h"

#include <QtWidgets/QStyle>
#include <QtWidgets/QTreeView>

WrappingDelegate::WrappingDelegate(QTreeView *view) : QStyledItemDelegate(view), m_view(view) {}

QSize WrappingDelegate::sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const {
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    // On each side, as the style does it.
    const int margin =
        m_view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_view) + 1;
    const int width = std::max(1, m_view->columnWidth(index.column()) - 2 * margin);
    const int height =
        m_view->fontMetrics()
            .boundingRect(0, 0, width, QWIDGETSIZE_MAX, Qt::TextWordWrap, index.data().toString())
            .height();
    return {size.width(), std::max(size.height(), height + 2)};
}

void WrappingDelegate::initStyleOption(QStyleOptionViewItem *option,
                                       const QModelIndex &index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->textElideMode = Qt::ElideNone;
}
