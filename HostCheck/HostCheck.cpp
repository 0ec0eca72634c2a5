#include "HostCheck/HostCheck.h"

#include <exception>

#include "HostCheck/Checking.h"
#include "HostCheck/CredentialPromises.h"
#include "HostCheck/DispatcherPromises.h"
#include "HostCheck/FuturePromises.h"
#include "HostCheck/LocationPromises.h"
#include "HostCheck/LocationsControllerPromises.h"
#include "HostCheck/NotificationPromises.h"
#include "HostCheck/PluginPromises.h"
#include "HostCheck/SchedulePromises.h"
#include "HostCheck/ServicePromises.h"
#include "HostCheck/StatePromises.h"
#include "HostCheck/StorePromises.h"

QList<HostPromise> HostCheck::promises() {
    return PluginPromises::all() + LocationsControllerPromises::all() + LocationPromises::all() +
           StatePromises::all() + FuturePromises::all() + StorePromises::all() +
           CredentialPromises::all() + DispatcherPromises::all() + NotificationPromises::all() +
           SchedulePromises::all() + ServicePromises::all();
}

HostFinding HostCheck::findingOf(const HostPromise &promise) {
    return {.key = QString::fromUtf8(promise.key),
            .sentence = QString::fromUtf8(promise.sentence),
            .header = QString::fromUtf8(promise.header)};
}

HostFinding HostCheck::find(const HostPromise &promise, QVHostPlugIn *host) {
    HostFinding finding = findingOf(promise);
    const Checking::CheckedHost checked(host);
    try {
        promise.check();
    } catch (const Checking::NotOffered &) {
        finding.result = HostFinding::Result::NotOffered;
    } catch (const Checking::Broken &broken) {
        finding.result = HostFinding::Result::Broken;
        finding.reason = QString::fromUtf8(broken.reason);
    } catch (const std::exception &exception) {
        finding.result = HostFinding::Result::Broken;
        finding.reason =
            QStringLiteral("it raised an exception: ") + QString::fromUtf8(exception.what());
    } catch (...) {
        finding.result = HostFinding::Result::Broken;
        finding.reason = QStringLiteral("it raised an unknown exception");
    }
    return finding;
}
