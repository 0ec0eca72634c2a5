#pragma once

#include <QtWidgets/QPushButton>

/// A push button exactly as wide as its title needs. It is placed by its frame, not by a layout: a
/// new title moves its left edge and leaves its right edge and its top where they are.
class QVMinimumWidthButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
public:
    using QPushButton::QPushButton;

    QString title() const { return text(); }
    void setTitle(const QString &title);
};
