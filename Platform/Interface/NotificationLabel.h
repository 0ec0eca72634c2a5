#pragma once

#include "Platform/Interface/TextLabel.h"

/// A text about what happens by itself, such as the result of a synchronization. Screen readers
/// speak it when it appears or changes in the active window or a sheet of it: to them it is a
/// notification, and each of these is reported as its appearance. Must be used on the main thread.
class PLATFORM_EXPORT NotificationLabel : public TextLabel {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    /// Whether changes are not reported because they come in quick succession, as those of a
    /// progress do. The text at the end of that time is. False by default.
    Q_PROPERTY(bool quiet READ isQuiet WRITE setQuiet)
public:
    explicit NotificationLabel(QWidget *parent = nullptr);

    /// Shows `text` and reports it if it is another one. Must be used instead of QLabel's function.
    void setText(const QString &text);
    bool isQuiet() const { return m_isQuiet; }
    void setQuiet(bool isQuiet);

Q_SIGNALS:
    /// Emitted when screen readers are notified of `text`.
    void reported(const QString &text);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void notify();

    bool m_isQuiet = false;
};
