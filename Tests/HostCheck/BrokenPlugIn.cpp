// The smallest host, but one that breaks the promises about futures, cannot begin, does not return,
// or crashes.

#include <Host/QVHostPlugIn.h>

#include <csignal>
#include <thread>

#include "Examples/MinimalHost/MemoryHost.h"

/// Does not return if the environment asks for that in `place`.
void returnUnlessAsked(const char *place) {
    while (qgetenv("NEVER_RETURNS_FROM") == place) {
        std::this_thread::sleep_for(std::chrono::hours(1));
    }
}

struct NullFutures : Classes {
    Future future() const override {
        returnUnlessAsked("future");
        if (qEnvironmentVariableIsSet("CRASHES")) {
            std::raise(SIGSEGV);
        }
        return nullptr;
    }
};

class BrokenPlugIn : public QObject, public QVHostPlugIn {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QVHostPlugIn_iid)
    Q_INTERFACES(QVHostPlugIn)
public:
    Expected<void> begin(const QString & /*folder*/) override {
        returnUnlessAsked("begin");
        if (qEnvironmentVariableIsSet("CANNOT_BEGIN")) {
            return failure({.localizedDescription = "It cannot begin."});
        }
        m_classes = std::make_unique<NullFutures>();
        return {};
    }
    void end() override {
        returnUnlessAsked("end");
        m_classes.reset();
    }

private:
    std::unique_ptr<NullFutures> m_classes;
};

#include "BrokenPlugIn.moc"
