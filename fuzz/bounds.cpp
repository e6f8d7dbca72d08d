#include "bounds.h"

#include <sanitizer/allocator_interface.h>

#include <cstdio>
#include <cstdlib>

namespace marlowick::fuzz {
namespace {

constexpr std::size_t kAlways = 32U << 20U;  // bytes
constexpr std::size_t kTimes = 8;
constexpr std::clock_t kLongest = CLOCKS_PER_SEC;

bool isWatching = false;
int uncounted = 0;
std::size_t held = 0;
std::size_t limit = 0;

// A block that wasn't counted may be given back while it would be: too little is held then, never
// too much.
void allocated(const volatile void* /*block*/, std::size_t size) {
    if (isWatching && uncounted == 0) {
        held += size;
        if (held > limit) {
            isWatching = false;
            require(false, "more memory than eight times the input and 32 MiB");
        }
    }
}

void givenBack(const volatile void* block) {
    if (isWatching && uncounted == 0 && block != nullptr) {
        const std::size_t size = __sanitizer_get_allocated_size(block);
        held -= size < held ? size : held;
    }
}

}  // namespace

void require(bool condition, const char* words) {
    if (!condition) {
        std::fprintf(stderr, "PROPERTY: %s\n", words);
        std::abort();
    }
}

Bounds::Bounds(std::size_t size) : start_(std::clock()) {
    static const int kInstalled = __sanitizer_install_malloc_and_free_hooks(allocated, givenBack);
    require(kInstalled > 0, "no hooks for memory");
    held = 0;
    limit = kAlways + kTimes * size;
    isWatching = true;
}

Bounds::~Bounds() {
    isWatching = false;
    require(std::clock() - start_ <= kLongest, "more than a second");
}

Uncounted::Uncounted() {
    ++uncounted;
}

Uncounted::~Uncounted() {
    --uncounted;
}

}  // namespace marlowick::fuzz
