#include "screen/sources.h"

#include <utility>

namespace kit {
namespace {

std::string folder_of(const std::string& name) {
    const std::size_t slash = name.rfind('/');
    return name.substr(0, slash + 1);  // npos + 1 is 0
}

}  // namespace

Sources::Sources(const kit_screen_host& host, std::string file, std::string folder, bool on_disk)
    : host_(host), folder_(std::move(folder)), on_disk_(on_disk) {
    sources_.push_back(std::make_unique<Source>());
    first().name = file.substr(folder_.size());
    first().file = std::move(file);
}

void Sources::read(std::string_view text) const {
    std::string why;
    if (!read_document(text, first().file, first().document, why)) throw Refused{why};
}

Source* Sources::find(const std::string& name) const {
    for (const auto& source : sources_) {
        if (source->name == name) return source.get();
    }
    return nullptr;
}

std::string Sources::text_of(const std::string& name, const Trail& trail, Place place) const {
    std::string text;
    if (host_.include) {
        std::size_t length = 0;
        const char* bytes = host_.include(host_.self, name.c_str(), &length);
        if (bytes) return std::string(bytes, length);
    } else if (on_disk_ &&
               read_scene_file(folder_ + name, kMostBytes, text)) {  // GCOVR_EXCL_BR_LINE: throws
        return text;
    }
    refuse(trail, place, "there is no scene " + in_quotes(folder_ + name));
}

Source& Sources::included(const Source& from, const std::string& name, const Trail& trail,
                          Place place) {
    const std::string whole = folder_of(from.name) + name;
    if (Source* source = find(whole)) return *source;
    auto source = std::make_unique<Source>();
    source->name = whole;
    source->file = folder_ + whole;
    std::string why;
    if (!read_document(text_of(whole, trail, place), source->file, source->document, why)) {
        throw Refused{why};
    }
    sources_.push_back(std::move(source));
    return *sources_.back();
}

const Source& Sources::known(const Source& from, const std::string& name) const {
    return *find(folder_of(from.name) + name);
}

}  // namespace kit
