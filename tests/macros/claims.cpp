// SPDX-License-Identifier: MIT
#include "macros/claims.h"

#include "model/cube.h"
#include "model/parser.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace {

std::multiset<char> upper(const std::string& name) {
    std::multiset<char> letters;
    for (const char c : name) {
        letters.insert(c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c);
    }
    return letters;
}

// The place of the sticker at position i of a cubie's name.
int placeof(const std::string& cubie, std::size_t i) {
    for (int place = 0; place < placecount; place++) {
        if (facenames[place][0] == cubie[i] && upper(facenames[place]) == upper(cubie)) {
            return place;
        }
    }
    throw std::runtime_error("no such cubie: " + cubie);
}

void bring(cubeplaces& places, const std::string& from, const std::string& to) {
    for (std::size_t i = 0; i < from.size(); i++) {
        places[placeof(to, i)] = placeof(from, i);
    }
}

// The cubies named in a text: its runs of two or three face letters.
std::vector<std::string> cubiesin(const std::string& text) {
    std::vector<std::string> cubies;
    for (std::size_t i = 0; i < text.size(); i++) {
        const std::size_t end = std::min(text.find_first_not_of(faces, i), text.size());
        if (end - i >= 2) {
            cubies.push_back(text.substr(i, end - i));
        }
        i = std::max(end, i);
    }
    return cubies;
}

// One promise, "UF->UB->UR", "UL<>UF" or "UF".
void promise(cubeplaces& places, const std::string& text) {
    std::vector<std::string> cubies = cubiesin(text);
    if (cubies.empty()) {
        throw std::runtime_error("promises nothing: " + text);
    }
    if (cubies.size() == 1) {
        cubies.emplace_back(cubies[0].rbegin(), cubies[0].rend());
    }
    for (std::size_t i = 1; i < cubies.size(); i++) {
        bring(places, cubies[i - 1], cubies[i]);
    }
    if (upper(cubies.front()) != upper(cubies.back())) {
        bring(places, cubies.back(), cubies.front());
    }
}

} // namespace

cubeplaces claimed(const std::string& name) {
    cubeplaces places{};
    for (int i = 0; i < placecount; i++) {
        places[i] = i;
    }
    std::istringstream parts(name);
    for (std::string part; std::getline(parts, part, ',');) {
        promise(places, part);
    }
    return places;
}

cubeplaces madeby(const std::string& moves) {
    initcubies();
    parsing = 0;
    parsestring(moves.c_str(), static_cast<int>(moves.size()));
    cubeplaces places{};
    std::copy(cubefaces, cubefaces + placecount, places.begin());
    return places;
}

cubeplaces cubiesof(const cubeplaces& places) {
    cubeplaces cubies{};
    for (int i = 0; i < placecount; i++) {
        int first = 0;
        while (upper(facenames[first]) != upper(facenames[places[i]])) {
            first++;
        }
        cubies[i] = first;
    }
    return cubies;
}

std::string net(const cubeplaces& places) {
    std::string text;
    for (int i = 0; i < placecount; i++) {
        text += i % faceplaces == 0 && i > 0 ? " " : "";
        text += faces[places[i] / faceplaces];
    }
    return text;
}
