#pragma once

#include <QtWidgets/QLabel>

/// The icon of a row, which grows with the font. Must be used on the main thread.
class RowIcon : public QLabel {
    Q_OBJECT
public:
    explicit RowIcon(QWidget *parent = nullptr);

    /// Returns a square of one and a half lines, but at least of 32 pixels.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
};
