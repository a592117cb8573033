#include "workbench/app/Text.h"

#include "lca/Numbers.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace workbench {

namespace {

/// Where a link leads, so that writing keeps the link.
std::filesystem::path ResolveTarget(const std::string& path) {
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(path, error);
    return error ? std::filesystem::path(path) : resolved;
}

bool WriteBytes(const std::filesystem::path& path, const std::string& content) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) return false;
    const bool isWritten = std::fwrite(content.data(), 1, content.size(), file) == content.size();
    return std::fclose(file) == 0 && isWritten;
}

bool TryWriteFile(const std::string& path, const std::string& content) {
    std::error_code error;
    if (std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error))
        return WriteBytes(path, content);
    const std::filesystem::path target = ResolveTarget(path);
    const std::filesystem::path unfinished = target.string() + ".new-" + std::to_string(getpid());
    if (WriteBytes(unfinished, content)) {
        std::filesystem::rename(unfinished, target, error);
        if (!error) return true;
    }
    std::filesystem::remove(unfinished, error);
    return false;
}

} // namespace

bool MatchesPattern(std::string_view text, std::string_view pattern) {
    std::size_t t = 0, p = 0, star = std::string_view::npos, resume = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = t;
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

Result<std::string> ReadFile(const std::string& path, const std::string& advice) {
    std::error_code error;
    std::ifstream file(path, std::ios::binary);
    if (file && !std::filesystem::is_directory(path, error)) {
        std::string content{std::istreambuf_iterator<char>(file), {}};
        if (!file.bad()) return content;
    }
    return Failure::Input(path + ": " + advice);
}

Outcome WriteFile(const std::string& path, const std::string& content) {
    if (TryWriteFile(path, content)) return Outcome::Done();
    return Failure::Output(path + ": the file cannot be written; check the folder, its rights and the disk");
}

std::string PutOnOneLine(std::string text) {
    const auto isBreak = [](char letter) { return letter == '\n' || letter == '\r'; };
    std::replace_if(text.begin(), text.end(), isBreak, ' ');
    return text;
}

std::string FormatShort(double value, int decimals) {
    std::string text = lca::WriteFixed(value, decimals);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    return text;
}

} // namespace workbench
