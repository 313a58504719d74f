// Calls of the library compared with the models, and the random choice of such calls.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "models/canvas_model.h"
#include "orvel.h"
#include "support/random.h"

namespace orvel_test {

using Arguments = std::array<int, 6>;

/// One drawing call on one canvas.
struct DrawingCall {
    int width = 1, height = 1;
    int background = 0;  // 0: as created; 1: cleared; 2 and more: a pattern
    Arguments arguments = {};
    std::string text;
    orvel_color color = {255, 255, 255, 255};
};

/// A drawing function of the library and the model that it must equal.
struct Primitive {
    const char* name;
    int arguments;  // how many of DrawingCall::arguments it takes
    void (*library)(orvel_canvas*, const DrawingCall&);
    void (*model)(model::Canvas&, const DrawingCall&);
    void (*choose)(Random&, DrawingCall&);  // arguments that suit the canvas already chosen
};

extern const Primitive kPixel, kClear, kLine, kRect, kFillRect, kCircle, kDisc, kTriangle,
    kLongTriangle, kText;

/// Makes the call both ways. Empty when every pixel agrees, else what differs and the call in
/// words.
std::string difference(const Primitive& primitive, const DrawingCall& call);

/// Whether the library changes any pixel of the canvas when it makes the call.
bool draws(const Primitive& primitive, const DrawingCall& call);

/// The call with the number @p number of a primitive's sweep.
DrawingCall numbered_call(const Primitive& primitive, std::uint64_t number);

/// Makes the calls 0, 1, 2, ... of a primitive: 100,000 divided by @p share, as support/cases.h has
/// it. Fails at the first difference, with its number.
void sweep(const Primitive& primitive, std::uint64_t share = 1);

}  // namespace orvel_test
