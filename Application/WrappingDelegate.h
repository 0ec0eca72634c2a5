#pragma once

#include <QtWidgets/QStyledItemDelegate>

class QTreeView;

/// Shows the texts of a column of a tree view wrapped, in rows that are as high as that needs, and
/// never elided. Must be used on the main thread.
class WrappingDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// `view`, which must not be null, becomes the parent. Its rows must not be uniform.
    explicit WrappingDelegate(QTreeView *view);

    /// Returns the size of the text wrapped at the width that the column has now.
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QTreeView *const m_view;
};
