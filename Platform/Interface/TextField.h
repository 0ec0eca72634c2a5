#pragma once

#include "Platform/Interface/TrimmedField.h"

/// A text field to be bound both ways by "stringValue". Each edit is written to the model
/// immediately. What the model makes of the text (for example, of an incomplete host name) is shown
/// only when the user leaves the field or presses Return, so it does not disturb typing. Must be
/// used on the main thread.
class PLATFORM_EXPORT TextField : public TrimmedField {
    Q_OBJECT
    Q_PROPERTY(QString stringValue READ text WRITE setStringValue NOTIFY stringValueChanged)
public:
    explicit TextField(QWidget *parent = nullptr);

    /// Shows `value`, immediately or, while the user edits the text, at the end of editing. Emits
    /// nothing. The user's edit ends when the field loses the focus or Return is pressed; until
    /// then the last value set is kept, not shown.
    void setStringValue(const QString &value);

Q_SIGNALS:
    /// Emitted after each edit by the user; the text has the new value by then.
    void stringValueChanged();

private:
    /// Called after each edit by the user.
    void didEdit();
    /// Shows what the model has made of the text.
    void didEndEditing();

    /// The model's text, which may differ from the text shown while the user edits it.
    QString m_value;
    bool m_isEditing = false;
};
