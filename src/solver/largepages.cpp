// SPDX-License-Identifier: MIT
#include "solver/largepages.h"

#ifdef __linux__

#include <cstddef>
#include <memory>
#include <sys/mman.h>

// Where the linker lays that data; null with a linker that does not tell.
extern "C" {
[[gnu::weak]] extern char __bss_start[];
[[gnu::weak]] extern char _end[];
}

void ask_for_large_pages() {
#ifdef MADV_HUGEPAGE
    constexpr std::size_t large_page = std::size_t{1} << 21;
    void* begin = __bss_start;
    void* end = _end;
    if (begin == nullptr || end == nullptr) {
        return;
    }
    auto bytes = static_cast<std::size_t>(_end - __bss_start);
    // The large pages that lie wholly inside: what else shares the first and the last is left
    // alone.
    if (std::align(large_page, large_page, begin, bytes) != nullptr) {
        (void)madvise(begin, bytes / large_page * large_page, MADV_HUGEPAGE);
    }
#endif
}

#else

void ask_for_large_pages() {}

#endif
