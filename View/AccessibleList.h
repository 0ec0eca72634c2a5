#pragma once

#include <QtWidgets/QAccessibleWidget>

class ListScrollArea;

/// A ListScrollArea as assistive technologies see it: a list whose children are the views of its
/// rows, without the viewport between them. Made by Qt, which owns it, after install().
class AccessibleList : public QAccessibleWidget {
public:
    explicit AccessibleList(ListScrollArea *area);

    /// Makes Qt use this class for each ListScrollArea, and AccessibleListRow for the rows, until
    /// the program ends. Idempotent. Must be called on the main thread.
    static void install();

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    ListScrollArea *area() const;
};
