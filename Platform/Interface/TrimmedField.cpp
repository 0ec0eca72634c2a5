#include "Platform/Interface/TrimmedField.h"

#include <algorithm>

namespace {

/// Returns the number of characters of `text` that are not at the same place, counted from either
/// end, in `former`.
qsizetype countOfNewCharacters(QStringView former, QStringView text) {
    const auto [oldEnd, newEnd] =
        std::mismatch(former.begin(), former.end(), text.begin(), text.end());
    former = former.sliced(oldEnd - former.begin());
    text = text.sliced(newEnd - text.begin());
    const auto [oldStart, newStart] =
        std::mismatch(former.rbegin(), former.rend(), text.rbegin(), text.rend());
    return text.rend() - newStart;
}

}  // namespace

TrimmedField::TrimmedField(QWidget *parent) : PlaceholderField(parent) {
    connect(this, &QLineEdit::textEdited, this, &TrimmedField::didEdit);
    // Emitted after textEdited().
    connect(this, &QLineEdit::textChanged, this, [this] { m_former = text(); });
    connect(this, &QLineEdit::editingFinished, this, &TrimmedField::didEndEditing);
}

void TrimmedField::didEdit() {
    // The user may type a blank between two words.
    if (countOfNewCharacters(m_former, text()) > 1) {
        trim();
    }
}

void TrimmedField::didEndEditing() {
    if (isModified() && trim()) {
        Q_EMIT textEdited(text());
    }
}

bool TrimmedField::trim() {
    const QString trimmed = text().trimmed();
    if (trimmed == text()) {
        return false;
    }
    setText(trimmed);
    setModified(true);
    return true;
}
