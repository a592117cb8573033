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

// By the host's published table of error codes.
TEST(Errors, HaveTheHostsNumbers) {
    namespace Errors = host::Errors;
    const struct {
        std::uint32_t number;
        host::ErrorCode code;
    } cases[] = {{0x81060001, Errors::General},
                 {0x81060002, Errors::OutOfMemory},
                 {0x81060003, Errors::Cancelled},
                 {0x81060065, Errors::BadId},
                 {0x81060066, Errors::BadIndex},
                 {0x81060067, Errors::BadName},
                 {0x81060068, Errors::BadParameters},
                 {0x8106006A, Errors::BadDatabase},
                 {0x8106006B, Errors::BadWindow},
                 {0x81060070, Errors::BadValue},
                 {0x810600CB, Errors::NoProject},
                 {0x810600CF, Errors::NotEditable},
                 {0x810600D3, Errors::NoTeamworkProject},
                 {0x810600E2, Errors::UndoEmpty},
                 {0x810600E4, Errors::NameAlreadyUsed},
                 {0x8106012E, Errors::Deleted},
                 {0x8106012F, Errors::LockedLayer},
                 {0x81060130, Errors::HiddenLayer},
                 {0x81060132, Errors::NotMine},
                 {0x81060133, Errors::NoAccessRight},
                 {0x81060134, Errors::BadProperty},
                 {0x81060191, Errors::ModuleNotInstalled},
                 {0x81060193, Errors::CommandNotSupported},
                 {0x81060194, Errors::CommandVersionNotSupported},
                 {0x81060388, Errors::RefusedCommand},
                 {0x8106038C, Errors::CommandFailed},
                 {0x8106038D, Errors::NeedsUndoScope}};
    for (const auto& one : cases)
        EXPECT_EQ(one.code, Errors::Code(one.number)) << std::hex << one.number;
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
