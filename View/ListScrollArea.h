#pragma once

#include <QtWidgets/QScrollArea>

class QVListView;

/// The scroll area of a QVListView. It keeps the list as wide as its viewport, and calls
/// QVListView::layoutSubviews() when that width or the height of a row changes and when the area is
/// shown. Its viewport is white under every theme. If its widget is not a QVListView it is a plain
/// scroll area. Must be used on the main thread.
class ListScrollArea : public QScrollArea {
    Q_OBJECT
public:
    /// The list is set with QScrollArea::setWidget() and owned by the area then. `widgetResizable`
    /// must stay false, since the list has the height that its rows need.
    explicit ListScrollArea(QWidget *parent = nullptr);

    /// Receives the layout requests that rows send to the list; QScrollArea installs it on its
    /// widget.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    /// Stacks the rows, which may have changed while the area was hidden.
    void showEvent(QShowEvent *event) override;

private:
    /// Returns the widget as a list; null if it is none.
    QVListView *list() const;
    /// Sets the colors of the viewport; called again when the application's palette changes.
    void useListPalette();
};
