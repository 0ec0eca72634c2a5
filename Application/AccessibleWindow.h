#pragma once

#include <QtWidgets/QAccessibleWidget>

/// A QWidget that is neither a dialog nor another known control, as assistive technologies see it:
/// a window if it is one. To Qt, every such widget is a part of a window. Made by Qt, which owns
/// it, after install().
class AccessibleWindow : public QAccessibleWidget {
public:
    explicit AccessibleWindow(QWidget *widget) : QAccessibleWidget(widget) {}

    /// Makes Qt use this class until the program ends. Must be called once, on the main thread,
    /// after the application object was created.
    static void install();

    QAccessible::Role role() const override;
};
