// The linked tables against a reviewed listing of them: expected.txt of the add-on's own, round_trip.txt of
// RoundTrip.grc, whose corners of the syntax the add-on does not use.
#include "Listing.h"

#include "support/ApprovedText.h"

namespace {

TEST(Listing, IsTheReviewedOne) {
    support::ExpectApproved("resources/" KELVARNIX_LISTING, ListResources());
}

TEST(Listing, WhatIsAbsentIsEmpty) {
    const Resources::StringList& list = Resources::AllStringLists()[1];
    for (const int entry : {-1, 0, int(list.entries.size()) + 1})
        EXPECT_EQ(Resources::String(list.id, entry), "") << entry;
    for (const int id : {-1, 0, 9, 32405, 32410, 32689, 32697, 32767}) {
        EXPECT_EQ(Resources::FindStringList(id), nullptr) << id;
        EXPECT_EQ(Resources::FindDialog(id), nullptr) << id;
        EXPECT_EQ(Resources::FindIcon(id), nullptr) << id;
        EXPECT_EQ(Resources::String(id, 1), "") << id;
    }
}

} // namespace
