#include "Support/SpokenTexts.h"

#include "Platform/Interface/NotificationLabel.h"

SpokenTexts::SpokenTexts(const QWidget &window) {
    for (const auto *label : window.findChildren<NotificationLabel *>()) {
        connect(label, &NotificationLabel::reported, this,
                [this](const QString &text) { m_texts.append(text); });
    }
}
