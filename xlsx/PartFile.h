// One part of a package while it is written: a buffer in front of a file, every write checked.
#pragma once

#include "platform/Files.h"

#include <memory>
#include <string>
#include <string_view>

namespace Xlsx {

/// A failure stays: what is appended afterwards is dropped and Close answers false.
class PartFile {
public:
    /// file  null when it could not be created, which counts as a failure
    explicit PartFile(std::unique_ptr<platform::OutputFile> file);

    void Append(std::string_view bytes) {
        if (buffer.size() + bytes.size() > buffer.capacity()) Flush();
        buffer += bytes;
    }

    /// Writes what is left and closes the file. True when every byte appended is in it; false on a second call.
    [[nodiscard]] bool Close();

private:
    void Flush();

    std::unique_ptr<platform::OutputFile> file;
    std::string buffer;
    bool hasFailed = false;
};

} // namespace Xlsx
