#pragma once

#include <QtWidgets/QWidget>

/// A view that is always painted in the selection colour and never takes keyboard focus.
class QVSelectedView : public QWidget {
    Q_OBJECT
public:
    explicit QVSelectedView(QWidget *parent = nullptr);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
