#include "Controller/Preferences/DirectConnectionHost.h"

#include "Controller/Preferences/QVDirectConnectionLocationEditor.h"
#include "Host/SyncStrings.h"

void DirectConnectionHost::setText(const QString &text) {
    m_text = text;
    if (!isWrong()) {
        // What the editor makes of it comes back by setHost().
        m_host = text.trimmed();
        Q_EMIT hostChanged();
    }
    Q_EMIT changed();
}

void DirectConnectionHost::setHost(const QString &host) {
    m_host = host;
    m_text = host;
    Q_EMIT textChanged();
    Q_EMIT changed();
}

void DirectConnectionHost::setEditorAccepting(bool isAccepting) {
    m_isEditorAccepting = isAccepting;
    Q_EMIT changed();
}

bool DirectConnectionHost::isWrong() const {
    const QString host = m_text.trimmed();
    return !host.isEmpty() && QVDirectConnectionLocationEditor::URLWithHost(host, 0).isNil();
}

QString DirectConnectionHost::problem() const {
    if (isWrong()) {
        return localizedSyncString(
                   "“%1” is not a valid host. Enter a name, such as "
                   "“computer.local”, or an IP address.")
            .arg(m_text.trimmed());
    }
    return isAcceptable() ? QString()
                          : localizedSyncString("Choose a computer, or enter its host.");
}
