#pragma once

#include <QtWidgets/QScrollArea>

class QVListView;

/// The scroll area of a QVListView, which has the focus and handles the keys for the list. If its
/// widget is not a QVListView it is a plain scroll area. Must be used on the main thread.
///
/// It keeps the list as wide as its viewport, and calls QVListView::layoutSubviews() when that
/// width or the height of a row changes and when the area is shown. Its viewport has the color of
/// list grounds. While it has the focus, its frame has the selection color.
///
/// Up, Down, Home, End, Page Up and Page Down select a row, and so does the beginning of its
/// accessible name; rows that the list's delegate refuses are passed over. Space clicks the check
/// box of the selected row (see QVSelectedItemBackgroundView), Return and Enter emit its `action`.
/// The menu of the area (see ContextMenu) is opened for the selected row by Shift+F10 and the menu
/// key, and for the row under the pointer, which it selects, by a secondary click. Tab moves the
/// focus into the selected row and then on; the controls in rows should have the policy
/// Qt::ClickFocus, so that Tab does not stop at those of every row.
class ListScrollArea : public QScrollArea {
    Q_OBJECT
public:
    /// The list is set with QScrollArea::setWidget() and owned by the area then. `widgetResizable`
    /// must stay false, since the list has the height that its rows need.
    explicit ListScrollArea(QWidget *parent = nullptr);

    /// Returns the widget as a list; null if it is none.
    QVListView *list() const;
    /// Returns the view of the selected row; null if none is selected.
    QWidget *selectedView() const;
    /// Selects the row, counted from 0, and scrolls to it. Returns false, without any effect, if
    /// the list's delegate refuses it or there is no such row.
    bool selectRow(qsizetype row);
    /// Opens the menu of the area, if it has one, at the selected row.
    void openMenu();

    /// Receives the layout requests that rows send to the list; QScrollArea installs it on its
    /// widget.
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Returns the frame of the selected row as the place for the menu.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    /// Stacks the rows, which may have changed while the area was hidden.
    void showEvent(QShowEvent *event) override;

private:
    /// Sets the colors of the viewport; called again when the application's palette changes.
    void useListPalette();
    void paintFrame();
    /// Returns the row that a key which moves the selection selects; -1 if it selects none.
    qsizetype targetOfKey(int key) const;
    /// These return whether they have handled the key.
    bool moveSelection(int key);
    bool useSelectedRow(int key);
    bool selectByName(const QKeyEvent &event);
    /// Returns whether `event` follows the last typed letter at once.
    bool continuesTyping(const QKeyEvent &event) const;
    /// Returns whether `event` is a blank within the name of a row that is being typed, instead of
    /// the key that ticks.
    bool isBlankOfName(const QKeyEvent &event);
    /// Announces to assistive technologies that the selected row has the focus, if the area has it.
    void announceFocus();
    /// Returns the area and the controls of the selected row that take the focus, in Tab order.
    QWidgetList focusStops();
    /// Moves the focus to the next widget outside the list.
    bool leaveForward();

    /// What was typed in quick succession, and the timestamp of the last key in milliseconds.
    QString m_typed;
    quint64 m_lastTyped = 0;
};
