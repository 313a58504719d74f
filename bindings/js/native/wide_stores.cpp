// wmemset(), by which long runs of pixels are filled. That of emscripten's C library stores a pixel
// at a time.
#include <wasm_simd128.h>

#include <cstddef>
#include <cwchar>

wchar_t* wmemset(wchar_t* to, wchar_t value, std::size_t count) {
    constexpr std::size_t kWide = 4, kBlock = 4 * kWide;
    if (count < kWide) {
        for (std::size_t i = 0; i < count; ++i) to[i] = value;
        return to;
    }
    const v128_t four = wasm_i32x4_splat(value);
    wchar_t* const last = to + count - kWide;  // may overlap what comes before
    wchar_t* at = to;
    for (; count >= kBlock; count -= kBlock, at += kBlock) {
        wasm_v128_store(at, four);
        wasm_v128_store(at + kWide, four);
        wasm_v128_store(at + 2 * kWide, four);
        wasm_v128_store(at + 3 * kWide, four);
    }
    for (; at < last; at += kWide) wasm_v128_store(at, four);
    wasm_v128_store(last, four);
    return to;
}
