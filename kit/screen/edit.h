// Scenes that are changed by calls.
#pragma once

#include "screen/document.h"
#include "screen/refusal.h"

namespace kit {

/// The value that @p json writes; refuses what is none, calling it @p name. It stands nowhere.
Value fragment(const char* json, const char* name);

/* Each refuses an id that no node of the scene has. */

void add_node(Value& scene, const Source& source, const char* parent, int at, Value node);
void remove_node(Value& scene, const Source& source, const char* id);
/// Without a value, the key goes. No id stands for the scene itself.
void change_node(Value& scene, const Source& source, const char* id, const char* key,
                 const Value* value);

}  // namespace kit
