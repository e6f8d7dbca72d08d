#include "foundation/list.h"

#include <gtest/gtest.h>

#include <string>

#include "support/error_recorder.h"

namespace marlowick {
namespace {

using test::errorOf;

TEST(ListTest, BeginsWithItsEmptyElementZero) {
    const List<std::string> list;
    EXPECT_EQ(list.bound(), 0);
    EXPECT_EQ(list[0], "");
}

TEST(ListTest, CountsFromOne) {
    List<std::string> list;
    list.append("first");
    EXPECT_EQ(list.bound(), 1);
    EXPECT_EQ(list[1], "first");
}

TEST(ListTest, ChecksEveryIndex) {
    List<int> list;
    EXPECT_EQ(errorOf([&] { list[1] = 0; }), 9);
    EXPECT_EQ(errorOf([&] { list[-1] = 0; }), 9);
    EXPECT_EQ(errorOf([&] { list.resize(-1); }), 9);
}

TEST(ListTest, OverflowsPastSixteenBits) {
    List<int> list;
    list.resize(32766);
    list.appendCounted(1);
    EXPECT_EQ(list.bound(), 32767);
    EXPECT_EQ(errorOf([&] { list.appendCounted(1); }), 6);
    EXPECT_EQ(list.bound(), 32767);
}

}  // namespace
}  // namespace marlowick
