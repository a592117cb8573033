// Cases that stand in a text file beside the tests: "input => answer" lines in sections "[name]", and "# comments".
#pragma once

#include "support/ApprovedText.h"

#include <cstdio>
#include <functional>
#include <map>
#include <sstream>
#include <string>

namespace support {

/// A text on one line: control characters, "\" and bytes that begin no letter of UTF-8 as escapes.
inline std::string Escape(const std::string& text) {
    std::string escaped;
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        if (letter == '\n') {
            escaped += "\\n";
        } else if (byte < 0x20 || letter == '\\' || byte >= 0xF8) {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned>(byte));
            escaped += code;
        } else {
            escaped += letter;
        }
    }
    return escaped;
}

/// The other way round: \n and \xHH.
inline std::string Unescape(const std::string& line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool isEscape = line[i] == '\\' && i + 1 < line.size();
        if (isEscape && line[i + 1] == 'x') {
            text += static_cast<char>(std::stoi(line.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else {
            text += isEscape ? '\n' : line[i];
            i += isEscape ? 1 : 0;
        }
    }
    return text;
}

using Answer = std::function<std::string(const std::string& input)>;

/// Asks for the answer to each input of the approved text, and compares all of it. An empty answer is written as "-".
inline void ExpectAnswers(const std::string& name, const std::map<std::string, Answer>& sections) {
    std::istringstream stream(ApprovedText(name));
    std::string found;
    const Answer* answer = nullptr;
    std::size_t cases = 0;
    for (std::string line; std::getline(stream, line);) {
        const auto section = sections.find(line);
        if (section != sections.end()) answer = &section->second;
        if (line.empty() || line[0] == '#' || section != sections.end()) {
            found += line + "\n";
            continue;
        }
        const std::string input = line.substr(0, line.find(" => "));
        const std::string given = Escape((*answer)(Unescape(input)));
        found.append(input).append(" => ").append(given.empty() ? "-" : given).append("\n");
        ++cases;
    }
    EXPECT_GT(cases, 0U) << name;
    ExpectApproved(name, found);
}

} // namespace support
