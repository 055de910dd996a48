// SPDX-License-Identifier: MIT
#include "model/singmaster.h"

#include "model/notation.h"
#include "shell.h"

#include <string>

// A mark is dropped like all that is no letter once its letter has looked at it, and so is the 2 of
// "R'2". The line is read to the "]" before anything is written, so that a failure changes nothing.
int parsesingmaster() {
    const char* c = macroline();
    std::string plain;
    for (; *c != '\0' && *c != ']'; c++) {
        if (istwist(*c) == 0) {
            continue;
        }
        plain += c[1] == '\'' ? flipcase(*c) : *c;
        if (c[1] == '2') {
            plain += *c;
        }
    }
    if (*c != ']') {
        return 0;
    }
    setmacroline(plain.c_str());
    loadout(plain.c_str());
    return 1;
}
