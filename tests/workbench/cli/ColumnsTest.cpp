// Tables on a terminal line up whatever letters their cells hold.
#include "workbench/cli/Columns.h"
#include "workbench/text/Letters.h"

#include <gtest/gtest.h>

namespace {

using namespace workbench;
using namespace workbench::cli;

TEST(Columns, AlignsColumnsByLetters) {
    EXPECT_EQ(AlignColumns({{"Türe", "1"}, {"a", "-22.5"}, {"", ""}}, {Align::Left, Align::Right}),
              "Türe      1\na     -22.5\n\n");
    EXPECT_EQ(CountLetters("Größe €"), 7U);
}

} // namespace
