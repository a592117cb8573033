// Identifiers, codes and property values.
#include "host/Values.h"
#include "host/Properties.h"

#include <gtest/gtest.h>

namespace {

TEST(Guid, ReadsWhatItWritesAndNothingElse) {
    const std::string text = "{E2ADBC68-AD7B-4AFF-9115-86328A1FBA94}";
    const host::Guid guid = host::ParseGuid(text);
    EXPECT_EQ(guid.bytes[0], 0xE2);
    EXPECT_EQ(guid.bytes[15], 0x94);
    EXPECT_EQ(host::WriteGuid(guid), text);
    EXPECT_EQ(host::ParseGuid("e2adbc68-ad7b-4aff-9115-86328a1fba94"), guid);
    for (const char* bad : {"", "{}", "{E2ADBC68-AD7B-4AFF-9115-86328A1FBA9}", "{E2ADBC68AAD7B-4AFF-9115-86328A1FBA94}",
                            "{E2ADBC68-AD7B-4AFF-9115-86328A1FBA9G}", "E2ADBC68-AD7B-4AFF-9115-86328A1FBA94}"})
        EXPECT_TRUE(host::ParseGuid(bad).IsNull()) << bad;
}

TEST(CommandCode, PutsTheFirstLetterHighest) {
    EXPECT_EQ(host::CommandCode("GRSC"), 0x47525343U);
    EXPECT_EQ(host::CommandCode("SRDT"), 0x53524454U);
}

TEST(Variant, ComparesTheMemberOfItsType) {
    host::Variant a = host::Variant::OfText("5");
    host::Variant b = a;
    b.integer = 7; // not the member of the type
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(host::Variant::OfInteger(1) == host::Variant::OfBoolean(true));
    EXPECT_FALSE(host::Variant::OfReal(1) == host::Variant::OfReal(2));
    EXPECT_TRUE(host::Variant() == host::Variant());
}

} // namespace
