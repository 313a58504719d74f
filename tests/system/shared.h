// Memory that forked children share with their parent.
#pragma once

#include <sys/mman.h>

#include <new>
#include <stdexcept>

namespace orvel_test {

/// A new @p Record, which lives as long as the process and is never copied by a fork.
template <typename Record>
Record& shared() {
    void* const memory =
        mmap(nullptr, sizeof(Record), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
    return *new (memory) Record{};
}

}  // namespace orvel_test
