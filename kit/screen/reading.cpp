#include "screen/build.h"
#include "screen/values.h"

namespace kit {

void Budget::spend(const Trail& trail, Place place, std::size_t bytes) {
    if (bytes > left_) {
        refuse(trail, place,
               "the data make the screen larger than " + std::to_string(kMost >> 20) + " MiB");
    }
    left_ -= bytes;
}

namespace {

std::size_t bytes_of(const Value& value) {
    std::size_t bytes = sizeof value + value.text.size();
    for (const Value& item : value.items) bytes += bytes_of(item);
    return bytes;
}

/// Where the data say it is of no use to whom reads the scene.
void stand_at(Value& value, Place place) {
    value.place = value.key_place = place;
    for (Value& item : value.items) stand_at(item, place);
}

}  // namespace

Value Reading::evaluated(const Trail& trail, const Value& written) const {
    if (written.kind == Kind::String) {
        Template parts;
        Value room;
        std::string why;
        read_template(written.text, parts, why);  // which the check has found good
        if (names) names->ask(trail, written.place, parts, scope);
        const Value* value = evaluate(parts, scope, room, why);
        if (!value) refuse(trail, written.place, why);
        budget.spend(trail, written.place, bytes_of(*value));
        Value copy = *value;
        stand_at(copy, written.place);
        return copy;
    }
    budget.spend(trail, written.place, sizeof written + written.text.size());
    Value copy;
    copy.kind = written.kind;
    copy.truth = written.truth;
    copy.text = written.text;
    copy.number = written.number;
    copy.place = written.place;
    copy.sorted = written.sorted;
    int item = 0;
    for (const Value& inner : written.items) {
        const bool named = written.kind == Kind::Object;
        const Trail into = named ? trail.into(inner.key) : trail.into(item);
        Value& made = copy.items.emplace_back(evaluated(into, inner));
        made.key = inner.key;
        ++item;
    }
    return copy;
}

Value Reading::value(const Trail& trail, Type type, const Value& written) const {
    Value value = evaluated(trail, written);
    if (!fits(type, value)) refuse_misfit(trail, type, value);
    return value;
}

std::string Reading::words(const Trail& trail, const Value& written) const {
    if (written.kind != Kind::String) return value(trail, Type::Words, written).text;
    Template parts;
    std::string text, why;
    read_template(written.text, parts, why);
    if (names) names->ask(trail, written.place, parts, scope);
    if (!fill(parts, scope, text, why)) refuse(trail, written.place, why);
    budget.spend(trail, written.place, text.size());
    return text;
}

}  // namespace kit
