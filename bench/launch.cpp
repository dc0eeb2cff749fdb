// Runs a program without its output and prints what it took, as JSON. This one is small: the memory of a program counts from
// what its starter had.
//
//     reportbase_launch PROGRAM ARGUMENT...

#include <chrono>
#include <cstdio>
#include <initializer_list>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int NOT_STARTED = 127;
constexpr double MICROSECOND = 1e-6;
constexpr double KIB_IN_MIB = 1024.0;

double Seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * MICROSECOND;
}

void Become(char** arguments)
{
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nowhere, stream);
    execvp(arguments[0], arguments);
    _exit(NOT_STARTED);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2)
        return NOT_STARTED;
    const auto begin = std::chrono::steady_clock::now();
    const pid_t process = fork();
    if (process == 0)
        Become(argv + 1);
    int status = 0;
    rusage usage = {};
    if (process < 0 || wait4(process, &status, 0, &usage) != process)
        return NOT_STARTED;
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    std::printf(R"({"code": %d, "wall": %.6f, "processor": %.6f, "memory": %.3f})"
                "\n",
                WIFEXITED(status) ? WEXITSTATUS(status) : -1, wall.count(),
                Seconds(usage.ru_utime) + Seconds(usage.ru_stime),
                static_cast<double>(usage.ru_maxrss) / KIB_IN_MIB);
    return 0;
}
