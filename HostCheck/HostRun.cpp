#include "HostCheck/HostRun.h"

#include <QtCore/QDir>
#include <cstdio>
#include <cstdlib>

#include "Host/ClassRegistry.h"
#include "Host/QVSyncPlugin.h"
#include "HostCheck/CrashReport.h"
#include "HostCheck/HostCheck.h"

HostRun::HostRun(QVHostPlugIn &plugIn, HostReport::Format format, std::chrono::seconds limit,
                 QTemporaryDir &folder)
    : m_plugIn(plugIn), m_limit(limit), m_folder(folder), m_report(format), m_deadline(limit) {}

Expected<bool> HostRun::run() {
    const QString folder = m_folder.filePath(QStringLiteral("host"));
    if (!QDir().mkdir(folder)) {
        return failure(
            {.localizedDescription = QStringLiteral("%1 cannot be created.").arg(folder)});
    }
    m_deadline.begin([this] { endWithout("begin"); });
    if (const Expected<void> begun = m_plugIn.begin(folder); !begun) {
        return failure(begun.error());
    }
    const auto version = hostVersionOfClass(QVSyncPlugin::Class::Name);
    if (version && version->major != CurrentHostVersion.major) {
        end();
        return failure({.localizedDescription =
                            QStringLiteral("The host was built for version %1 of the interface, "
                                           "but this program checks version %2.")
                                .arg(version->text(), CurrentHostVersion.text())});
    }
    m_report.begin(version.value_or(HostVersion{}));
    checkAll();
    Expected<bool> isSound = m_report.finish();
    end();
    return isSound;
}

void HostRun::end() {
    m_deadline.begin([this] { endWithout("end"); });
    m_plugIn.end();
}

void HostRun::checkAll() {
    for (const HostPromise &promise : HostCheck::promises()) {
        m_deadline.begin([this, promise] { endWithout(promise); });
        HostFinding crash = HostCheck::findingOf(promise);
        crash.result = HostFinding::Result::Broken;
        crash.reason = QStringLiteral("it crashed");
        CrashReport::setText(m_report.end(crash));
        m_report.add(HostCheck::find(promise, &m_plugIn));
    }
    CrashReport::setText({});
}

void HostRun::endWithout(const char *function) {
    std::fprintf(stderr, "velmora-check-host: QVHostPlugIn::%s(): %s\n", function,
                 qUtf8Printable(reason()));
    m_folder.remove();
    // The main thread is in the host, so nothing can be destroyed.
    std::_Exit(2);
}

void HostRun::endWithout(const HostPromise &promise) {
    HostFinding finding = HostCheck::findingOf(promise);
    finding.result = HostFinding::Result::Broken;
    finding.reason = reason();
    m_report.add(finding);
    if (const Expected<bool> finished = m_report.finish(); !finished) {
        std::fprintf(stderr, "velmora-check-host: %s\n",
                     qUtf8Printable(finished.error().localizedDescription));
    }
    m_folder.remove();
    std::_Exit(EXIT_FAILURE);
}

QString HostRun::reason() const {
    return QStringLiteral("it did not return within %1 s").arg(m_limit.count());
}
