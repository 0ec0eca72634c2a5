#include "Platform/Interface/TextField.h"

TextField::TextField(QWidget *parent) : TrimmedField(parent) {
    connect(this, &QLineEdit::textEdited, this, &TextField::didEdit);
    connect(this, &QLineEdit::editingFinished, this, &TextField::didEndEditing);
}

void TextField::setStringValue(const QString &value) {
    m_value = value;
    if (!m_isEditing && value != text()) {
        setText(value);
    }
}

void TextField::didEdit() {
    m_isEditing = true;
    m_value = text();
    Q_EMIT stringValueChanged();
}

void TextField::didEndEditing() {
    m_isEditing = false;
    setStringValue(m_value);
}
