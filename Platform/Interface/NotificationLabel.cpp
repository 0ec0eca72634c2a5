#include "Platform/Interface/NotificationLabel.h"

#include <QtGui/QAccessible>
#include <QtGui/QShowEvent>
#include <QtWidgets/QAccessibleWidget>

namespace {

class AccessibleNotification : public QAccessibleWidget {
public:
    explicit AccessibleNotification(NotificationLabel *label)
        : QAccessibleWidget(label, QAccessible::Notification) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? static_cast<QLabel *>(object())->text()
                                         : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface *makeInterface(const QString & /*className*/, QObject *object) {
    auto *label = qobject_cast<NotificationLabel *>(object);
    return label ? new AccessibleNotification(label) : nullptr;
}

/// Returns whether the user works in the window of `widget`. A sheet is in front of the window that
/// it blocks, also while the window manager activates that.
bool isInFront(const QWidget &widget) {
    const QWidget *window = widget.window();
    const QWidget *parent = window->parentWidget();
    return window->isActiveWindow() || (window->isModal() && parent && isInFront(*parent));
}

}  // namespace

NotificationLabel::NotificationLabel(QWidget *parent) : TextLabel(parent) {
    static const bool isInstalled = [] {
        QAccessible::installFactory(&makeInterface);
        return true;
    }();
    Q_UNUSED(isInstalled);
}

void NotificationLabel::setText(const QString &text) {
    if (text != this->text()) {
        QLabel::setText(text);
        notify();
    }
}

void NotificationLabel::setQuiet(bool isQuiet) {
    if (isQuiet != m_isQuiet) {
        m_isQuiet = isQuiet;
        notify();
    }
}

void NotificationLabel::notify() {
    if (!m_isQuiet && !text().isEmpty() && isVisible() && isInFront(*this)) {
        QAccessibleEvent appearance(this, QAccessible::ObjectShow);
        QAccessible::updateAccessibility(&appearance);
        Q_EMIT reported(text());
    }
}

// Qt itself announces every widget that appears to screen readers.
void NotificationLabel::showEvent(QShowEvent *event) {
    TextLabel::showEvent(event);
    if (!event->spontaneous() && !text().isEmpty()) {
        Q_EMIT reported(text());
    }
}
