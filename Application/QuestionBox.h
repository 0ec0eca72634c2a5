#pragma once

#include "Application/Interface/QuestionPresenter.h"
#include "Platform/Interface/MessageBox.h"

/// The box that shows a Question, with its code in large digits. `parent` may be null.
/// Must be used on the main thread.
class QuestionBox : public MessageBox {
    Q_OBJECT
public:
    QuestionBox(const ::Question &question, QWidget *parent);

    /// Returns whether the user has accepted. Must be called after the box has finished.
    bool isAccepted() const { return clickedButton() == m_accept; }
    /// Opens the box, which does not block. One with a code comes to the front, also if the window
    /// that it belongs to is minimized.
    void present();

private:
    /// Adds a label with `code` above the buttons.
    void addCode(const QString &code);

    const bool m_hasCode;
    /// Owned by this box.
    QAbstractButton *m_accept;
};
