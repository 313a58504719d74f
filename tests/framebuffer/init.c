/* The first process of the virtual machine: loads the kernel's modules, runs the example, says on
   the serial line what came of it, and turns the machine off. */
#include <fcntl.h>
#include <linux/kd.h>
#include <linux/reboot.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/reboot.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

/* The files in /modules, in the order of their names. */
static void load_modules(void) {
    for (int i = 0; i < 40; ++i) {
        char path[32];
        snprintf(path, sizeof path, "/modules/%02d.ko", i);
        const int file = open(path, O_RDONLY | O_CLOEXEC);
        if (file < 0) continue;
        if (syscall(SYS_finit_module, file, "", 0) != 0) printf("init: %s: %m\n", path);
        close(file);
    }
}

static int console_mode(int keyboard) {
    int mode = -1;
    const int tty = open("/dev/tty0", O_RDWR | O_CLOEXEC);
    ioctl(tty, keyboard ? KDGKBMODE : KDGETMODE, &mode);
    close(tty);
    return mode;
}

/* The process of the screen, which is the one child of the example's. */
static pid_t child_of(pid_t parent) {
    char path[64], line[32] = "";
    snprintf(path, sizeof path, "/proc/%d/task/%d/children", (int)parent, (int)parent);
    FILE* file = fopen(path, "r");
    if (file) {
        if (!fgets(line, sizeof line, file)) line[0] = '\0';
        fclose(file);
    }
    return (pid_t)atoi(line);
}

/* Lines from the host: "end NUMBER" sends that signal to the example, "kill" ends the process of
   the screen as the kernel would. */
static void obey(pid_t program) {
    char line[64];
    int number = 0;
    while (fgets(line, sizeof line, stdin)) {
        if (sscanf(line, "end %d", &number) == 1) kill(program, number);
        if (strncmp(line, "kill", 4) == 0) kill(child_of(program), SIGKILL);
        if (strncmp(line, "mode", 4) == 0) printf("mode %d\n", console_mode(0));
        if (strncmp(line, "wait", 4) == 0) return;
        fflush(stdout);
    }
}

int main(void) {
    mkdir("/dev", 0755), mkdir("/proc", 0755), mkdir("/sys", 0755);
    mount("dev", "/dev", "devtmpfs", 0, NULL);
    mount("proc", "/proc", "proc", 0, NULL);
    mount("sys", "/sys", "sysfs", 0, NULL);
    freopen("/dev/ttyS0", "r", stdin);
    freopen("/dev/ttyS0", "w", stdout);
    freopen("/dev/ttyS0", "w", stderr);
    load_modules();
    sleep(1);
    const int mode = console_mode(0), keyboard = console_mode(1);
    char* arguments[] = {"/framebuffer", "--touch", "/scene.json", NULL};
    if (access("/pointer", F_OK) == 0) arguments[1] = "/scene.json", arguments[2] = NULL;
    const pid_t program = fork();
    if (program == 0) execv(arguments[0], arguments), _exit(127);
    obey(program);
    int status = 0;
    waitpid(program, &status, 0);
    const int same = console_mode(0) == mode && console_mode(1) == keyboard;
    printf("ended %d %s\n", WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status),
           same ? "restored" : "NOT RESTORED");
    fflush(stdout);
    sleep(1);
    reboot(LINUX_REBOOT_CMD_POWER_OFF);
    return 0;
}
