#pragma once

#include "Platform/KeyValue/ArrayController.h"

/// An ArrayController with keys for empty lists and lists without a selection, to which forms bind
/// their placeholders and hints. It is named as the forms name it, and created by Nib, which owns
/// it. Must be used on the main thread.
class NSArrayController : public ArrayController {
    Q_OBJECT
    /// Whether there are no arranged objects. Announced with "arrangedObjects", even if it does not
    /// change.
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)
    /// Whether there are arranged objects, none of which is selected.
    Q_PROPERTY(bool nothingSelected READ isNothingSelected NOTIFY nothingSelectedChanged)
public:
    using ArrayController::ArrayController;

    /// True before the content is set for the first time.
    bool isEmpty() const;
    /// False for an empty list.
    bool isNothingSelected() const;

    /// Dependencies of the derived keys, read by KeyValue.
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingIsEmpty() {
        return {"arrangedObjects"};
    }
    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingNothingSelected() {
        return {"arrangedObjects", "selectedObjects"};
    }

Q_SIGNALS:
    /// Emitted with arrangedObjectsChanged().
    void isEmptyChanged();
    /// Emitted with arrangedObjectsChanged() and selectedObjectsChanged().
    void nothingSelectedChanged();
};
