#include "Platform/Interface/WindowController.h"

#include <QtCore/QMetaProperty>

#include "Platform/Foundation/Assertion.h"
#include "Platform/Interface/Nib.h"

WindowController::WindowController(const QString &windowNibName) : m_windowNibName(windowNibName) {}

WindowController::~WindowController() {
    if (m_window) {
        m_window->hide();
        // The caller may be one of the window's own buttons.
        m_window->deleteLater();
    }
}

QWidget *WindowController::window() {
    if (!m_window) {
        std::unique_ptr<QWidget> root(Nib::load(m_windowNibName, this));
        auto *const window = qobject_cast<SheetWindow *>(root.get());
        requireParameter(window, "window != nil", "WindowController::window",
                         "Platform/Interface/WindowController");
        m_window = window;
        // Owned by this controller from now on.
        static_cast<void>(root.release());
        connect(m_window, &SheetWindow::leaving, this, [this] { leaveSheet(); });
        // Without a window, nothing else could end the modal loop.
        connect(m_window, &QObject::destroyed, this, [this] { stopModal(0); });
        awakeFromNib();
        windowDidLoad();
    }
    return m_window;
}

QVariantList WindowController::fieldValues() {
    QVariantList values;
    for (const QWidget *field : window()->findChildren<QWidget *>()) {
        const QMetaProperty value = field->metaObject()->userProperty();
        if (value.isValid() && !value.isConstant()) {
            values.append(value.read(field));
        }
    }
    return values;
}

void WindowController::beginSheet(QWidget *parentWindow) {
    window()->setParent(parentWindow->window(), Qt::Dialog);
    m_window->open();
}

void WindowController::endSheet(int returnCode) {
    if (m_window) {
        m_window->done(returnCode);
    }
}

void WindowController::runModalSheet(QWidget *parentWindow) {
    window()->setParent(parentWindow->window(), Qt::Dialog);
    m_window->setWindowModality(Qt::ApplicationModal);
    m_window->show();
    endSheet(m_modalLoop.exec());
}

void WindowController::stopModal(int code) {
    m_modalLoop.exit(code);
}
