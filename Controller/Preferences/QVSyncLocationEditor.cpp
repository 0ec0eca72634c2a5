#include "Controller/Preferences/QVSyncLocationEditor.h"

#include <utility>

#include "Platform/Foundation/Assertion.h"

QVSyncLocationEditor::QVSyncLocationEditor(const QString &windowNibName,
                                           const std::shared_ptr<QVSyncLocation> &location)
    : WindowController(windowNibName), m_location(location) {}

void QVSyncLocationEditor::setLocation(const std::shared_ptr<QVSyncLocation> &location) {
    m_location = location;
    KeyValue::announce<&QVSyncLocationEditor::locationChanged>(this);
}

void QVSyncLocationEditor::setShouldShowCancelButton(bool shouldShow) {
    m_shouldShowCancelButton = shouldShow;
    KeyValue::announce<&QVSyncLocationEditor::shouldShowCancelButtonChanged>(this);
}

void QVSyncLocationEditor::runLocationEditorModalForWindow(QWidget *parentWindow,
                                                           bool showCancelButton,
                                                           CompletionHandler handler) {
    requireParameter(parentWindow, "parentWindow != nil",
                     "QVSyncLocationEditor::runLocationEditorModalForWindow",
                     "Controller/Preferences/QVSyncLocationEditor", 33);
    setShouldShowCancelButton(showCancelButton);
    setCompletionHandler(std::move(handler));
    beginSheet(parentWindow);
    m_firstValues = fieldValues();
}

void QVSyncLocationEditor::acceptModalSheet(QObject * /*sender*/) {
    finish(1);
}

void QVSyncLocationEditor::cancelModalSheet(QObject * /*sender*/) {
    finish(0);
}

void QVSyncLocationEditor::setCompletionHandler(CompletionHandler handler) {
    m_completionHandler = std::move(handler);
}

void QVSyncLocationEditor::leaveSheet() {
    if (m_shouldShowCancelButton || fieldValues() == m_firstValues) {
        cancelModalSheet(nullptr);
    }
}

void QVSyncLocationEditor::finish(int result) {
    // The handler may release the editor.
    const auto self = shared_from_this();
    endSheet(result);
    if (const CompletionHandler handler = std::exchange(m_completionHandler, nullptr)) {
        handler(result);
    }
}
