#pragma once

#include <QtWidgets/QWidget>

class NotificationLabel;

/// A bar that says what was removed, with a button that undoes it. Screen readers speak the text.
/// Must be used on the main thread.
class UndoBar : public QWidget {
    Q_OBJECT
public:
    /// The bar is hidden.
    explicit UndoBar(QWidget *parent = nullptr);

    /// Shows the bar with `text`, which is plain text, or hides it if `text` is empty.
    void setText(const QString &text);

Q_SIGNALS:
    void undoRequested();

private:
    NotificationLabel *m_label;
};
