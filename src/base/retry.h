// SPDX-License-Identifier: MIT
//
// retry: system calls that a signal may break off.
//
// Callers   the files of this folder.
#pragma once

#include <cerrno>

// Makes a call that answers -1 for a failure, again and again while a signal breaks it off.
template <typename call_type> [[nodiscard]] auto retry(const call_type& call) {
    auto answer = call();
    while (answer == -1 && errno == EINTR) {
        answer = call();
    }
    return answer;
}
