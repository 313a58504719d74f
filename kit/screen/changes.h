// What came of events, for the host.
#pragma once

#include <list>
#include <string>

#include "orvel_screen.h"

namespace kit {

struct Change {
    int kind = KIT_CHANGE_VALUE;
    std::string id, name, value = "null";
};

/// Oldest first.
class Changes {
public:
    /// Takes over newer ones; raises nothing.
    void add(std::list<Change>&& newer);
    /// The oldest, which stays until the next call; null where there is none.
    const Change* next();

private:
    std::list<Change> waiting_, told_;
};

}  // namespace kit
