// Limits of resident memory in tests.
#pragma once

namespace support {

/// A sanitizer's build keeps freed memory for a while and puts zones around the rest: room for that.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr long SanitizerKiB = 512L * 1024;
#else
inline constexpr long SanitizerKiB = 0;
#endif

inline constexpr long GibibyteInKiB = 1024L * 1024 + SanitizerKiB;

} // namespace support
