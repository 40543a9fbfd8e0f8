/* rusage-of [-q] PROGRAM ARGS...: runs the program (with -q, its output to /dev/null) and prints
   its CPU time (user + system, microseconds), peak resident size (KiB) and exit status on a last
   line of its own. A child's peak
   starts from its parent's as it was when it forked, so the benchmark, which holds its corpus in
   memory, measures through this small process. */
#include <fcntl.h>
#include <stdio.h>
#include <string.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

int main(int argc, char** argv)
{
    int quiet = argc > 1 && strcmp(argv[1], "-q") == 0;
    if (argc < 2 + quiet)
        return 2;
    fflush(stdout);
    pid_t pid = fork();
    if (pid == 0) {
        if (quiet) {
            int null = open("/dev/null", O_WRONLY);
            dup2(null, 1);
            dup2(null, 2);
        }
        execv(argv[1 + quiet], argv + 1 + quiet);
        _exit(127);
    }
    int status = 0;
    struct rusage usage;
    if (wait4(pid, &status, 0, &usage) < 0)
        return 2;
    long micros = (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000000L + usage.ru_utime.tv_usec + usage.ru_stime.tv_usec;
    printf("\n%ld %ld %d\n", micros, usage.ru_maxrss, WIFEXITED(status) ? WEXITSTATUS(status) : 128);
    return 0;
}
