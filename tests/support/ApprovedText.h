// Long expected texts, kept as files that somebody has read and approved. A test never approves anything: what it found
// instead stays in the build folder, and tools/accept_texts puts it in place of the approved text for a review.
#pragma once

#include "support/TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace support {

/// The first line in which two texts differ, with its number, as each of them has it.
inline std::string FirstDifference(const std::string& approved, const std::string& found) {
    const auto line = std::count(
        found.begin(), std::mismatch(found.begin(), found.end(), approved.begin(), approved.end()).first, '\n');
    const auto lineOf = [line](std::string text) {
        std::size_t start = 0;
        for (auto i = line; i > 0 && start < text.size(); --i)
            start = std::min(text.find('\n', start), text.size() - 1) + 1;
        return text.substr(start, text.find('\n', start) - start);
    };
    return "line " + std::to_string(line + 1) + "\napproved: " + lineOf(approved) + "\nfound:    " + lineOf(found);
}

/// Names are paths below tests/, as "xlsx/approved/charts.txt".
inline std::string ApprovedText(const std::string& name) {
    return ContentOf(KELVARNIX_SOURCE_DIR "/tests/" + name);
}

/// The text with what differs from run to run replaced: in the pattern "#" stands for a digit, "?" for any letter.
inline std::string Masked(std::string text, std::string_view pattern, std::string_view mask) {
    const auto fits = [](char letter, char wanted) {
        return wanted == '?' || wanted == letter || (wanted == '#' && letter >= '0' && letter <= '9');
    };
    for (auto at = text.begin();;) {
        at = std::search(at, text.end(), pattern.begin(), pattern.end(), fits);
        if (at == text.end()) return text;
        const auto start = at - text.begin();
        text.replace(static_cast<std::size_t>(start), pattern.size(), mask);
        at = text.begin() + start + static_cast<std::ptrdiff_t>(mask.size());
    }
}

inline void ExpectApproved(const std::string& name, const std::string& found) {
    const std::string approved = ApprovedText(name);
    const std::filesystem::path received = KELVARNIX_BIN_DIR "/../received/tests/" + name;
    std::filesystem::remove(received);
    if (approved == found) return;
    std::filesystem::create_directories(received.parent_path());
    std::ofstream(received, std::ios::binary) << found;
    ADD_FAILURE() << name << ", " << FirstDifference(approved, found);
}

} // namespace support
