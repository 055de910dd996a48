// SPDX-License-Identifier: MIT
#include "heapcount.h"

#include <cstddef>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#define HEAPCOUNT_HOOKS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define HEAPCOUNT_HOOKS 1
#endif
#endif

namespace {

long calls = 0;

} // namespace

long heapcalls() {
    return calls;
}

// The names of the C library's and the sanitizer's own.

#ifdef HEAPCOUNT_HOOKS

// As in sanitizer/allocator_interface.h, which not every compiler installs.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*,
                                                                  std::size_t),
                                                         void (*)(const volatile void*));

namespace {

void onmalloc(const volatile void*, std::size_t) {
    calls++;
}

void onfree(const volatile void*) {}

const int installed = __sanitizer_install_malloc_and_free_hooks(onmalloc, onfree);

} // namespace

#else

// These take the place of the C library's, which are reached by their other names.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t nmemb, std::size_t size);
void* __libc_realloc(void* ptr, std::size_t size);

void* malloc(std::size_t size) {
    calls++;
    return __libc_malloc(size);
}

void* calloc(std::size_t nmemb, std::size_t size) {
    calls++;
    return __libc_calloc(nmemb, size);
}

void* realloc(void* ptr, std::size_t size) {
    calls++;
    return __libc_realloc(ptr, size);
}
}

#endif
