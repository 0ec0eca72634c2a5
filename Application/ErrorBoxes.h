#pragma once

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QMessageBox>

#include "Platform/Foundation/Error.h"

class MessageBox;

/// Shows errors in message boxes, whose buttons are the next steps. The same error is not shown
/// twice in a row: not while its box is open, and not again until the user has done something,
/// because it then has the same cause. Must be used on the main thread.
class ErrorBoxes : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// Shows `error` and returns at once. `parent` is the window of the box and may be null.
    /// Returns false if the error is not shown again; a box that is open is then raised.
    bool show(const Error &error, QWidget *parent);
    /// Must be called for every event of the application: presses of buttons and keys are what the
    /// user does.
    void noteEvent(QEvent::Type type);

Q_SIGNALS:
    /// Emitted from the event loop after a box was destroyed, with its parent, before the user has
    /// closed it. The error can be shown again at once.
    void vanished(const Error &error);

private:
    /// Forgets that `error` was shown in a box that no longer exists, and emits vanished().
    void forget(const Error &error);
    /// Adds the details, or the time if there are none, with the code and the domain, which the
    /// user can unfold.
    static void addDetails(MessageBox *box, const Error &error);
    /// Adds a button for each next step, which closes the box and then takes the step.
    void addButtons(QMessageBox *box, const Error &error);

    struct Shown {
        Error error;
        /// Deleted some time after it was closed.
        QPointer<QMessageBox> box;

        bool isOpen() const { return box && box->isVisible(); }
    };
    /// Those whose boxes are open, and the one that was closed last.
    QList<Shown> m_shown;
    /// Whether the user has done anything since that box was closed.
    bool m_hasInput = false;
};
