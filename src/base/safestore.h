// SPDX-License-Identifier: MIT
//
// safestore: a file that several runs of the program read and change, and that is always whole.
//
// Purpose   reading never writes. A change is read, made and put in place under a lock, so that of
//           two programs neither undoes what the other has done, and a full disk or a sudden end
//           leaves the content before or after it.
// Lock      flock on STORE.lock, which stays there; in a folder in which no file can be made, on
//           the store itself. A lock that cannot be had within a second is a failure.
// Clean     what a program that was killed in the middle of a change has left behind is removed by
//           the next change.
// Errors    are told in words, the system's where it has some; "" for none.
// State     none.
// Callers   prefstore.
#pragma once

#include <functional>
#include <string>

constexpr std::size_t maxstoresize = std::size_t{16} << 20; // bytes; a larger one is not read

// The content; that of a store which does not exist is empty, and no error.
[[nodiscard]] std::string readstore(const std::string& path, std::string& content);

// Makes the new content of the old one and says why it could not. The folder is an empty one for
// its own use and is gone afterwards.
using storechange = std::function<std::string(std::string& content, const std::string& folder)>;

// Changes the store; makes it, and the folders above it, where it does not exist. If change makes
// no difference or says why not, the store is left alone.
[[nodiscard]] std::string changestore(const std::string& path, const storechange& change);
