// From scenes and data to the tree that is laid out.
#pragma once

#include "screen/data.h"
#include "screen/names.h"
#include "screen/node.h"
#include "screen/sources.h"

namespace kit {

/// The nodes of the first scene, with these data; refuses what does not fit. @p names, unless it is
/// null, is told what is asked for.
Nodes build(const Sources& sources, const Value& data, Names* names = nullptr);

/// Gives every node its tag.
void give_tags(Nodes& nodes);

/// What one build may copy of data and texts, so that repetitions cannot multiply them.
class Budget {
public:
    /// Refuses what is beyond kMost.
    void spend(const Trail& trail, Place place, std::size_t bytes);

private:
    static constexpr std::size_t kMost = std::size_t{32} << 20;
    std::size_t left_ = kMost;
};

/// A node being read: where it stands, what it sees, and what it may cost.
struct Reading {
    const Sources& sources;
    const Scope& scope;
    Budget& budget;
    Names* names;

    /// The value of a key with its references looked up, deep inside lists and objects, too;
    /// refuses one that is not of this type.
    Value value(const Trail& trail, Type type, const Value& written) const;
    std::string words(const Trail& trail, const Value& written) const;

private:
    Value evaluated(const Trail& trail, const Value& written) const;
};

/// Sets what a key of a node, or its kind's own, decides.
void set_key(const Reading& reading, const Trail& trail, const Value& written, const KeySpec& key,
             Node& node);
void set_content(const Reading& reading, const Trail& trail, const Value& written, Node& node);
/// What follows from all keys together.
void finish(Node& node);

void set_theme(const Reading& reading, const Trail& trail, const Value& written, Look& look);
void set_face(const Reading& reading, const Trail& trail, const Value& written, Look& look);

}  // namespace kit
