// SPDX-License-Identifier: MIT
#include "macros/claims.h"

#include "model/cube.h"
#include "model/notation.h"

#include <algorithm>
#include <regex>
#include <set>
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
    for (int place = 0; place < placecount; ++place) {
        if (facenames[place][0] == cubie[i] && upper(facenames[place]) == upper(cubie)) {
            return place;
        }
    }
    throw std::runtime_error("no such cubie: " + cubie);
}

void bring(cubeplaces& places, const std::string& from, const std::string& to) {
    for (std::size_t i = 0; i < from.size(); ++i) {
        places[placeof(to, i)] = placeof(from, i);
    }
}

// One promise, "UF->UB->UR", "UL<>UF" or "UF".
void promise(cubeplaces& places, const std::string& text) {
    static const std::regex cubiename("[ULFRBD]+");
    std::vector<std::string> cubies(std::sregex_token_iterator(text.begin(), text.end(), cubiename),
                                    {});
    if (cubies.size() == 1) {
        cubies.emplace_back(cubies[0].rbegin(), cubies[0].rend());
    }
    for (std::size_t i = 1; i < cubies.size(); ++i) {
        bring(places, cubies[i - 1], cubies[i]);
    }
    if (upper(cubies.front()) != upper(cubies.back())) {
        bring(places, cubies.back(), cubies.front());
    }
}

} // namespace

cubeplaces claimed(const std::string& name) {
    static const std::regex promisetext("[ULFRBD]{2,3}((->|<>)[ULFRBD]{2,3})*");
    cubeplaces places{};
    for (int i = 0; i < placecount; ++i) {
        places[i] = i;
    }
    const std::sregex_iterator end;
    std::sregex_iterator found(name.begin(), name.end(), promisetext);
    if (found == end) {
        throw std::runtime_error("promises nothing: " + name);
    }
    for (; found != end; ++found) {
        promise(places, found->str());
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
    for (int i = 0; i < placecount; ++i) {
        int first = 0;
        while (upper(facenames[first]) != upper(facenames[places[i]])) {
            ++first;
        }
        cubies[i] = first;
    }
    return cubies;
}

std::string net(const cubeplaces& places) {
    std::string text;
    for (int i = 0; i < placecount; ++i) {
        text += i % faceplaces == 0 && i > 0 ? " " : "";
        text += faces[places[i] / faceplaces];
    }
    return text;
}
