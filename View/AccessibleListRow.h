#pragma once

#include <QtWidgets/QAccessibleWidget>

class ListScrollArea;
class QVSelectedItemBackgroundView;

/// A row of a QVListView in a ListScrollArea, as assistive technologies see it: an item of the list
/// that can be selected and has the focus while it is selected and the area has it. Its actions
/// select it, click its check box, open its menu, and trigger the actions of the area, which do
/// their work with the row selected. Outside such a list it is a plain widget. Owned by Qt.
class AccessibleListRow : public QAccessibleWidget {
public:
    explicit AccessibleListRow(QVSelectedItemBackgroundView *row);

    /// Returns the area whose list contains the row; null if it is in none.
    static ListScrollArea *areaOf(const QWidget *row);

    QAccessibleInterface *parent() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &name) const override;

private:
    QVSelectedItemBackgroundView *row() const;
};
