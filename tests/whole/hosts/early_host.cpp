// A host that uses the library before main() and after it: from a library of its own, from the
// constructor and the destructor of a static object, and from an exit handler.
#include <cstdlib>

#include "early_work.h"

namespace {

struct Early {
    Early() { early_work("object_start"); }
    ~Early() { early_work("object_end"); }
};
const Early s_early;

}  // namespace

int main() {
    early_library();
    early_work("main");
    return std::atexit([] { early_work("exit"); });
}
