#pragma once

#include "Platform/KeyValue/ArrayController.h"

/// An array controller that also tells whether it has anything to show.
class NSArrayController : public ArrayController {
    Q_OBJECT
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY isEmptyChanged)
public:
    using ArrayController::ArrayController;

    /// Whether there are no arranged objects.
    bool isEmpty() const;

    Q_INVOKABLE static KeyValue::KeyPaths keyPathsForValuesAffectingIsEmpty() {
        return {"arrangedObjects"};
    }

Q_SIGNALS:
    void isEmptyChanged();
};
