// Places in the source and what is wrong there.
#pragma once

#include <stdexcept>
#include <string>

namespace ResourceCompiler {

/// A line of a file as the user named it; lines count from 1.
struct Position {
    std::string file;
    int line = 1;
};

/// What is wrong with the source, thrown inside the compiler only: `Compile` turns it into a result.
/// The text reads "file:line: what is wrong".
class SourceError : public std::runtime_error {
public:
    SourceError(const Position& position, const std::string& whatIsWrong)
        : std::runtime_error(position.file + ":" + std::to_string(position.line) + ": " + whatIsWrong) {}
};

} // namespace ResourceCompiler
