// The schema for editors is made from the reader's own tables.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "orvel.h"
#include "screen/kinds.h"
#include "screen/look.h"
#include "screen/values.h"
#include "support/files.h"
#include "support/golden.h"

namespace {

using Json = nlohmann::ordered_json;
using kit::Type;

constexpr const char* kFile = ORVEL_SOURCE_DIR "/share/schemas/orvel-scene-1.json";
constexpr const char* kName = "([0-9A-Za-z_-]|[^\\u0000-\\u007f])+";

Json named(const char* name) { return {{"$ref", std::string("#/definitions/") + name}}; }
Json either(Json a, Json b) { return {{"anyOf", {std::move(a), std::move(b)}}}; }
Json or_reference(Json value) { return either(std::move(value), named("reference")); }
Json whole(long long low, long long high) {
    return {{"type", "integer"}, {"minimum", low}, {"maximum", high}};
}
Json list(Json item) { return {{"type", "array"}, {"items", std::move(item)}}; }
Json list(Json item, int count) {
    Json schema = list(std::move(item));
    schema["minItems"] = schema["maxItems"] = count;
    return schema;
}
Json text(const std::string& pattern) { return {{"type", "string"}, {"pattern", pattern}}; }

template <typename Names>
Json one_of(const Names& names) {
    Json schema = {{"enum", Json::array()}};
    for (const auto& name : names) schema["enum"].push_back(std::string(name));
    return schema;
}

std::vector<std::string> icons() {
    int count = 0;
    const char** const names = orvel_icon_list(&count);
    return {names, names + count};
}

const std::string& path_pattern() {
    static const std::string pattern = std::string(kName) + "(\\." + kName + "|\\[[0-9]+\\])*";
    return pattern;
}

Json range() {
    const Json number = or_reference({{"type", "number"}});
    const Json step = or_reference({{"type", "number"}, {"exclusiveMinimum", 0}});
    return {{"type", "array"},
            {"items", {number, number, step}},
            {"additionalItems", false},
            {"minItems", 2}};
}

Json theme() {
    Json roles = Json::object();
    for (const auto role : kit::role_names()) {
        if (role != "quiet") roles[std::string(role)] = or_reference(named("hex"));
    }
    return either({{"type", "string"}},
                  {{"type", "object"}, {"properties", roles}, {"additionalProperties", false}});
}

Json series() {
    const Json values = or_reference(list(or_reference({{"type", {"number", "null"}}})));
    Json one = {{"type", "object"}, {"required", {"values"}}, {"additionalProperties", false}};
    one["properties"] = {
        {"values", values}, {"name", {{"type", {"string", "number"}}}}, {"color", named("color")}};
    Json all = list(or_reference(one));
    all["maxItems"] = 32;
    return all;
}

/// What a value of a type may be, but for references.
Json plain(Type type) {
    const Json side = or_reference(named("side"));
    switch (type) {
    case Type::Anything: return Json::object();
    case Type::Nodes: return list(named("node"));
    case Type::Node: return either(named("node"), {{"type", "null"}});
    case Type::Nothing: return {{"enum", {nullptr, true}}};
    case Type::Room: return either(named("side"), {{"type", "null"}});
    case Type::Words: return {{"type", {"string", "number"}}};
    case Type::Items: return list(or_reference(either(text("^[^|]*$"), {{"type", "number"}})));
    case Type::Number: return {{"type", "number"}};
    case Type::Numbers: return list(or_reference({{"type", {"number", "null"}}}));
    case Type::Truth: return {{"type", "boolean"}};
    case Type::Side:
    case Type::Whole: return named("side");
    case Type::Length: return whole(1, kit::kMostSide);
    case Type::Digit: return whole(0, 9);
    case Type::Index: return whole(-2147483647, 2147483647);
    case Type::Scalar: return {{"type", {"string", "number", "boolean"}}};
    case Type::Pad: return {{"anyOf", {named("side"), list(side, 2), list(side, 4)}}};
    case Type::Gap: return either(named("side"), list(side, 2));
    case Type::Bounds: return either(named("side"), list(either(side, {{"type", "null"}}), 2));
    case Type::Range: return range();
    case Type::Color: return named("color");
    case Type::Theme: return theme();
    case Type::Face: return {{"type", "string"}};
    case Type::Icon: return one_of(icons());
    case Type::Align:
    case Type::Side3:
    case Type::Justify:
    case Type::Shape: return one_of(kit::choices_of(type));
    case Type::Scroll: return either({{"type", "boolean"}}, named("side"));
    case Type::Series: return series();
    case Type::Name: return text("^" + std::string(kName) + "$");
    case Type::Where: return text("^" + path_pattern() + "$");
    case Type::Condition:
        return text("^ *(!" + path_pattern() + "|" + path_pattern() +
                    "( *(==|!=|<=|>=|<|>) *('.*'|true|false|null|-?(0|[1-9][0-9]*)(\\.[0-9]+)?"
                    "([eE][+-]?[0-9]+)?))?) *$");
    case Type::File: return text("^(?!\\.\\.?(/|$))[^\\\\:/]+(/(?!\\.\\.?(/|$))[^\\\\:/]+)*$");
    case Type::Shortcut:
        return text(
            "^(ctrl\\+)?(alt\\+)?(shift\\+)?(space|enter|tab|escape|backspace|delete|left|"
            "right|up|down|home|end|pageup|pagedown|f[1-9]|f1[0-2]|"
            "[^\\u0000-\\u0020A-Z\\u007f])$");
    case Type::With: return {{"type", "object"}};
    }
    return {};
}

Json schema_of(Type type) {
    const bool nodes = type == Type::Nodes || type == Type::Node;
    Json schema = plain(type);
    if (!nodes && !kit::as_written(type)) schema = or_reference(std::move(schema));
    if (type != Type::Anything) schema["description"] = std::string(kit::expected(type));
    return schema;
}

/// Each type once, called like the first key or kind that takes it.
class Types {
public:
    Json reference(Type type, std::string_view kind, std::string_view key) {
        if (type == Type::Anything) return Json::object();
        auto [at, first] = names_.try_emplace(type, "like_" + std::string(key));
        if (first) {
            if (definitions.contains(at->second)) at->second += "_of_" + std::string(kind);
            definitions[at->second] = schema_of(type);
        }
        return named(at->second.c_str());
    }

    Json definitions = Json::object();

private:
    std::map<Type, std::string> names_;
};

Json schema_of(std::string_view name, Types& types) {
    const kit::KindSpec& kind = *kit::kind_named(name);
    Json properties = {{std::string(name), types.reference(kind.value, name, name)}};
    for (const auto key : kit::key_names(kind.keys)) {
        const Type type = kit::key_named(key, kind.keys)->type;
        properties[std::string(key)] = types.reference(type, name, key);
    }
    Json dependencies = {{"as", {"each"}}};
    if (properties.contains("lines")) dependencies["lines"] = {"wrap"};
    if (properties.contains("items")) dependencies["selected"] = {"items"};
    if (properties.contains("value")) {
        const Json choice = {{"required", {"selected"}}, {"not", {{"required", {"on"}}}}};
        dependencies["value"] = choice;
        dependencies["selected"] = {"value"};
    }
    if (properties.contains("series")) {
        const Json lost = {{{"required", {"values"}}}, {{"required", {"color"}}}};
        dependencies["series"] = {{"not", {{"anyOf", lost}}}};
    }
    return {{"type", "object"},
            {"required", {std::string(name)}},
            {"properties", properties},
            {"dependencies", dependencies},
            {"additionalProperties", false}};
}

Json definitions() {
    Json all = {{"reference", text("\\$\\{")},
                {"side", whole(0, kit::kMostSide)},
                {"hex", text("^#[0-9a-fA-F]{6}$")}};
    all["color"] = either(named("hex"), one_of(kit::role_names()));
    Json kinds = Json::array();
    for (const auto name : kit::kind_names()) kinds.push_back(named(std::string(name).c_str()));
    all["node"] = {{"anyOf", kinds}};
    Types types;
    for (const auto name : kit::kind_names()) all[std::string(name)] = schema_of(name, types);
    all.update(types.definitions);
    return all;
}

Json scene_schema() {
    const Json once = {{"not", {{"anyOf", {{{"required", {"if"}}}, {{"required", {"each"}}}}}}}};
    Json schema = {{"$schema", "http://json-schema.org/draft-07/schema#"},
                   {"title", "A scene of OrvelSDK, version 1"},
                   {"type", "object"},
                   {"required", {"orvel", "root"}},
                   {"additionalProperties", false}};
    schema["properties"] = {{"//", Json::object()},
                            {"$schema", Json::object()},
                            {"orvel", {{"const", 1}, {"description", "the version of the format"}}},
                            {"size", list(whole(1, kit::kMostSide), 2)},
                            {"theme", schema_of(Type::Theme)},
                            {"face", schema_of(Type::Face)},
                            {"sample", {{"type", "object"}}},
                            {"root", {{"allOf", {named("node"), once}}}}};
    schema["definitions"] = definitions();
    return schema;
}

TEST(SchemaTest, TheDeliveredSchemaIsThatOfTheReadersTables) {
    const std::string schema = scene_schema().dump(1, ' ') + "\n";
    if (orvel_test::is_renewed("schema", "schema")) orvel_test::write_file(kFile, schema);
    EXPECT_TRUE(orvel_test::read_file(kFile) == schema)
        << kFile
        << " is not what kit/screen/kinds.cpp says; ORVEL_UPDATE_GOLDEN=schema writes it anew";
}

TEST(SchemaTest, TheManualTellsEveryKindAndEveryKey) {
    const std::string page = orvel_test::read_file(ORVEL_SOURCE_DIR "/docs/pages/scenes.md");
    auto names = kit::key_names(~0U);
    const auto kinds = kit::kind_names();
    names.insert(names.end(), kinds.begin(), kinds.end());
    for (const auto name : names) {
        const std::string quoted = name == "//" ? "`\"//\"`" : "`" + std::string(name) + "`";
        EXPECT_NE(page.find(quoted), std::string::npos) << quoted;
    }
    for (const auto role : kit::role_names()) {
        EXPECT_NE(page.find("`" + std::string(role) + "`"), std::string::npos) << role;
    }
}

}  // namespace
