#pragma once

#include "Platform/Interface/Control.h"

/// The background of one list item: paints whether the item is selected and makes the controls
/// directly in it legible on that. Made by a form, which connects its `action`.
///
/// A click is passed on to the list. The second of several quick clicks sends `action` instead; all
/// further ones are the list's again. Never takes keyboard focus.
class QVSelectedItemBackgroundView : public Control {
    Q_OBJECT
    /// Setting it repaints the view and gives the controls among its children the dark background
    /// style when true, the light one when false; controls further down are left alone.
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectedChanged)
public:
    explicit QVSelectedItemBackgroundView(QWidget *parent = nullptr);

    bool isSelected() const { return m_isSelected; }
    void setSelected(bool selected);

Q_SIGNALS:
    void selectedChanged();

protected:
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QList<QWidget *> controls() const;

    bool m_isSelected = false;
    int m_clickCount = 0;
    quint64 m_lastClick = 0;
};
