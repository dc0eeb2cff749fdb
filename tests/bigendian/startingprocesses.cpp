// Lets a test start programs while it is emulated.
//
// QProcess asks the kernel for a child with a file descriptor of its own, once it has found that the kernel waits for
// such. The emulator passes the question on to the machine's kernel, which does, but knows nothing of such children
// itself. Here the answer is no, and QProcess goes the old way. The function is found before that of the C library.

#include <dlfcn.h>
#include <sys/syscall.h>

#include <cerrno>
#include <cstdarg>

namespace {

using SystemCall = long (*)(long number, ...);

/// As <sys/wait.h> of newer systems has it.
constexpr long WAIT_FOR_DESCRIPTOR = 3;

} // namespace

extern "C" __attribute__((visibility("default"))) long syscall(long number, ...)
{
    va_list list;
    va_start(list, number);
    const long first = va_arg(list, long);
    const long second = va_arg(list, long);
    const long third = va_arg(list, long);
    const long fourth = va_arg(list, long);
    const long fifth = va_arg(list, long);
    const long sixth = va_arg(list, long);
    va_end(list);

    if (number == SYS_waitid && first == WAIT_FOR_DESCRIPTOR) {
        errno = ENOSYS;
        return -1;
    }
    static const auto original = reinterpret_cast<SystemCall>(dlsym(RTLD_NEXT, "syscall"));
    return original(number, first, second, third, fourth, fifth, sixth);
}
