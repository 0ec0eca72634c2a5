#pragma once

#include <QtWidgets/QLineEdit>

#include "Platform/PlatformExport.h"

/// A text field that is never narrower than its placeholder. Must be used on the main thread.
class PLATFORM_EXPORT PlaceholderField : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;

    QSize minimumSizeHint() const override;
};
