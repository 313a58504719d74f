// The baked faces by name; whoever refers to this file carries them all.
#include <cstring>

#include "orvel_kit.h"

namespace {

struct Name {
    const char* name;
    const kit_face* (*face)();
};

constexpr Name kNames[] = {
    {"sans 11", kit_sans_11},     {"sans 12", kit_sans_12},     {"sans 14", kit_sans_14},
    {"sans 18", kit_sans_18},     {"sans 24", kit_sans_24},     {"sans 40", kit_sans_40},
    {"bold 11", kit_bold_11},     {"bold 12", kit_bold_12},     {"bold 14", kit_bold_14},
    {"bold 18", kit_bold_18},     {"bold 24", kit_bold_24},     {"mono 12", kit_mono_12},
    {"digits 64", kit_digits_64}, {"digits 96", kit_digits_96},
};

}  // namespace

const kit_face* kit_face_named(const char* name) {
    for (const Name& known : kNames) {
        if (name && std::strcmp(name, known.name) == 0) return known.face();
    }
    return nullptr;
}
