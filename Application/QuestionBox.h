#pragma once

#include "Application/Interface/QuestionPresenter.h"
#include "Platform/Interface/MessageBox.h"

/// The box that shows a Question, with its code in large digits. Deletes itself when it is closed.
/// Must be used on the main thread.
class QuestionBox : public MessageBox {
    Q_OBJECT
public:
    /// Shows nothing yet. It must be created with `new`. `handler`, which must not be empty, is
    /// called once, with whether the user has accepted: when the box is closed or, with false, when
    /// it is destroyed before. `parent` may be null.
    QuestionBox(const ::Question &question, std::function<void(bool)> handler, QWidget *parent);
    ~QuestionBox() override;

    /// Opens the box, which does not block. One with a code comes to the front, also if the window
    /// that it belongs to is minimized.
    void present();

private:
    /// Adds a label with `code` above the buttons.
    void addCode(const QString &code);
    /// Calls the handler unless it was called.
    void callHandler(bool isAccepted);

    std::function<void(bool)> m_handler;
    const bool m_hasCode;
    /// Owned by this box.
    QAbstractButton *m_accept;
};
