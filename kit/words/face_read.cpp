// Faces that the host brings.
#include <memory>
#include <string>

#include "words/bdf.h"
#include "words/font_file.h"
#include "words/reason.h"

namespace {

/// The face; where the font is refused null, and the reason after its name and line.
kit_face* read_face(std::string_view text, std::string name, char* why, std::size_t size) {
    auto face = std::make_unique<kit::OwnedFace>();
    kit::Refusal refusal;
    if (text.size() > kit::kLongestFont) {
        refusal.reason = "larger than 16 MiB";
    } else if (kit::read_bdf(text, *face, refusal)) {
        return face.release();
    } else if (refusal.line > 0) {
        name += ":" + std::to_string(refusal.line);
    }
    kit::tell(name + ": " + refusal.reason, why, size);
    return nullptr;
}

}  // namespace

kit_face* kit_face_read(const void* bytes, size_t length, char* why, size_t size) try {
    if (!bytes) length = 0;
    return read_face({static_cast<const char*>(bytes), length}, "font", why, size);
} catch (...) {
    kit::tell("out of memory", why, size);
    return nullptr;
}

kit_face* kit_face_open(const char* path, char* why, size_t size) try {
    std::string bytes;
    if (!path || !kit::read_font_file(path, kit::kLongestFont, bytes)) {
        kit::tell(std::string(path ? path : "font") + ": cannot be read", why, size);
        return nullptr;
    }
    return read_face(bytes, path, why, size);
} catch (...) {
    kit::tell("out of memory", why, size);
    return nullptr;
}
