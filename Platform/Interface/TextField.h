#pragma once

#include <QtWidgets/QLineEdit>

#include "Platform/PlatformExport.h"

/// A text field to be bound both ways by "stringValue". The model hears of each character; but what
/// it makes of the text, as of a host that is not complete yet, is shown only when the person has
/// left the field or pressed Return.
class PLATFORM_EXPORT TextField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString stringValue READ text WRITE setStringValue NOTIFY stringValueChanged)
public:
    explicit TextField(QWidget *parent = nullptr);

    void setStringValue(const QString &value);

Q_SIGNALS:
    /// The person has changed the text.
    void stringValueChanged();

private:
    void didEdit(const QString &text);
    void didEndEditing();

    QString m_value;
    bool m_isEditing = false;
};
