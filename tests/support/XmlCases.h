// Which documents every host's reading of XML takes, and what is found in them.
#pragma once

#include "host/Xml.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace support {

/// text  of the root element, where it is wanted
inline host::ErrorCode ReadXml(host::XmlReading& reading, const std::string& document, std::string* text = nullptr) {
    std::unique_ptr<host::DOMReader> reader;
    const host::ErrorCode error = reading.ReadDocument(document, "root", reader);
    EXPECT_EQ(reader != nullptr, error == host::NoError);
    if (reader != nullptr && text != nullptr) *text = reader->ReadText();
    return error;
}

inline void ExpectDocuments(host::XmlReading& reading) {
    using namespace std::string_literals;
    const struct {
        const char* name;
        std::string document;
        std::optional<std::string> text; ///< of the root element; none where the document is refused
    } cases[] = {
        {"plain", "<root>12.5</root>", "12.5"},
        {"empty element", "<root/>", ""},
        {"declaration, comments, instruction", "<?xml version='1.0'?><!--<a>--><?go <b>?><root>1</root><!-- -->\n",
         "1"},
        {"pieces", "<root>1<!-- c -->2<![CDATA[<3>]]>&#52;&lt;<a>x</a>5</root>", "12<3>4<5"},
        {"references", "<root a='&quot;&amp;&#x41;'>&#x20AC;&gt;&apos;&#128512;</root>", "€>'😀"},
        {"blank", "<root> </root>", " "},
        {"blanks around elements", "<root>\n <a/>\n <b> </b></root>", ""},
        {"ends of lines", "<root>1\r\n2\r3</root>", "1\n2\n3"},
        {"letters", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><root>Größe 日本 😀</root>", "Größe 日本 😀"},
        {"mark", "\xEF\xBB\xBF<root>ö</root>", "ö"},
        {"an entity stays as it is", "<!DOCTYPE root [<!ENTITY e '9'>]><root>&e;</root>", "&e;"},
        {"an entity in an attribute, beside what is none",
         "<!DOCTYPE root [<!-- ]> --><!ELEMENT root ANY><!ENTITY e \"]>\">]><root a='&e;'><![CDATA[&e;]]><!--&x;-->&e;"
         "&amp;e;</root>",
         "&e;&e;&e;"},
        {"no text", "", {}},
        {"no XML", "grossFloorArea;12", {}},
        {"another root", "<Root></Root>", {}},
        {"no end", "<root>", {}},
        {"crossed", "<root><a><b></a></b></root>", {}},
        {"two roots", "<root/><root/>", {}},
        {"text after it", "<root/>x", {}},
        {"text before it", "x<root/>", {}},
        {"end too many", "<root></root></root>", {}},
        {"attribute without quotes", "<root a=1/>", {}},
        {"attribute without end", "<root a='1/>", {}},
        {"attributes without a blank", "<root a='1'b='2'/>", {}},
        {"no name", "<root>< a/></root>", {}},
        {"open comment", "<root/><!-- ", {}},
        {"two hyphens in a comment", "<root><!-- a -- b --></root>", {}},
        {"open section", "<root><![CDATA[1</root>", {}},
        {"end of a section outside of one", "<root>]]></root>", {}},
        {"a section after it", "<root/><![CDATA[1]]>", {}},
        {"a zero inside", "<root>1\0</root>"s, {}},
        {"a zero after it", "<root>1</root>\0"s, {}},
        {"no UTF-8", "<root>\xC3</root>", {}},
        {"an encoding without a name", "<?xml version='1.0' encoding=?><root/>", {}},
        {"a lone ampersand", "<root>1 & 2</root>", {}},
        {"an entity that nobody declares", "<root>&e;</root>", {}},
        {"one in an attribute", "<root a='&e;'/>", {}},
        {"an entity that a comment declares", "<!DOCTYPE root [<!-- <!ENTITY e '9'> -->]><root>&e;</root>", {}},
        {"an attribute twice", "<root a='1' a='2'/>", {}},
        {"a tag in an attribute", "<root a='<'/>", {}},
        {"a control character", "<root>\x01</root>", {}},
        {"one in an attribute", "<root a='\x01'/>", {}},
        {"no character", "<root>&#0;</root>", {}},
        {"half a character", "<root>&#xD800;</root>", {}},
        {"one past the last", "<root>&#x110000;</root>", {}},
        {"declaration inside", "<root><?xml version='1.0'?></root>", {}},
        {"declaration after a blank", " <?xml version='1.0'?><root/>", {}},
        {"declaration without version", "<?xml encoding='UTF-8'?><root/>", {}},
        {"a document type without end", "<!DOCTYPE root [<!ENTITY e '9'>", {}},
        {"a document type after the root", "<root/><!DOCTYPE root []>", {}},
        {"two document types", "<!DOCTYPE root []><!DOCTYPE root []><root/>", {}},
        {"text in a document type", "<!DOCTYPE root [x]><root/>", {}},
        {"a document type without a name", "<!DOCTYPE [<!ENTITY e '9'>]><root/>", {}},
        {"an entity without a value", "<!DOCTYPE root [<!ENTITY e>]><root/>", {}},
    };
    for (const auto& one : cases) {
        std::string text;
        EXPECT_EQ(ReadXml(reading, one.document, &text), one.text ? host::NoError : host::Errors::BadValue) << one.name;
        EXPECT_EQ(text, one.text.value_or("")) << one.name;
    }
}

inline void ExpectMovesInDocuments(host::XmlReading& reading) {
    std::unique_ptr<host::DOMReader> owned;
    ASSERT_EQ(reading.ReadDocument("<root><i>1<j>x</j></i>text<k/><i>2</i></root>", "root", owned), host::NoError);
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

inline void ExpectDeepAndGrowingDocuments(host::XmlReading& reading) {
    std::string deep;
    for (int level = 0; level < 100000; ++level)
        deep += "<root>";
    std::string ends;
    for (int level = 0; level < 100000; ++level)
        ends += "</root>";
    EXPECT_EQ(ReadXml(reading, deep + ends), host::NoError);
    EXPECT_EQ(ReadXml(reading, deep), host::Errors::BadValue);
    std::string declarations = "<!ENTITY e0 '0123456789'>";
    for (int n = 1; n < 10; ++n) {
        const std::string former = "&e" + std::to_string(n - 1) + ";";
        declarations += "<!ENTITY e" + std::to_string(n) + " '";
        for (int i = 0; i < 10; ++i)
            declarations += former;
        declarations += "'>";
    }
    std::string text;
    EXPECT_EQ(ReadXml(reading, "<!DOCTYPE root [" + declarations + "]><root>&e9;</root>", &text), host::NoError);
    EXPECT_EQ(text, "&e9;");
}

/// 100 MB of nothing but tags, whose tree takes more memory than is given to one.
inline void ExpectLimitOfDocuments(host::XmlReading& reading) {
    constexpr std::size_t Large = 100'000'000;
    std::string tags = "<root>";
    tags.reserve(Large + 16);
    while (tags.size() < Large)
        tags += "<a/>";
    EXPECT_EQ(ReadXml(reading, tags.append("</root>")), host::Errors::OutOfMemory);
}

/// Cut at each length, a document is nothing; with a byte changed it is nothing or another document.
inline void ExpectDamagedDocuments(host::XmlReading& reading) {
    const std::string whole = "<?xml version='1.0'?><root a='1'><!-- c --><b>&amp;<![CDATA[x]]></b></root>";
    ASSERT_EQ(ReadXml(reading, whole), host::NoError);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_EQ(ReadXml(reading, whole.substr(0, length)), host::Errors::BadValue) << length;
    for (std::size_t place = 0; place < whole.size(); ++place)
        for (const char byte : {'\0', '<', '>', '&', '\'', '/', '\x80', '\xFF'}) {
            std::string damaged = whole;
            damaged[place] = byte;
            const host::ErrorCode error = ReadXml(reading, damaged);
            EXPECT_TRUE(error == host::NoError || error == host::Errors::BadValue);
        }
}

inline void ExpectXmlReading(host::XmlReading& reading) {
    ExpectDocuments(reading);
    ExpectMovesInDocuments(reading);
    ExpectDeepAndGrowingDocuments(reading);
    ExpectLimitOfDocuments(reading);
    ExpectDamagedDocuments(reading);
}

} // namespace support
