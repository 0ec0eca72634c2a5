#include "Application/PaddedDelegate.h"

QSize PaddedDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    constexpr int padding = 4;
    return QStyledItemDelegate::sizeHint(option, index).grownBy({0, padding, 0, padding});
}
