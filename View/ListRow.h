#pragma once

#include "View/QVSelectedItemBackgroundView.h"

/// A row of a list that places its children without a layout, which makes it cheap enough for long
/// lists. A Designer form gives each child the dynamic string property "rowPlace":
///
///   "leading"   at the start of the row, at the size the child wants
///   "text"      in what remains between, one line under another
///   "trailing"  at the end of the row, at the size the child wants
///
/// Those of one place stand in the order in which the form makes them. Start and end follow the
/// layout direction; distances grow with the font. A hidden child takes no width. The row's height
/// is its own: what the tallest of its children needs at the present font, hidden ones included, so
/// that a row does not jump when they appear. Children without "rowPlace" stay where they are. The
/// row must not be given a layout as well.
///
/// The height is there as soon as the row has a parent. A later change of it is told to the parent
/// by a layout request, after which a ListScrollArea stacks the rows anew.
class ListRow : public QVSelectedItemBackgroundView {
    Q_OBJECT
public:
    using QVSelectedItemBackgroundView::QVSelectedItemBackgroundView;

    /// The row's height, and the width at which nothing in it is cut off.
    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void fitHeight();
    void placeChildren();

    bool m_isFitted = false;
    bool m_wasHidden = false;
};
