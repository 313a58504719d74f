/* usage: process [--all] PROGRAM ARGUMENTS...
 * Runs a program and prints the milliseconds from its start to its end, those of processors, and
 * its peak memory in KiB: the largest resident set of one of its processes. With --all it is looked
 * at all the while, and the memory is that of all its processes together, each shared page counted
 * once. */
#define _GNU_SOURCE
#include <dirent.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static double now(void) {
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return 1e3 * (double)time.tv_sec + 1e-6 * (double)time.tv_nsec;
}

static double milliseconds(struct timeval time) {
    return 1e3 * (double)time.tv_sec + 1e-3 * (double)time.tv_usec;
}

/* The session that a process belongs to; -1 when it is gone. */
static int session_of(const char* process) {
    char path[300], text[600] = "";
    int session = -1;
    FILE* file;
    snprintf(path, sizeof path, "/proc/%s/stat", process);
    file = fopen(path, "r");
    if (!file) return -1;
    if (fgets(text, sizeof text, file) && strrchr(text, ')')) {
        sscanf(strrchr(text, ')') + 1, " %*c %*d %*d %d", &session);
    }
    fclose(file);
    return session;
}

/* The proportional set of a process, in KiB. */
static long pss_of(const char* process) {
    char path[300], text[300];
    long size = 0;
    FILE* file;
    snprintf(path, sizeof path, "/proc/%s/smaps_rollup", process);
    file = fopen(path, "r");
    if (!file) return 0;
    while (fgets(text, sizeof text, file)) {
        if (sscanf(text, "Pss: %ld", &size) == 1) break;
    }
    fclose(file);
    return size;
}

static long pss_of_all(int session) {
    long sum = 0;
    struct dirent* entry;
    DIR* processes = opendir("/proc");
    if (!processes) return 0;
    while ((entry = readdir(processes))) {
        const int is_process = *entry->d_name >= '1' && *entry->d_name <= '9';
        if (is_process && session_of(entry->d_name) == session) sum += pss_of(entry->d_name);
    }
    closedir(processes);
    return sum;
}

int main(int argc, char** argv) {
    const int all = argc > 1 && strcmp(argv[1], "--all") == 0;
    const struct timespec pause = {0, 1000000};
    const double start = now();
    struct rusage usage;
    long most = 0;
    int status;
    pid_t process;
    if (argc < 2 + all) return 2;
    process = fork();
    if (process == 0) {
        setsid();
        execvp(argv[1 + all], argv + 1 + all);
        _exit(127);
    }
    while (wait4(process, &status, all ? WNOHANG : 0, &usage) == 0) {
        const long memory = pss_of_all(process);
        if (memory > most) most = memory;
        nanosleep(&pause, NULL);
    }
    printf("%.1f %.1f %ld\n", now() - start,
           milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime),
           all ? most : usage.ru_maxrss);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
