// SPDX-License-Identifier: MIT
//
// scratch: a home folder of the test's own, and disks that are full or cannot be written.
//
// Devices   lie in that folder too, so that wrong code harms none of the system's.
// Callers   the tests of files, macro files and preferences.
#pragma once

#include <functional>
#include <string>

// While it lives, HOME is an empty folder of its own; afterwards HOME is what it was.
class scratchhome {
  public:
    scratchhome();
    ~scratchhome();
    scratchhome(const scratchhome&) = delete;
    scratchhome& operator=(const scratchhome&) = delete;

    std::string file(const std::string& name) const { return path + "/" + name; }

  private:
    std::string path;
    std::string oldhome;
};

// While it lives, no file can grow beyond so many bytes: writing more fails, as on a full disk.
class fulldisk {
  public:
    explicit fulldisk(long bytes);
    ~fulldisk();
    fulldisk(const fulldisk&) = delete;
    fulldisk& operator=(const fulldisk&) = delete;

  private:
    void (*oldhandler)(int);
};

std::string readfile(const std::string& path);                       // "" if there is none
void writefile(const std::string& path, const std::string& content); // and the folders it needs

// Makes a device like /dev/<name>, where the system lets the test: "null", "zero" or "full".
[[nodiscard]] bool makedevice(const std::string& path, const std::string& name);

void makepipe(const std::string& path); // with a name

int filesin(const std::string& folder); // how many

// Runs work in a process of its own, as a user who owns nothing. Returns whether it came to its end
// and no expectation failed in it.
bool asnobody(const std::function<void()>& work);
