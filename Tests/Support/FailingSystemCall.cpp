#include "Support/FailingSystemCall.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

#include <QtCore/QtGlobal>
#include <array>
#include <cstddef>
#include <thread>

namespace {

void makeFail(int number, int error) {
    std::array<sock_filter, 4> filter{{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<__u32>(number), 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<__u32>(error)),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    }};
    const sock_fprog program{filter.size(), filter.data()};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        qFatal("The system call cannot be made to fail");
    }
}

}  // namespace

void runWithFailingSystemCall(int number, int error, const std::function<void()> &body) {
    std::thread thread([&] {
        makeFail(number, error);
        body();
    });
    thread.join();
}
