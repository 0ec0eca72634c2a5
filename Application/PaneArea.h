#pragma once

#include <QtWidgets/QScrollArea>

/// Shows a pane that may need more room than the screen has, and scrolls it then. Where there is
/// enough room, it cannot be smaller than the pane needs. It does not take the focus, but scrolls
/// to the control of the pane that has taken it, unless it is clicked. Must be used on the main
/// thread.
class PaneArea : public QScrollArea {
    Q_OBJECT
public:
    explicit PaneArea(QWidget *parent = nullptr);

    /// Shows `pane`, which must not be null and is owned by the area then, instead of the former
    /// one.
    void setPane(QWidget *pane);

    QSize sizeHint() const override;
    /// Returns what the pane needs, but at most most of the screen.
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    /// Returns the height that the pane needs at this width, but at most most of the screen.
    int heightForWidth(int width) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    /// Gives the pane the size of the area or, with scroll bars, what it needs if that is more.
    /// QScrollArea itself would scroll a pane that is only lower than its preferred height.
    void fitPane();
    /// Scrolls to the control that has the focus.
    void showFocus();
    int neededHeight(int width) const;
    QSize mostOfScreen() const;
};
