// A screen as the calls of the interface see it.
#pragma once

#include <new>
#include <string>

#include "screen/changes.h"
#include "screen/live.h"

struct kit_screen {
    kit::Sources sources;
    kit::Value data = {};
    kit::Nodes nodes = {};
    kit::Pair size = {0, 0};  // what it was given; 0 where the root decides
    kit_box damage = {};
    std::string said = {};
    kit::Live live = {};
    kit::Changes changes = {};
};

namespace kit {

/// What @p call returns, or @p failure with a reason where it raises.
template <typename Result, typename Call>
Result guarded(Result failure, char* why, size_t size, const Call& call) {
    try {
        return call();
    } catch (const Refused& refused) {        // GCOVR_EXCL_BR_LINE: not every call refuses
        give_reason(refused.why, why, size);  // GCOVR_EXCL_BR_LINE: the same
    } catch (...) {                           // bad_alloc, or length_error
        give_reason("out of memory", why, size);
    }
    return failure;
}

}  // namespace kit
