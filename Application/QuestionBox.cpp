#include "Application/QuestionBox.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <utility>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/PlainText.h"

namespace {

constexpr qreal SizeOfCode = 2.5;

}  // namespace

QuestionBox::QuestionBox(const ::Question &question, std::function<void(bool)> handler,
                         QWidget *parent)
    : MessageBox(QMessageBox::Question, question.text, question.details, parent),
      m_handler(std::move(handler)),
      m_hasCode(!question.code.isEmpty()) {
    setAttribute(Qt::WA_DeleteOnClose);
    m_accept = addButton(question.acceptTitle, QMessageBox::AcceptRole);
    setDefaultButton(addButton(question.refuseTitle, QMessageBox::RejectRole));
    if (m_hasCode) {
        addCode(question.code);
    }
    connect(this, &QDialog::finished, this, [this] { callHandler(clickedButton() == m_accept); });
}

QuestionBox::~QuestionBox() {
    callHandler(false);
}

// A box that is withdrawn after it was answered finishes again.
void QuestionBox::callHandler(bool isAccepted) {
    if (const auto handler = std::exchange(m_handler, nullptr)) {
        handler(isAccepted);
    }
}

void QuestionBox::addCode(const QString &code) {
    QLabel *label = PlainText::label(code);
    label->setWordWrap(false);
    label->setObjectName(QStringLiteral("code"));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignCenter);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(QApplication::font().pointSizeF() * SizeOfCode);
    label->setFont(font);
    // The buttons are in the last row.
    auto *grid = qobject_cast<QGridLayout *>(layout());
    if (!grid) {
        failAssertion(QStringLiteral("The message box has another layout"), "QuestionBox::addCode",
                      "Application/QuestionBox");
    }
    QDialogButtonBox *const buttons = &buttonBox();
    const int row = grid->rowCount();
    grid->removeWidget(buttons);
    grid->addWidget(label, row, 0, 1, grid->columnCount());
    grid->addWidget(buttons, row + 1, 0, 1, grid->columnCount());
}

void QuestionBox::present() {
    if (m_hasCode && parentWidget() && parentWidget()->window()->isMinimized()) {
        parentWidget()->window()->showNormal();
    }
    open();
    if (m_hasCode) {
        raise();
        activateWindow();
        QApplication::alert(this);
    }
}
