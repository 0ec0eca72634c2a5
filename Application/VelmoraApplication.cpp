#include "Application/VelmoraApplication.h"

#include <QtCore/QPointer>
#include <QtWidgets/QMessageBox>
#include <algorithm>

#include "Application/AccessibleWindow.h"
#include "Application/ApplicationError.h"
#include "Application/Interface/NoteLibrary.h"
#include "Application/OutlineStyle.h"
#include "Application/QuestionBox.h"
#include "Application/RemovalDialog.h"
#include "Platform/Foundation/Assertion.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Platform/Foundation/TerminalText.h"
#include "Platform/Interface/Contrast.h"
#include "Platform/Interface/PlainText.h"
#include "Platform/KeyValue/KeyValue.h"
#include "Platform/Security/SecretStore.h"

namespace {

/// Returns the window to which `window` belongs, if that is a modal dialog: it may end by itself,
/// and would take its own dialogs along.
QWidget *lastingWindow(QWidget *window) {
    while (window->isModal() && window->parentWidget() &&
           window->parentWidget()->window()->isVisible()) {
        window = window->parentWidget()->window();
    }
    return window;
}

/// Returns the window for a dialog that may open while the user works in another program. A dialog
/// without a parent would keep the program running after its window is closed.
QWidget *windowForDialog() {
    if (QWidget *active = QApplication::activeWindow()) {
        return lastingWindow(active);
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [](const QWidget *each) {
        return each->isVisible() && each->windowType() == Qt::Window;
    });
    return found == windows.end() ? nullptr : *found;
}

/// Returns `palette` with texts that can be read, and with fields that show by their ground whether
/// they are disabled, because their outlines do not.
QPalette legible(QPalette palette) {
    palette.setColor(QPalette::Disabled, QPalette::Base,
                     palette.color(QPalette::Disabled, QPalette::Window));
    return Contrast::withLegibleTexts(palette);
}

}  // namespace

VelmoraApplication::VelmoraApplication(int &argumentCount, char **arguments)
    : QApplication(argumentCount, arguments) {
    setNSApp(this);
    AccessibleWindow::install();
    connect(this, &QCoreApplication::aboutToQuit, this, [this] { m_isEnding = true; });
    connect(&m_errorBoxes, &ErrorBoxes::vanished, this, [this](const Error &error) {
        if (!m_isEnding) {
            presentError(error);
        }
    });
    NotificationCenter::defaultCenter().addObserver(
        this, SecretsNotKeptNotification, [this](const Notification & /*notification*/) {
            presentError(SecretStore::shared().error().value_or(Error()));
        });
    NotificationCenter::defaultCenter().addObserver(
        this, SecretNotRemovedNotification, [this](const Notification & /*notification*/) {
            presentError(SecretStore::shared().removalError().value_or(Error()));
        });
}

VelmoraApplication::~VelmoraApplication() {
    setNSApp(nullptr);
}

void VelmoraApplication::useDesktopAppearance() {
    // Other styles have outlines of their own.
    if (style()->name().compare(QLatin1StringView("fusion"), Qt::CaseInsensitive) == 0) {
        setStyle(new OutlineStyle);
    }
    setPalette(legible(palette()));
}

void VelmoraApplication::setDarkAppearance(bool dark) {
    // Other styles do not use every color of the palette.
    setStyle(new OutlineStyle);
    QPalette palette(QColor(0xef, 0xef, 0xef));
    palette.setColor(QPalette::Highlight, QColor(0x22, 0x60, 0xbf));
    if (dark) {
        palette = QPalette(QColor(0x3a, 0x3a, 0x3c), QColor(0x2a, 0x2a, 0x2c));
        palette.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
        palette.setColor(QPalette::PlaceholderText, QColor(0x9a, 0x9a, 0x9e));
        palette.setColor(QPalette::Highlight, QColor(0x2a, 0x63, 0xc4));
        for (const QPalette::ColorRole role :
             {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(QPalette::Disabled, role, QColor(0x85, 0x85, 0x89));
        }
    }
    palette.setColor(QPalette::HighlightedText, Qt::white);
    setPalette(legible(palette));
}

void VelmoraApplication::setSynchronizationText(const QString &text) {
    m_synchronizationText = text;
    KeyValue::announce<&VelmoraApplication::synchronizationTextChanged>(this);
}

std::shared_ptr<QVDatabase> VelmoraApplication::inbox() const {
    return m_library ? m_library->inbox() : nullptr;
}

void VelmoraApplication::logItemCmd(const QString &title, const QString &info) {
    m_eventLog.append(title, info);
}

void VelmoraApplication::logJob(const QVJobReport &report) {
    m_eventLog.append(LogEntry::of(report));
}

void VelmoraApplication::presentError(const Error &error) {
    if (m_isBatch) {
        TerminalText::printError(error.localizedDescription);
        return;
    }
    if (!m_errorBoxes.show(error, windowForDialog())) {
        m_eventLog.append(tr("Error again:"), error.localizedDescription);
    }
}

QuestionPresenter::Withdrawal VelmoraApplication::ask(const Question &question,
                                                      std::function<void(bool)> handler) {
    const auto answer = [this, handler = std::move(handler)](bool isAccepted) {
        // Quitting closes the windows before it is known whether the program ends.
        MainQueue::dispatchAsync([this, handler, isAccepted] {
            if (!m_isEnding) {
                handler(isAccepted);
            }
        });
    };
    if (m_isBatch) {
        answer(false);
        return [] {};
    }
    auto *box = new QuestionBox(question, answer, windowForDialog());
    box->present();
    Q_EMIT questionShown(question.text);
    return [shown = QPointer(box)] {
        if (shown) {
            shown->reject();
        }
    };
}

void VelmoraApplication::askAboutRemoval(const RemovalQuestion &question,
                                         std::function<void(RemovalDecision)> handler) {
    if (m_isBatch) {
        const QStringList lines = RemovalDialog::lines(question);
        for (const QString &line : lines) {
            TerminalText::printError(line);
        }
        MainQueue::dispatchAsync(
            [handler = std::move(handler)] { handler(RemovalDecision::Later); });
        return;
    }
    (new RemovalDialog(question, std::move(handler), windowForDialog()))->open();
    Q_EMIT questionShown(tr("A synchronization would remove many notes."));
}

bool VelmoraApplication::notify(QObject *receiver, QEvent *event) {
    m_errorBoxes.noteEvent(event->type());
    try {
        return QApplication::notify(receiver, event);
    } catch (const AssertionFailure &failure) {
        TerminalText::printError(failure.report());
        logItemCmd(tr("Internal error:"), failure.report());
        presentError(applicationError(
            tr("An internal error occurred, and Velmora cancelled the current action."),
            failure.report()));
        return true;
    }
}
