// What does the work: ours, a peer, or the bare stores that no implementation can beat.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "workload.h"

namespace bench {

/// A workload made ready for one implementation.
struct Job {
    std::function<void(int times)> run;  // empty when the implementation cannot do the work
    std::function<long()> painted;       // pixels that are no longer paper; may be empty
};

enum class Role { ours, peer, limit };

struct Implementation {
    std::string name;
    Role role;
    std::function<Job(const Workload&)> prepare;
};

/// Ours first. Peers that were not found when this was built are missing.
std::vector<Implementation> implementations();

// One source file each.
Implementation ours();
Implementation gd();
Implementation cairo();
Implementation pixman();
Implementation sdl();
Implementation sdl_ttf();
Implementation sdl_gfx();
Implementation qt();
Implementation imlib();
std::vector<Implementation> limits();

}  // namespace bench
