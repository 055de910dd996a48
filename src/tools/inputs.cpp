// SPDX-License-Identifier: MIT
#include "tools/inputs.h"

#include "tools/messages.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

std::string placeof(const asked_line& line) {
    return std::string(line.source) + (line.source == "argument" ? " " : ", line ") +
           std::to_string(line.number);
}

// An overlong line has an empty text, which may be a good macro: its length decides.
bool readasked(const asked_line& line, int form, read_line& to) {
    const bool good = readform(line.text, static_cast<line_form>(form), to);
    if (line.overlong) {
        to.error = {0, "longer than " + std::to_string(longestline) + " bytes"};
    }
    return good && !line.overlong;
}

std::string invalidtext(const read_line& read) {
    return "invalid: " + escaped(notetext(read.error));
}

std::vector<field> errorfields(const read_line& read) {
    std::vector<field> fields = {
        {"error", textfield, read.error.text}
    };
    if (read.error.column != 0) {
        fields.push_back({"column", numberfield, std::to_string(read.error.column)});
    }
    return fields;
}

std::string notelines(const asked_line& line, const read_line& read) {
    std::string lines;
    for (const line_note& note : read.notes) {
        lines +=
            escaped(programname) + ": " + escaped(placeof(line) + ", " + notetext(note)) + "\n";
    }
    return lines;
}

// What was written aside is about the answer that follows it, so that the two go out in order.
void putanswer(const line_answer& answer) {
    if (!answer.aside.empty()) {
        flushanswers();
        std::fputs(answer.aside.c_str(), stderr);
    }
    put(answer.out);
}

void complainoffile(const std::string& name, int reason) {
    flushanswers();
    complain(name + ": " + std::strerror(reason));
}

bool eachargument(const std::vector<std::string>& arguments,
                  const std::function<void(const asked_line&)>& take) {
    std::size_t number = 0;
    for (const std::string& text : arguments) {
        take({"argument", ++number, text.size() > longestline, text});
    }
    return true;
}

namespace {

bool eachlineof(const std::string& file, const std::function<void(const asked_line&)>& take,
                const std::function<void(const line_reader&)>& wait) {
    line_reader reader;
    if (!openlines(reader, file.c_str())) {
        complainoffile(file, errno);
        return false;
    }
    while (true) {
        while (!lineready(reader)) {
            wait(reader); // here and not in nextline: answers of jobs come in meanwhile
            readmore(reader);
        }
        input_line line;
        if (!nextline(reader, line)) {
            break;
        }
        take({reader.name, reader.number, line.overlong, line.text});
    }
    closelines(reader);
    if (reader.failure != 0) {
        complainoffile(reader.name, reader.failure);
    }
    return reader.failure == 0;
}

} // namespace

// A bad file does not end the work, as with other filters: the others are still answered.
bool eachline(const std::vector<std::string>& files,
              const std::function<void(const asked_line&)>& take,
              const std::function<void(const line_reader&)>& wait) {
    if (files.empty()) {
        return eachlineof("-", take, wait);
    }
    bool good = true;
    for (const std::string& file : files) {
        good = eachlineof(file, take, wait) && good;
    }
    return good;
}
