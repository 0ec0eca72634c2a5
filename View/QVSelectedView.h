#pragma once

#include <QtWidgets/QWidget>

/// A view filled with the selection color, opaque, that never takes the keyboard focus. Must be
/// used on the main thread. The color is that of an active window and follows the application's
/// palette when the view is painted again.
class QVSelectedView : public QWidget {
    Q_OBJECT
public:
    explicit QVSelectedView(QWidget *parent = nullptr);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
