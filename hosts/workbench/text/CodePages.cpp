#include "workbench/text/CodePages.h"

#include <iconv.h>

namespace workbench {

namespace {

constexpr std::string_view Replacement = "\xEF\xBF\xBD";

enum class BadBytes { Refused, Replaced };

class Converter {
public:
    explicit Converter(const std::string& codePage) : descriptor(iconv_open("UTF-8", codePage.c_str())) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsOpen()) iconv_close(descriptor);
    }

    bool IsOpen() const {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): how the C library says that it does not know the name
        return descriptor != reinterpret_cast<iconv_t>(-1);
    }

    /// None where a byte is no text and is to be kept; else U+FFFD stands in its place.
    std::optional<std::string> Convert(std::string_view bytes, BadBytes badBytes) const {
        std::string text(4 * bytes.size() + 16, '\0'); // U+FFFD takes three
        char* in = const_cast<char*>(bytes.data());    // read only, by a function older than const
        char* out = text.data();
        std::size_t inLeft = bytes.size(), outLeft = text.size();
        while (iconv(descriptor, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) {
            if (badBytes == BadBytes::Refused || outLeft < 4) return std::nullopt;
            ++in;
            --inLeft;
            outLeft -= Replacement.copy(out, Replacement.size());
            out += Replacement.size();
        }
        text.resize(text.size() - outLeft);
        return text;
    }

private:
    iconv_t descriptor;
};

} // namespace

bool IsKnownCodePage(const std::string& name) {
    return Converter(name).IsOpen();
}

std::optional<std::string> DecodeText(const std::string& codePage, std::string_view bytes) {
    const Converter converter(codePage);
    return converter.IsOpen() ? converter.Convert(bytes, BadBytes::Refused) : std::nullopt;
}

std::string DecodeTextSomehow(const std::string& codePage, std::string_view bytes) {
    const Converter converter(codePage);
    if (converter.IsOpen())
        if (std::optional<std::string> text = converter.Convert(bytes, BadBytes::Replaced)) return *std::move(text);
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        text += Replacement;
    return text;
}

} // namespace workbench
