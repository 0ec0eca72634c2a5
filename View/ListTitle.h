#pragma once

#include <QtWidgets/QLabel>

/// The label of a list whose text changes, for example with a selection, and keeps the mnemonic
/// that it was given. Shows markup as plain text. Must be used on the main thread.
class ListTitle : public QLabel {
    Q_OBJECT
    /// The text without a mnemonic. The letter of the present mnemonic is marked in it, or added to
    /// it if it does not contain that letter.
    Q_PROPERTY(QString title READ title WRITE setTitle)
public:
    explicit ListTitle(QWidget *parent = nullptr);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

private:
    QString m_title;
};
