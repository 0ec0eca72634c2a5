#include "Support/ProgramMemory.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <algorithm>

ProgramMemory::ProgramMemory(qint64 process) {
    const QString folder = QStringLiteral("/proc/%1/").arg(process);
    QFile mappings(folder + QStringLiteral("smaps"));
    QFile memory(folder + QStringLiteral("mem"));
    if (!mappings.open(QIODevice::ReadOnly) ||
        !memory.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return;
    }
    qint64 start = 0;
    qint64 size = 0;
    for (const QByteArray &line : mappings.readAll().split('\n')) {
        const QByteArrayList words = line.simplified().split(' ');
        const QByteArrayList range = words.first().split('-');
        if (range.size() == 2 && words.size() > 1) {
            start = range[0].toLongLong(nullptr, 16);
            size = words[1].startsWith("rw") ? range[1].toLongLong(nullptr, 16) - start : 0;
        } else if (words.first() == "VmFlags:" && size > 0 && !words.contains("dd") &&
                   size < (qint64(1) << 30) && memory.seek(start)) {
            m_contents += memory.read(size);
        }
    }
}

bool ProgramMemory::contains(const QByteArray &bytes) const {
    return m_contents.contains(bytes) || m_contents.contains(bytes.toBase64()) ||
           containsAny({QString::fromLatin1(bytes.toHex())});
}

bool ProgramMemory::containsAny(const QStringList &texts) const {
    return std::any_of(texts.begin(), texts.end(), [this](const QString &text) {
        const QByteArray bytes = text.toUtf8();
        const QByteArray inUtf16(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
        return m_contents.contains(bytes) || m_contents.contains(inUtf16) ||
               m_contents.contains(bytes.toBase64());
    });
}

bool ProgramMemory::isOpenToOthers(qint64 process) {
    const QByteArray file = QStringLiteral("/proc/%1/environ").arg(process).toUtf8();
    const pid_t other = fork();
    if (other == 0) {
        __user_cap_header_struct version{_LINUX_CAPABILITY_VERSION_3, 0};
        const __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3]{};
        const bool isOpen = syscall(SYS_capset, &version, &none) == 0 &&
                            open(file.constData(), O_RDONLY | O_CLOEXEC) >= 0;
        _exit(isOpen ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    int status = -1;
    return waitpid(other, &status, 0) == other && status == 0;
}

void ProgramMemory::dropPrivileges() {
    for (int each = 0; prctl(PR_CAPBSET_READ, each) >= 0; ++each) {
        prctl(PR_CAPBSET_DROP, each);
    }
}
