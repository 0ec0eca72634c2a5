// The smallest host, but one that breaks the promises about futures or that cannot begin.

#include <Host/QVHostPlugIn.h>

#include "Examples/MinimalHost/MemoryHost.h"

struct NullFutures : Classes {
    Future future() const override { return nullptr; }
};

class BrokenPlugIn : public QObject, public QVHostPlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QVHostPlugIn_iid)
    Q_INTERFACES(QVHostPlugIn)
public:
    Expected<void> begin(const QString & /*folder*/) override {
        if (qEnvironmentVariableIsSet("CANNOT_BEGIN")) {
            return failure({.localizedDescription = "It cannot begin."});
        }
        m_classes = std::make_unique<NullFutures>();
        setNSApp(&m_classes->m_application);
        return {};
    }
    void end() override {
        setNSApp(nullptr);
        m_classes.reset();
    }

private:
    std::unique_ptr<NullFutures> m_classes;
};

#include "BrokenPlugIn.moc"
