// The scene files of a screen: the first one, and what it includes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel_screen.h"
#include "screen/kinds.h"
#include "screen/refusal.h"

namespace kit {

constexpr int kMostNodes = 10000;
constexpr int kMostAsked = 1000000;  // nodes that come or are left out
constexpr int kDeepest = 8;          // includes in each other

class Sources {
public:
    /// @p file is what reasons call the scene; files beside it are in @p folder, which is empty or
    /// ends in a slash.
    Sources(const kit_screen_host& host, std::string file, std::string folder, bool on_disk);

    const kit_screen_host& host() const { return host_; }
    Source& first() const { return *sources_.front(); }

    /// Reads the first scene.
    void read(std::string_view text) const;
    /// The scene that @p from calls @p name; read when it is new.
    Source& included(const Source& from, const std::string& name, const Trail& trail, Place place);
    /// The same, where it has been read.
    const Source& known(const Source& from, const std::string& name) const;

    std::size_t count() const { return sources_.size(); }
    /// Forgets all but the first so many, which were read for what was then refused.
    void forget_after(std::size_t count) { sources_.resize(count); }

private:
    Source* find(const std::string& name) const;
    std::string text_of(const std::string& name, const Trail& trail, Place place) const;

    kit_screen_host host_;
    std::string folder_;
    bool on_disk_;
    std::vector<std::unique_ptr<Source>> sources_;
};

/// Reads a file of at most @p most bytes; of a longer one, one byte more. Never waits for the other
/// end of a FIFO. False when it cannot be read.
bool read_scene_file(const std::string& path, std::size_t most, std::string& bytes);

/// Looks at every key of a scene and of those that it includes, and refuses what is wrong.
void check(Sources& sources, Source& source);

/// The key of a node that says its kind; refuses a node without one, or with two.
const Value& kind_of(const Trail& trail, const Value& node, const KindSpec*& kind);

}  // namespace kit
