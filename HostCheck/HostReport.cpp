#include "HostCheck/HostReport.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include "Platform/Foundation/TerminalText.h"

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

QByteArray line(const HostFinding &finding) {
    const QString reason =
        finding.reason.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(finding.reason);
    return QStringLiteral("%1 %2: %3%4\n")
        .arg(word(finding.result), -11)
        .arg(finding.key, finding.sentence, reason)
        .toUtf8();
}

QByteArray object(const HostFinding &finding) {
    const QJsonObject object{{QStringLiteral("key"), finding.key},
                             {QStringLiteral("header"), finding.header},
                             {QStringLiteral("sentence"), finding.sentence},
                             {QStringLiteral("result"), word(finding.result)},
                             {QStringLiteral("reason"), finding.reason}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

}  // namespace

void HostReport::begin(HostVersion version) {
    const std::lock_guard lock(m_mutex);
    const QString text =
        m_format == Format::Json
            ? QStringLiteral("{\"interface\":\"%1\",\"host\":\"%2\",\"promises\":[")
            : QStringLiteral("interface   %1, the host was built for %2\n");
    print(text.arg(CurrentHostVersion.text(), version.text()).toUtf8());
}

QByteArray HostReport::end(const HostFinding &finding) const {
    const std::lock_guard lock(m_mutex);
    return text(finding) + end();
}

void HostReport::add(const HostFinding &finding) {
    const std::lock_guard lock(m_mutex);
    m_isSound = m_isSound && finding.result != HostFinding::Result::Broken;
    print(text(finding));
    m_isFirst = false;
}

Expected<bool> HostReport::finish() {
    const std::lock_guard lock(m_mutex);
    print(end());
    return m_written.map([&] { return m_isSound; });
}

void HostReport::print(const QByteArray &text) {
    m_written = m_written.and_then([&] { return TerminalText::print(QString::fromUtf8(text)); });
}

QByteArray HostReport::text(const HostFinding &finding) const {
    if (m_format == Format::Lines) {
        return line(finding);
    }
    return (m_isFirst ? "\n" : ",\n") + object(finding);
}

QByteArray HostReport::end() const {
    return m_format == Format::Json ? "\n]}\n" : "";
}
