// Runs a program and prints, as one line, what the system accounts to it:
//
//     resources PROGRAM [ARGUMENTS]
//     exit status, wall time (ns), user time (us), system time (us), peak memory (KiB), bytes read, bytes written
//
// The program's standard input and output are /dev/null. A program that could not be told of bytes gets -1 for them
// (they come from /proc). It is a program of its own, and a small one, because the peak memory that the system reports
// of a process is never less than that of the process that started it.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
long long nanoseconds()
{
    std::timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<long long>(now.tv_sec) * 1'000'000'000 + now.tv_nsec;
}

long long microseconds(const timeval& time)
{
    return static_cast<long long>(time.tv_sec) * 1'000'000 + time.tv_usec;
}

struct Bytes {
    long long read = -1;
    long long written = -1;
};

// Of a process that has ended but was not waited for.
Bytes bytes_of(pid_t process)
{
    Bytes bytes;
    char name[48];
    std::snprintf(name, sizeof name, "/proc/%ld/io", static_cast<long>(process));
    std::FILE* const file = std::fopen(name, "r");
    if (file == nullptr) return bytes;
    char label[32];
    long long value = 0;
    while (std::fscanf(file, "%31s %lld", label, &value) == 2) {
        if (std::strcmp(label, "rchar:") == 0) bytes.read = value;
        if (std::strcmp(label, "wchar:") == 0) bytes.written = value;
    }
    std::fclose(file);
    return bytes;
}
}  // namespace

int main(int argc, char* argv[])
{
    if (argc < 2) {
        std::fputs("Usage: resources PROGRAM [ARGUMENTS]\n", stderr);
        return 2;
    }
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);

    const long long begin = nanoseconds();
    pid_t process = 0;
    const int failure = posix_spawnp(&process, argv[1], &files, nullptr, argv + 1, environ);
    if (failure != 0) {
        std::fprintf(stderr, "resources: %s: %s\n", argv[1], std::strerror(failure));
        return 2;
    }
    siginfo_t ended{};
    while (waitid(P_PID, static_cast<id_t>(process), &ended, WEXITED | WNOWAIT) != 0 && errno == EINTR) {}
    const long long end = nanoseconds();
    const Bytes bytes = bytes_of(process);
    int status = 0;
    rusage usage{};
    if (wait4(process, &status, 0, &usage) != process) {
        std::perror("resources");
        return 2;
    }
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    std::printf("%d %lld %lld %lld %ld %lld %lld\n", code, end - begin, microseconds(usage.ru_utime),
                microseconds(usage.ru_stime), usage.ru_maxrss, bytes.read, bytes.written);
    posix_spawn_file_actions_destroy(&files);
    return 0;
}
