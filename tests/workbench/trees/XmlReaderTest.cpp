// Documents from outside: which are taken, in which encodings, within which memory, and what the reader finds in them.
#include "workbench/trees/XmlReader.h"

#include <gtest/gtest.h>

#include "support/PeakMemory.h"

#include <fstream>
#include <string>

namespace {

namespace Errors = host::Errors;
using namespace std::string_literals;

host::ErrorCode Read(const std::string& document, std::string* text = nullptr) {
    workbench::XmlReadingRole role;
    std::unique_ptr<host::DOMReader> reader;
    const host::ErrorCode error = role.ReadDocument(document, "root", reader);
    EXPECT_EQ(reader != nullptr, error == host::NoError);
    if (reader != nullptr && text != nullptr) *text = reader->ReadText();
    return error;
}

TEST(XmlReader, WholeDocumentsAreTaken) {
    const struct {
        const char* name;
        std::string document;
        std::string text;
    } cases[] = {
        {"plain", "<root>12.5</root>", "12.5"},
        {"empty element", "<root/>", ""},
        {"declaration, comments, instruction", "<?xml version='1.0'?><!--<a>--><?go <b>?><root>1</root><!-- -->\n",
         "1"},
        {"pieces", "<root>1<!-- c -->2<![CDATA[<3>]]>&#52;&lt;<a>x</a>5</root>", "12<3>4<5"},
        {"blank", "<root> </root>", " "},
        {"an entity stays as it is", "<!DOCTYPE root [<!ENTITY e '9'>]><root>&e;</root>", "&e;"},
    };
    for (const auto& one : cases) {
        std::string text;
        EXPECT_EQ(Read(one.document, &text), host::NoError) << one.name;
        EXPECT_EQ(text, one.text) << one.name;
    }
}

TEST(XmlReader, AnythingElseIsNothing) {
    const struct {
        const char* name;
        std::string document;
    } cases[] = {
        {"no text", ""},
        {"no XML", "grossFloorArea;12"},
        {"another root", "<Root></Root>"},
        {"no end", "<root>"},
        {"crossed", "<root><a><b></a></b></root>"},
        {"two roots", "<root/><root/>"},
        {"text after it", "<root/>x"},
        {"text before it", "x<root/>"},
        {"end too many", "<root></root></root>"},
        {"attribute without quotes", "<root a=1/>"},
        {"attribute without end", "<root a='1/>"},
        {"no name", "<root>< a/></root>"},
        {"open comment", "<root/><!-- "},
        {"open section", "<root><![CDATA[1</root>"},
        {"a zero inside", "<root>1\0</root>"s},
        {"a zero after it", "<root>1</root>\0"s},
        {"no UTF-8", "<root>\xC3</root>"},
        {"an encoding without a name", "<?xml version='1.0' encoding=?><root/>"},
        {"a lone ampersand", "<root>1 & 2</root>"},
        {"an entity that nobody declares", "<root>&e;</root>"},
        {"an attribute twice", "<root a='1' a='2'/>"},
        {"a tag in an attribute", "<root a='<'/>"},
        {"a control character", "<root>\x01</root>"},
        {"no character", "<root>&#0;</root>"},
        {"declaration inside", "<root><?xml version='1.0'?></root>"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Read(one.document), Errors::BadValue) << one.name;
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

TEST(XmlReader, MovesFromElementToElement) {
    workbench::XmlReadingRole role;
    std::unique_ptr<host::DOMReader> owned;
    ASSERT_EQ(role.ReadDocument("<root><i>1<j>x</j></i>text<k/><i>2</i></root>", "root", owned), host::NoError);
    host::DOMReader& reader = *owned;
    EXPECT_FALSE(reader.EnterElement("none"));
    ASSERT_TRUE(reader.EnterElement("i"));
    EXPECT_EQ(reader.ReadText(), "1");
    ASSERT_TRUE(reader.EnterElement("j"));
    EXPECT_FALSE(reader.EnterNextElement());
    EXPECT_EQ(reader.ReadText(), "x");
    reader.LeaveElement();
    ASSERT_TRUE(reader.EnterNextElement()); // past an element of another name
    EXPECT_EQ(reader.ReadText(), "2");
    EXPECT_FALSE(reader.EnterNextElement());
    EXPECT_EQ(reader.ReadText(), "2");
    reader.LeaveElement();
    reader.LeaveElement(); // stays at the root
    EXPECT_TRUE(reader.EnterElement("k"));
}

/// Largest resident memory of this process, in KiB.
long PeakKiB() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, 6, "VmHWM:") == 0) return std::stol(line.substr(6));
    return -1;
}

TEST(XmlReader, LargeDocumentsStayWithinTheLimit) {
    constexpr std::size_t Large = 100000000;
    std::string tags = "<root>", values = "<root>";
    while (tags.size() < Large)
        tags += "<a/>";
    EXPECT_EQ(Read(tags + "</root>"), Errors::OutOfMemory);
    tags = std::string();
    while (values.size() < Large)
        values += "<list_value><source>Electricity</source></list_value>";
    EXPECT_EQ(Read(values + "</root>"), host::NoError);
    EXPECT_EQ(Read("<root>1</root>"), host::NoError); // the memory is free again
    EXPECT_LT(PeakKiB(), support::GibibyteInKiB);
}

TEST(XmlReader, DeepDocumentsAndEntitiesThatGrow) {
    std::string deep;
    for (int level = 0; level < 100000; ++level)
        deep += "<root>";
    std::string ends;
    for (int level = 0; level < 100000; ++level)
        ends += "</root>";
    EXPECT_EQ(Read(deep + ends), host::NoError);
    EXPECT_EQ(Read(deep), Errors::BadValue);
    std::string declarations = "<!ENTITY e0 '0123456789'>";
    for (int n = 1; n < 10; ++n) {
        const std::string former = "&e" + std::to_string(n - 1) + ";";
        declarations += "<!ENTITY e" + std::to_string(n) + " '";
        for (int i = 0; i < 10; ++i)
            declarations += former;
        declarations += "'>";
    }
    std::string text;
    EXPECT_EQ(Read("<!DOCTYPE root [" + declarations + "]><root>&e9;</root>", &text), host::NoError);
    EXPECT_EQ(text, "&e9;");
}

/// Cut at each length, a document is nothing; with a byte changed it is nothing or another document.
TEST(XmlReader, DamagedDocuments) {
    const std::string whole = "<?xml version='1.0'?><root a='1'><!-- c --><b>&amp;<![CDATA[x]]></b></root>";
    ASSERT_EQ(Read(whole), host::NoError);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(Read(whole.substr(0, length)), Errors::BadValue) << length;
    for (std::size_t place = 0; place < whole.size(); ++place)
        for (const char byte : {'\0', '<', '>', '&', '\'', '/', '\x80', '\xFF'}) {
            std::string damaged = whole;
            damaged[place] = byte;
            const host::ErrorCode error = Read(damaged);
            EXPECT_TRUE(error == host::NoError || error == Errors::BadValue);
        }
}

} // namespace
