#include "system/system.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <utility>

#include "system/imports.h"
#include "system/ledger.h"
#include "system/players.h"
#include "system/sound_libraries.h"

// The library is at work while these run: they allocate nothing.
namespace orvel_test {
namespace {

/// Things that were handed to the library and have not come back.
template <typename Thing>
class Lent {
public:
    void add(Thing thing) {
        if (count_ < kMost) things_[count_++] = thing;
    }
    void remove(Thing thing) {
        Thing* const end = things_ + count_;
        Thing* const found = std::find(things_, end, thing);
        if (found != end) *found = things_[--count_];
    }
    int count() const { return count_; }
    Thing last() const { return things_[count_ - 1]; }

private:
    static constexpr int kMost = 64;
    Thing things_[kMost] = {};
    int count_ = 0;
};

Lent<int> s_descriptors;
Lent<void*> s_blocks;
char s_log[4096];
std::size_t s_log_size = 0;
std::string s_tone_path;

void* allocated(std::size_t size) {
    if (fails(Call::malloc)) return nullptr;
    void* const block = std::malloc(size);
    if (is_armed()) s_blocks.add(block);
    return block;
}

void released(void* block) {
    s_blocks.remove(block);
    std::free(block);
}

bool is_tone(const char* path) { return std::strcmp(path, "/tmp/orvelsdk_tone.wav") == 0; }

/// Where what the library knows by @p path lies here.
const char* place_of(const char* path) { return is_tone(path) ? s_tone_path.c_str() : path; }

Call kind_of_opening(const char* path, int flags) {
    if (std::strcmp(path, "/") == 0) return Call::hold_stream;
    return flags & O_NONBLOCK ? Call::open : Call::create;
}

int opened(const char* path, int flags, ...) {
    va_list list;
    va_start(list, flags);
    const int mode = flags & O_CREAT ? va_arg(list, int) : 0;
    va_end(list);
    if (is_tone(path)) note("open %s", path);
    if (fails(kind_of_opening(path, flags))) return -1;
    Machine& here = machine();
    if (here.meanwhile) std::exchange(here.meanwhile, nullptr)();
    const int descriptor = open(place_of(path), flags, mode);
    if (std::strcmp(path, "/") != 0) {
        here.opened_flags = flags;
        here.opened_as = descriptor;
    }
    if (descriptor >= 0 && is_armed()) s_descriptors.add(descriptor);
    return descriptor;
}

int closed(int descriptor) {
    const bool failing = fails(Call::close);
    s_descriptors.remove(descriptor);
    const int result = close(descriptor);  // a failing close closes all the same
    return failing ? -1 : result;
}

/// A part is one of what there is to read.
ssize_t read_on(int descriptor, void* bytes, std::size_t size) {
    const Way way = way_of(Call::read);
    if (way == Way::succeeds) return read(descriptor, bytes, size);
    if (!is_partial(way)) return -1;
    const ssize_t whole = read(descriptor, bytes, size);
    if (whole < 0) return whole;
    const auto came = static_cast<ssize_t>(part(way, static_cast<std::size_t>(whole)));
    lseek(descriptor, came - whole, SEEK_CUR);
    return came;
}

ssize_t read_there(int descriptor, void* bytes, std::size_t size, off_t position) {
    const Way way = way_of(Call::pread);
    if (way != Way::succeeds && !is_partial(way)) return -1;
    return pread(descriptor, bytes, part(way, size), position);
}

off_t sought(int descriptor, off_t offset, int from) {
    return fails(Call::lseek) ? -1 : lseek(descriptor, offset, from);
}

/// Every way of writing to a stream.
std::size_t put(const char* bytes, std::size_t size, std::FILE* file) {
    const std::size_t written = part(way_of(Call::fwrite), size);
    if (file != stderr || !machine().keeps_log) return std::fwrite(bytes, 1, written, file);
    const std::size_t fitting = std::min(written, sizeof s_log - s_log_size);
    std::memcpy(s_log + s_log_size, bytes, fitting);
    s_log_size += fitting;
    return written;
}

std::size_t written_file(const void* bytes, std::size_t size, std::size_t count, std::FILE* file) {
    return put(static_cast<const char*>(bytes), size * count, file) / size;
}

int written_line(const char* text, std::FILE* file) {
    const std::size_t size = std::strlen(text);
    return put(text, size, file) == size ? 1 : EOF;
}

int put_formatted(std::FILE* file, const char* format, va_list list) {
    if (file == stderr && !machine().keeps_log) return std::vfprintf(file, format, list);
    char text[4096];
    const int size = std::vsnprintf(text, sizeof text, format, list);
    const std::size_t bytes = std::min(static_cast<std::size_t>(size), sizeof text - 1);
    return put(text, bytes, file) == bytes ? size : -1;
}

int written_text(std::FILE* file, const char* format, ...) {
    va_list list;
    va_start(list, format);
    const int size = put_formatted(file, format, list);
    va_end(list);
    return size;
}

/// What fprintf() becomes where _FORTIFY_SOURCE is set, as some systems' compilers do.
int written_checked_text(std::FILE* file, int, const char* format, ...) {
    va_list list;
    va_start(list, format);
    const int size = put_formatted(file, format, list);
    va_end(list);
    return size;
}

ssize_t written(int descriptor, const void* bytes, std::size_t size) {
    const Way way = way_of(Call::write);
    note("write %zu", size);
    if (way != Way::succeeds && !is_partial(way)) return -1;
    return write(descriptor, bytes, part(way, size));
}

int described(int descriptor, struct stat* info) {
    return fails(Call::fstat) ? -1 : fstat(descriptor, info);
}

/// What is asked about is under a lease, so the tone's file is there, this user's.
int described_path(int folder, const char* path, struct stat* info, int flags) {
    if (!is_tone(path)) return fstatat(folder, path, info, flags);
    *info = {};
    info->st_mode = S_IFREG;
    info->st_nlink = 1;
    info->st_uid = geteuid();
    return 0;
}

/// A lease ends only as planned.
int no_time(const timespec* time, timespec*) {
    machine().seconds_slept += double(time->tv_sec) + double(time->tv_nsec) / 1e9;
    return 0;
}

int cut(int descriptor, off_t size) {
    return fails(Call::ftruncate) ? -1 : ftruncate(descriptor, size);
}

int can_be_accessed(const char* path, int mode) {
    errno = ENOENT;
    const bool found = !fails(Call::access) && mode == X_OK && is_installed(path);
    note("access %s = %d", path, found ? 0 : -1);
    return found ? 0 : -1;
}

template <typename Function>
void* address(Function* function) {
    return reinterpret_cast<void*>(function);
}

const std::map<std::string, void*>& replacements() {
    static const std::map<std::string, void*> functions = {
        {"malloc", address(allocated)},
        {"free", address(released)},
        {"open", address(opened)},
        {"close", address(closed)},
        {"read", address(read_on)},
        {"pread", address(read_there)},
        {"lseek", address(sought)},
        {"fwrite", address(written_file)},
        {"fputs", address(written_line)},
        {"fprintf", address(written_text)},
        {"__fprintf_chk", address(written_checked_text)},
        {"write", address(written)},
        {"fstat", address(described)},
        {"fstatat", address(described_path)},
        {"nanosleep", address(no_time)},
        {"ftruncate", address(cut)},
        {"access", address(can_be_accessed)},
        {"fork", address(start_child)},
        {"execl", address(become_player)},
        {"_exit", address(leave_child)},
        {"kill", address(end_child)},
        {"waitpid", address(wait_for_child)},
        {"dlopen", address(load_library)},
        {"dlsym", address(find_in_library)},
        {"dlclose", address(unload_library)},
        {"clock_gettime", address(tell_time)},
    };
    return functions;
}

std::string counted(long number, const char* thing) {
    if (number == 0) return "";
    return "; " + std::to_string(number) + " " + thing + " left";
}

}  // namespace

void take_over_system(const std::string& tone_path) {
    s_tone_path = tone_path;
    for (const auto& [name, function] : replacements()) replace_import(name, function);
}

void begin_anew(const std::string& stand_in) {
    machine() = {};
    machine().stand_in = stand_in;
    begin_ledger();
}

bool allocation_fails() { return fails(Call::allocate); }

std::set<std::string> functions_that_can_fail() {
    std::set<std::string> names;
    for (const auto& [name, function] : replacements()) names.insert(name);
    return names;
}

Machine& machine() {
    static Machine machine;
    return machine;
}

bool is_installed(const char* program) {
    for (const char* installed : machine().programs) {
        if (std::strcmp(program, installed) == 0) return true;
    }
    return false;
}

std::string taken_log() {
    const std::string log(s_log, s_log_size);
    s_log_size = 0;
    return log;
}

std::string left_behind() {
    return counted(s_descriptors.count(), "descriptor") + counted(s_blocks.count(), "block") +
           counted(live_sound_objects(), "sound object") +
           counted(loaded_libraries(), loaded_libraries() == 1 ? "library" : "libraries") +
           counted(unreaped_players(), "player");
}

void clean_up() {
    while (s_descriptors.count() > 0) closed(s_descriptors.last());
    while (s_blocks.count() > 0) released(s_blocks.last());
    end_all_players();
    s_log_size = 0;
}

}  // namespace orvel_test
