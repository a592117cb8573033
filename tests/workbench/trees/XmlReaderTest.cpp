// Documents from outside: which are taken, in which encodings, within which memory, and what the reader finds in them.
#include "workbench/trees/XmlReader.h"

#include "support/Answers.h"
#include "support/PeakMemory.h"
#include "support/XmlCases.h"

#include <fstream>
#include <string>

namespace {

host::ErrorCode Read(const std::string& document, std::string* text = nullptr) {
    workbench::XmlReadingRole role;
    return support::ReadXml(role, document, text);
}

std::string ReadText(const std::string& document) {
    std::string text;
    return Read(document, &text) == host::NoError ? text : "bad value";
}

std::string ReadFile(const std::string& bytes) {
    std::string document = bytes;
    return workbench::ConvertXmlToUtf8(document) == host::NoError ? ReadText(document) : "bad value";
}

TEST(XmlReader, FilesOfOtherEncodingsAreConverted) {
    support::ExpectAnswers("workbench/trees/expected/encodings.txt", {{"[file]", ReadFile}, {"[text]", ReadText}});
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
