// Whether the address sanitizer watches: it replaces the allocator and maps more than any limit on
// memory allows.
#pragma once

namespace orvel_test {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kAddressSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kAddressSanitizer = true;
#else
constexpr bool kAddressSanitizer = false;
#endif
#else
constexpr bool kAddressSanitizer = false;
#endif

}  // namespace orvel_test
