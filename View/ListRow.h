#pragma once

#include "View/QVSelectedItemBackgroundView.h"

/// A list row that places its children without a QLayout, which makes it cheap enough for long
/// lists. A Designer form gives each child the dynamic string property "rowPlace":
///
///     "leading"   at the start of the row, at the child's size hint
///     "text"      in the remaining width, one line below the other
///     "trailing"  at the end of the row, at the child's size hint
///
/// Children of one place keep the order in which the form creates them. Start and end follow the
/// layout direction; distances grow with the font. A hidden child takes no width. A text whose
/// height depends on its width is wrapped. The row's height is that of the tallest child at the
/// current font and width, hidden ones included, so the row does not jump when a child appears
/// unless a text then needs more lines. Children without "rowPlace" are not moved. The row must not
/// be given a layout. Must be used on the main thread.
///
/// The child with the focus has a ring around it, in the color of selected texts if the row is
/// selected: styles show the focus in colors that are hardly seen on the selection.
///
/// The height is set when the row first gets a parent. When it changes later, the parent receives a
/// layout request, after which a ListScrollArea stacks the rows again. O(number of children) each
/// time.
class ListRow : public QVSelectedItemBackgroundView {
    Q_OBJECT
public:
    using QVSelectedItemBackgroundView::QVSelectedItemBackgroundView;

    /// Returns the row's height, and the width at which no child is cut off.
    QSize sizeHint() const override;

protected:
    /// Fits the height when the row gets its first parent, and places the children when one of them
    /// changes its size hint or is shown or hidden.
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void childEvent(QChildEvent *event) override;
    /// Repaints the row when the focus comes to a child or leaves it.
    bool eventFilter(QObject *object, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    /// Sets the height that the children need; posts a layout request to the parent if it changes.
    void fitHeight();
    /// Places the children in the row's present size. If it is too narrow, the texts are cut off.
    void placeChildren();

    /// Whether the height was set once.
    bool m_isFitted = false;
    /// Whether the row was hidden before: it then missed the changes of its children.
    bool m_wasHidden = false;
};
