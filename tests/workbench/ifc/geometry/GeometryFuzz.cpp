// Any bytes as a calculation with shells, profiles and bodies: nothing crashes or runs away, and every measure of what
// comes out is a finite number.
#include <cstdlib>
#include <cstring>
#include <limits>

#include "Script.h"

namespace {

using namespace geometrytest;

constexpr int MostWords = 24;

/// Numbers that make faces meet, and such as no file should hold.
constexpr double Numbers[] = {0.0,  1.0,  2.0,   3.0,  4.0,  5.0,  6.0,   7.0,
                              0.5,  0.25, 0.1,   -1.0, -2.0, -0.5, 3.14,  6.283185307179586,
                              1e-5, 2e-5, 1e-6,  1e-7, 1e-3, 1e7,  1e300, std::numeric_limits<double>::infinity(),
                              8.0,  9.0,  -1e-6, 1.5,  2.5,  10.0, 20.0,  std::numeric_limits<double>::quiet_NaN()};

/// Below 128 a byte is one of the numbers, below 160 it makes a number of the next two, else it is a word by its place.
std::string Decode(const unsigned char* data, std::size_t size) {
    std::ostringstream script;
    script << std::setprecision(17);
    int words = 0;
    for (std::size_t i = 0; i < size && words < MostWords; ++i) {
        if (data[i] >= 160) {
            const auto& all = Script::Words();
            script << std::next(all.begin(), (data[i] - 160) % static_cast<int>(all.size()))->first;
            ++words;
        } else if (data[i] >= 128 && i + 2 < size) {
            std::int16_t thousandths = 0;
            std::memcpy(&thousandths, data + i + 1, sizeof thousandths);
            script << thousandths / 1000.0;
            i += 2;
        } else {
            script << Numbers[data[i] % 32];
        }
        script << ' ';
    }
    return script.str();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    Script script;
    script.Run(Decode(data, size));
    if (!script.HasFiniteMeasures()) std::abort();
    return 0;
}
