// Where the compressor takes its bytes from and where it leaves them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace zip {

class ByteSource {
public:
    virtual ~ByteSource() = default;
    /// Number of bytes read, fewer than asked only at the end; none after a failure.
    [[nodiscard]] virtual std::optional<std::size_t> Read(std::uint8_t* data, std::size_t sizeBytes) = 0;
};

class ByteSink {
public:
    virtual ~ByteSink() = default;
    /// Takes all of it or answers false.
    [[nodiscard]] virtual bool Write(const std::uint8_t* data, std::size_t sizeBytes) = 0;
};

} // namespace zip
