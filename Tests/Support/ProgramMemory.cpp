#include "Support/ProgramMemory.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace {

bool isReadable(const QByteArray &file) {
    return open(file.constData(), O_RDONLY | O_CLOEXEC) >= 0;
}

/// Whether this process may read the memory of `process` by the system calls of debuggers. It is
/// asked for an address that does not exist.
bool isDebuggable(qint64 process) {
    const auto number = static_cast<pid_t>(process);
    char byte = 0;
    const iovec here{&byte, 1};
    const iovec there{nullptr, 1};
    return process_vm_readv(number, &here, 1, &there, 1, 0) >= 0 || errno != EPERM ||
           ptrace(PTRACE_SEIZE, number, nullptr, nullptr) == 0;
}

}  // namespace

ProgramMemory::ProgramMemory(qint64 process)
    : m_memory(QStringLiteral("/proc/%1/mem").arg(process)),
      m_pages(QStringLiteral("/proc/%1/pagemap").arg(process)) {
    QFile mappings(QStringLiteral("/proc/%1/smaps").arg(process));
    if (!mappings.open(QIODevice::ReadOnly) ||
        !m_memory.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ||
        !m_pages.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
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
                   size < (qint64(1) << 30)) {
            read(start, size);
        }
    }
}

void ProgramMemory::read(qint64 start, qint64 size) {
    const qint64 pageSize = sysconf(_SC_PAGESIZE);
    QList<quint64> pages(size / pageSize);
    const qint64 bytes = pages.size() * qint64(sizeof(quint64));
    if (!m_pages.seek(start / pageSize * qint64(sizeof(quint64))) ||
        m_pages.read(reinterpret_cast<char *>(pages.data()), bytes) != bytes) {
        return;
    }
    const auto isThere = [](quint64 page) { return page >> 62U != 0; };
    for (auto begin = pages.cbegin(); begin != pages.cend();) {
        begin = std::find_if(begin, pages.cend(), isThere);
        const auto end = std::find_if_not(begin, pages.cend(), isThere);
        if (m_memory.seek(start + (begin - pages.cbegin()) * pageSize)) {
            m_contents += m_memory.read((end - begin) * pageSize);
        }
        begin = end;
    }
}

bool ProgramMemory::has(const QByteArray &bytes) const {
    return memmem(m_contents.constData(), m_contents.size(), bytes.constData(), bytes.size()) !=
           nullptr;
}

bool ProgramMemory::contains(const QByteArray &bytes) const {
    return has(bytes) || has(bytes.toBase64()) || containsAny({QString::fromLatin1(bytes.toHex())});
}

bool ProgramMemory::containsAny(const QStringList &texts) const {
    return std::any_of(texts.begin(), texts.end(), [this](const QString &text) {
        const QByteArray bytes = text.toUtf8();
        const QByteArray inUtf16(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
        return has(bytes) || has(inUtf16) || has(bytes.toBase64());
    });
}

bool ProgramMemory::isOpenToOthers(qint64 process) {
    const QByteArray folder = QStringLiteral("/proc/%1/").arg(process).toUtf8();
    const std::array files{folder + "environ", folder + "maps", folder + "mem"};
    const pid_t other = fork();
    if (other == 0) {
        const bool isOpen =
            giveUpPrivileges() &&
            (std::any_of(files.begin(), files.end(), isReadable) || isDebuggable(process));
        _exit(isOpen ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    int status = -1;
    return waitpid(other, &status, 0) == other && status == 0;
}

bool ProgramMemory::giveUpPrivileges() {
    __user_cap_header_struct version{_LINUX_CAPABILITY_VERSION_3, 0};
    const __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3]{};
    return syscall(SYS_capset, &version, &none) == 0;
}

void ProgramMemory::dropPrivileges() {
    for (int each = 0; prctl(PR_CAPBSET_READ, each) >= 0; ++each) {
        prctl(PR_CAPBSET_DROP, each);
    }
}
