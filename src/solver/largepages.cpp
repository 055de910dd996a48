// SPDX-License-Identifier: MIT
#include "solver/largepages.h"

#include <cstddef>
#include <memory>
#include <sys/mman.h>

// Where the linker lays that data.
extern "C" char __bss_start[]; // NOLINT(bugprone-reserved-identifier)
extern "C" char _end[];        // NOLINT(bugprone-reserved-identifier)

void ask_for_large_pages() {
    constexpr std::size_t large_page = std::size_t{1} << 21;
    void* begin = __bss_start;
    auto bytes = static_cast<std::size_t>(_end - __bss_start);
    if (std::align(large_page, large_page, begin, bytes) != nullptr)
        (void)madvise(begin, bytes / large_page * large_page, MADV_HUGEPAGE);
}
