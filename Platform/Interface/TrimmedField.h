#pragma once

#include "Platform/Interface/PlaceholderField.h"

/// A text field for a name or an address. White space at the ends of the text, which is never
/// meant, is removed when something is pasted, and when the user leaves the field or presses
/// Return. A text that the program sets stays as it is. Must be used on the main thread.
class PLATFORM_EXPORT TrimmedField : public PlaceholderField {
    Q_OBJECT
public:
    explicit TrimmedField(QWidget *parent = nullptr);

private:
    /// The first receiver of textEdited(). The others must read text(), because it may differ from
    /// the argument of the signal.
    void didEdit();
    /// Emits textEdited() if there is something to remove.
    void didEndEditing();
    /// Returns whether the text has changed.
    bool trim();

    /// The text before the edit that is being handled.
    QString m_former;
};
