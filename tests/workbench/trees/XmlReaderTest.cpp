// Documents from outside: which are taken, in which encodings, within which memory, and what the reader finds in them.
#include "workbench/trees/XmlReader.h"

#include <gtest/gtest.h>

#include "support/PeakMemory.h"
#include "support/XmlCases.h"

#include <fstream>
#include <string>

namespace {

namespace Errors = host::Errors;
using namespace std::string_literals;

host::ErrorCode Read(const std::string& document, std::string* text = nullptr) {
    workbench::XmlReadingRole role;
    return support::ReadXml(role, document, text);
}

/// ASCII and "ö" in the encodings of XML files; the reader takes what they declare for UTF-8 by then.
TEST(XmlReader, FilesOfOtherEncodingsAreConverted) {
    const std::string declared = "<?xml version='1.0' encoding='?'?><root>\xF6</root>";
    const auto inEncoding = [&](const char* name) { return std::string(declared).replace(30, 1, name); };
    const std::u16string wide = u"<root>ö</root>";
    const auto widened = [&](bool bigEndian, const std::string& mark) {
        std::string bytes = mark;
        for (const char16_t letter : wide) {
            const char high = static_cast<char>(letter >> 8U), low = static_cast<char>(letter & 0xFFU);
            bytes.append({bigEndian ? high : low, bigEndian ? low : high});
        }
        return bytes;
    };
    const struct {
        const char* name;
        std::string document;
    } cases[] = {
        {"UTF-8", "<root>ö</root>"},
        {"UTF-8 with mark", "\xEF\xBB\xBF<root>ö</root>"},
        {"UTF-8 declared", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><root>ö</root>"},
        {"Latin 1", inEncoding("ISO-8859-1")},
        {"UTF-16 little", widened(false, "")},
        {"UTF-16 big", widened(true, "")},
        {"UTF-16 little with mark", widened(false, "\xFF\xFE")},
        {"UTF-16 big with mark", widened(true, "\xFE\xFF")},
    };
    for (const auto& one : cases) {
        std::string text, document = one.document;
        EXPECT_EQ(workbench::ConvertXmlToUtf8(document), host::NoError) << one.name;
        EXPECT_EQ(Read(document, &text), host::NoError) << one.name;
        EXPECT_EQ(text, "ö") << one.name;
    }
    EXPECT_EQ(Read(inEncoding("UTF-8")), Errors::BadValue);
    std::string text;
    EXPECT_EQ(Read("<?xml version='1.0' encoding='ISO-8859-1'?><root>ö</root>", &text), host::NoError);
    EXPECT_EQ(text, "ö");
    for (const std::string& refused : {"<?xml version='1.0' encoding='EBCDIC'?><root/>"s, "\xFF\xFE<\0r\0o"s,
                                       "\xFE\xFF\0<\xD8\0"s, "<?xml version=\"1.0\" encoding = \"UTF-16\"?><root/>"s}) {
        std::string document = refused;
        EXPECT_EQ(workbench::ConvertXmlToUtf8(document), Errors::BadValue) << refused;
    }
}

/// Largest resident memory of this process, in KiB.
long PeakKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, 6, "VmHWM:") == 0) return std::stol(line.substr(6));
    return -1;
}

TEST(XmlReader, ReadsWithinAGibibyte) {
    constexpr std::size_t Large = 100'000'000;
    workbench::XmlReadingRole role;
    support::ExpectXmlReading(role);
    std::string values = "<root>";
    while (values.size() < Large)
        values += "<list_value><source>Electricity</source></list_value>";
    EXPECT_EQ(Read(values + "</root>"), host::NoError);
    EXPECT_EQ(Read("<root>1</root>"), host::NoError); // the memory is free again
    EXPECT_LT(PeakKiB(), support::GibibyteInKiB);
}

} // namespace
