#pragma once

#include "Platform/KeyValue/ArrayController.h"

/// An ArrayController with a key for empty lists, to which forms bind their placeholders.
/// Must be used on the main thread.
class NSArrayController : public ArrayController {
    Q_OBJECT
    /// Whether there are no arranged objects. Announced with "arrangedObjects", even if it does not
    /// change.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)
public:
    using ArrayController::ArrayController;

    bool isEmpty() const;

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingIsEmpty() {
        return {"arrangedObjects"};
    }

Q_SIGNALS:
    /// Emitted with arrangedObjectsChanged().
    void isEmptyChanged();
};
