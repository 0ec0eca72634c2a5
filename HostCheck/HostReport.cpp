#include "HostCheck/HostReport.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <cstdio>

namespace {

QString word(HostFinding::Result result) {
    switch (result) {
        case HostFinding::Result::Kept:
            return QStringLiteral("kept");
        case HostFinding::Result::Broken:
            return QStringLiteral("broken");
        case HostFinding::Result::NotOffered:
            return QStringLiteral("not offered");
    }
    return {};
}

void printLine(const HostFinding &finding) {
    const QString reason =
        finding.reason.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(finding.reason);
    std::printf("%-11s %s: %s%s\n", qUtf8Printable(word(finding.result)),
                qUtf8Printable(finding.key), qUtf8Printable(finding.sentence),
                qUtf8Printable(reason));
    std::fflush(stdout);
}

QJsonObject object(const HostFinding &finding) {
    return {{QStringLiteral("key"), finding.key},
            {QStringLiteral("header"), finding.header},
            {QStringLiteral("sentence"), finding.sentence},
            {QStringLiteral("result"), word(finding.result)},
            {QStringLiteral("reason"), finding.reason}};
}

}  // namespace

void HostReport::add(const HostFinding &finding) {
    const std::lock_guard lock(m_mutex);
    m_isSound = m_isSound && finding.result != HostFinding::Result::Broken;
    if (m_format == Format::Json) {
        m_findings.append(object(finding));
    } else {
        printLine(finding);
    }
}

bool HostReport::finish() {
    const std::lock_guard lock(m_mutex);
    if (m_format == Format::Json) {
        std::fputs(QJsonDocument(m_findings).toJson().constData(), stdout);
        std::fflush(stdout);
    }
    return m_isSound;
}
