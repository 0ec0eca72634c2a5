#pragma once

#include <QtWidgets/QAccessibleWidget>

#include "Platform/PlatformExport.h"

class QCheckBox;

/// A QCheckBox as assistive technologies see it. Toggling it is a click; Qt only changes the state,
/// without QAbstractButton::clicked(), by which forms send their actions. Made by Qt, which owns
/// it, after install().
class PLATFORM_EXPORT AccessibleCheckBox : public QAccessibleWidget {
public:
    explicit AccessibleCheckBox(QCheckBox *box);

    /// Makes Qt use this class for each QCheckBox until the program ends. Idempotent. Must be
    /// called on the main thread.
    static void install();

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &name) const override;

private:
    QCheckBox *box() const;
};
