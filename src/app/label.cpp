// SPDX-License-Identifier: MIT
#include "app/label.h"

#include <string_view>

namespace {

std::string doubled(const std::string& text, std::string_view marks) {
    std::string label;
    for (const char c : text) {
        label.append(marks.find(c) == std::string_view::npos ? 1 : 2, c);
    }
    return label;
}

} // namespace

std::string boxlabel(const std::string& text) {
    return doubled(text, "@");
}

std::string plainlabel(const std::string& text) {
    return doubled(text, "@&");
}
