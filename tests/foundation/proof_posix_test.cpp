#include <gtest/gtest.h>

#include "foundation/proof.h"
#include "support/test_folder.h"

namespace marlowick {
namespace {

TEST(ProofTest, AReportNamesTheFileAsPeopleOfThisSystemWriteIt) {
    const test::TestFolder folder;
    folder.write("game/UserData/Characters/User1.iff", "x");
    const RuntimeError failure =
        notProven(folder.path("game\\userdata\\characters\\user1.iff"), "Row 2 differs.");
    EXPECT_EQ(failure.number(), 321);
    EXPECT_EQ(failure.description(), "Invalid file format\r\n" + folder.game().string() +
                                         "/UserData/Characters/User1.iff\r\nRow 2 differs.");
}

}  // namespace
}  // namespace marlowick
