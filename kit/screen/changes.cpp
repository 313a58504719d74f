#include "screen/changes.h"

#include <utility>

namespace kit {
namespace {

constexpr std::size_t kMost = 4096;

bool replaces(const Change& newer, const Change& older) {
    return newer.kind == KIT_CHANGE_VALUE && older.kind == KIT_CHANGE_VALUE &&
           newer.name == older.name && newer.id == older.id;
}

}  // namespace

void Changes::add(std::list<Change>&& newer) {
    while (!newer.empty()) {
        if (!waiting_.empty() && replaces(newer.front(), waiting_.back())) waiting_.pop_back();
        waiting_.splice(waiting_.end(), newer, newer.begin());
        if (waiting_.size() > kMost) waiting_.pop_front();
    }
}

const Change* Changes::next() {
    told_.clear();
    if (waiting_.empty()) return nullptr;
    told_.splice(told_.end(), waiting_, waiting_.begin());
    return &told_.front();
}

}  // namespace kit
