#include <gtest/gtest.h>

#include "support/test_folder.h"
#include "system/shown_path.h"

namespace marlowick {
namespace {

TEST(ShownPathTest, APathIsShownAndReadAsItStands) {
    const test::TestFolder folder;
    folder.write("game/GameData/x.txt", "");
    const Path written = folder.path("game\\gamedata\\X.TXT");
    EXPECT_EQ(shownPath(written), written.text());
    for (const char* text : {"C:\\Games", "C:/Games/", "\\\\server\\share\\", "ERROR", ""}) {
        EXPECT_EQ(shownPath(Path(text)), text);
        EXPECT_EQ(typedPath(text).text(), text);
    }
}

}  // namespace
}  // namespace marlowick
