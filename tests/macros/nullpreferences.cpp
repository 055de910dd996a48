// SPDX-License-Identifier: MIT
#include "macros/nullpreferences.h"

#include "macros/preferences.h"

std::vector<std::string> preferencecalls;
std::set<std::string> storednames;

void resetpreferences() {
    preferencecalls.clear();
    storednames.clear();
}

void readprefs() {
    preferencecalls.emplace_back("readprefs()");
}

void writeprefs() {
    preferencecalls.emplace_back("writeprefs()");
}

void addprefmacro(const char* name, const char* text) {
    preferencecalls.push_back(std::string("addprefmacro(") + name + ", " + text + ")");
}

int isprefmacro(const char* name) {
    return storednames.contains(name) ? 1 : 0;
}

int deleteprefmacro(const char* name) {
    preferencecalls.push_back(std::string("deleteprefmacro(") + name + ")");
    return static_cast<int>(storednames.erase(name));
}

void addgizmomac(const char* name) {
    preferencecalls.push_back(std::string("addgizmomac(") + name + ")");
}

void deletegizmomac(const char* name) {
    preferencecalls.push_back(std::string("deletegizmomac(") + name + ")");
}

void deleteallgizmoprefs() {
    preferencecalls.emplace_back("deleteallgizmoprefs()");
}
