// The smallest host, but one that breaks the promises about futures, cannot begin, does not return,
// crashes, or was built for another version of the interface.

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
        if (qEnvironmentVariableIsSet("IS_OF_OTHER_VERSION")) {
            constexpr HostVersion other{.major = CurrentHostVersion.major + 1, .minor = 3};
            m_other = std::make_unique<HostClassRegistration>("QVSyncPlugin", &m_class, other);
            return {};
        }
        m_classes = std::make_unique<NullFutures>();
        return {};
    }
    void end() override {
        returnUnlessAsked("end");
        m_classes.reset();
        m_other.reset();
    }

private:
    std::unique_ptr<NullFutures> m_classes;
    HostClass m_class;
    std::unique_ptr<HostClassRegistration> m_other;
};

#include "BrokenPlugIn.moc"
