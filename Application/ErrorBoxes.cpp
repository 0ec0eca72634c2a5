#include "Application/ErrorBoxes.h"

#include <QtCore/QDateTime>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QPushButton>
#include <algorithm>

#include "Platform/Foundation/DateText.h"
#include "Platform/Interface/MessageBox.h"

bool ErrorBoxes::show(const Error &error, QWidget *parent) {
    const auto last = std::find_if(m_shown.begin(), m_shown.end(),
                                   [&](const Shown &each) { return each.error == error; });
    if (last != m_shown.end() && (last->isOpen() || !m_hasInput)) {
        if (last->isOpen()) {
            last->box->raise();
        }
        return false;
    }
    // Closed boxes other than the last one no longer count.
    m_shown.removeIf([](const Shown &each) { return !each.isOpen(); });
    auto *box = new MessageBox(QMessageBox::Warning, error.localizedDescription,
                               error.localizedFailureReason, parent);
    addDetails(box, error);
    addButtons(box, error);
    box->setAttribute(Qt::WA_DeleteOnClose);
    const auto unread = connect(
        box, &QObject::destroyed, this, [this, error] { forget(error); }, Qt::QueuedConnection);
    connect(box, &QDialog::finished, this, [this, unread] {
        disconnect(unread);
        m_hasInput = false;
    });
    m_shown.append({error, box});
    m_shown.last().error.recoveryOptions.clear();
    box->open();
    return true;
}

void ErrorBoxes::forget(const Error &error) {
    m_shown.removeIf([&](const Shown &each) { return each.error == error && !each.isOpen(); });
    Q_EMIT vanished(error);
}

void ErrorBoxes::noteEvent(QEvent::Type type) {
    m_hasInput = m_hasInput || type == QEvent::MouseButtonPress || type == QEvent::KeyPress ||
                 type == QEvent::TouchBegin;
}

void ErrorBoxes::addDetails(MessageBox *box, const Error &error) {
    if (error.domain.isEmpty() && error.details.isEmpty()) {
        return;
    }
    QStringList lines{error.details.isEmpty() ? DateText::longDate(QDateTime::currentDateTime())
                                              : error.details};
    if (!error.domain.isEmpty()) {
        lines.append(tr("Error %1 of %2").arg(error.code).arg(error.domain));
    }
    box->setUnfoldableText(lines.join(u'\n'));
}

void ErrorBoxes::addButtons(QMessageBox *box, const Error &error) {
    for (const RecoveryOption &option : error.recoveryOptions) {
        const QPushButton *button = box->addButton(option.title, QMessageBox::ActionRole);
        // Later, when the box is closed: the step may open another window.
        connect(
            button, &QPushButton::clicked, this,
            [this, choose = option.choose] {
                m_hasInput = true;
                choose();
            },
            Qt::QueuedConnection);
    }
    QPushButton *close = error.recoveryOptions.isEmpty()
                             ? box->addButton(QMessageBox::Ok)
                             : box->addButton(tr("Close"), QMessageBox::RejectRole);
    box->setDefaultButton(close);
    box->setEscapeButton(close);
}
