#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Shows the rows of a list with some room above and below their texts. Must be used on the main
/// thread.
class PaddedDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
