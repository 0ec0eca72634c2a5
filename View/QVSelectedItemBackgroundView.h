#pragma once

#include "Platform/Interface/Control.h"

class QAbstractButton;

/// The background of one list item: paints whether the item is selected, in the color of list
/// grounds or of the selection, and gives the controls that are its direct children a matching text
/// color. Created by a form, which connects its `action`. Must be used on the main thread.
///
/// It does not accept clicks, so the list receives them, except for the second of several clicks in
/// quick succession, which emits `action` instead. Never takes the keyboard focus.
class QVSelectedItemBackgroundView : public Control {
    Q_OBJECT
    /// Setting it repaints the view and sets the background style of the controls among its direct
    /// children: dark if true, light if false. Announced each time it is set.
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected NOTIFY selectedChanged)
    /// The object name of the direct child that is the item's check box; empty if it has none.
    Q_PROPERTY(QString checkBoxName READ checkBoxName WRITE setCheckBoxName)
public:
    /// Not selected.
    explicit QVSelectedItemBackgroundView(QWidget *parent = nullptr);

    bool isSelected() const { return m_isSelected; }
    /// Controls that are added later get their style with the next call.
    void setSelected(bool selected);

    QString checkBoxName() const { return m_checkBoxName; }
    void setCheckBoxName(const QString &name) { m_checkBoxName = name; }
    /// Returns the item's check box if it can be clicked now; null otherwise.
    QAbstractButton *checkBox() const;

Q_SIGNALS:
    /// Emitted each time the key is set.
    void selectedChanged();

protected:
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    /// Ignores the press, so that the list receives it.
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// Returns the direct children that are controls (see Control::isControl).
    QList<QWidget *> controls() const;
    /// Paints progress bars, which are no controls, in colors that differ from the ground.
    void updateBars();
    /// Returns whether `event` is as close to the last click, in time and place, as the clicks of a
    /// double-click are.
    bool followsLastClickQuickly(const QMouseEvent &event) const;
    void rememberClick(const QMouseEvent &event);
    /// Reports the changed selection and, if a widget around the view has the focus, that it is on
    /// this view now.
    void notifyAssistiveTechnologies();

    bool m_isSelected = false;
    QString m_checkBoxName;
    /// The number of clicks in the current succession, and the timestamp in milliseconds and global
    /// position of the last one.
    int m_clickCount = 0;
    quint64 m_lastClick = 0;
    QPointF m_lastPosition;
};
