#pragma once

#include "Platform/KeyValue/ArrayController.h"

/// An ArrayController with a key for empty lists, to which forms bind their placeholders. It is
/// named as the forms name it, and created by Nib. Must be used on the main thread.
class NSArrayController : public ArrayController {
    Q_OBJECT
    /// Whether there are no arranged objects. Announced with "arrangedObjects", even if it does not
    /// change.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)
public:
    using ArrayController::ArrayController;

    /// True before the content is set for the first time.
    bool isEmpty() const;

    /// Dependency of the derived key, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingIsEmpty() {
        return {"arrangedObjects"};
    }

Q_SIGNALS:
    /// Emitted with arrangedObjectsChanged().
    void isEmptyChanged();
};
