#pragma once

#include <QtWidgets/QPushButton>

/// A push button exactly as wide as its title needs. It must not be placed by a layout: a new title
/// moves its left edge and keeps its right edge and its top. Must be used on the main thread.
class QVMinimumWidthButton : public QPushButton {
    Q_OBJECT
    /// The button's text. Setting it resizes the button immediately. Not announced.
    Q_PROPERTY(QString title READ title WRITE setTitle)
public:
    using QPushButton::QPushButton;

    /// Returns the text; an "&" in it marks a mnemonic.
    QString title() const { return text(); }
    /// The size is computed with the present font and style; a later change of these does not
    /// resize the button.
    void setTitle(const QString &title);
};
