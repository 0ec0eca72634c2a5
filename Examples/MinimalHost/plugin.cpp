// The host as a plug-in, so that velmora-check-host can check it.

#include <Host/QVHostPlugIn.h>

#include "MemoryHost.h"

class MemoryHostPlugIn : public QObject, public QVHostPlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QVHostPlugIn_iid)
    Q_INTERFACES(QVHostPlugIn)
public:
    Expected<void> begin(const QString & /*folder*/) override {
        m_classes = std::make_unique<Classes>();
        return {};
    }
    void end() override { m_classes.reset(); }

private:
    std::unique_ptr<Classes> m_classes;
};

#include "plugin.moc"
