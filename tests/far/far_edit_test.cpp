#include "far/far_edit.h"

#include <gtest/gtest.h>

#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"

namespace marlowick {
namespace {

using test::errorOf;
using test::little32;

class FarEditTest : public ::testing::Test {
  protected:
    // An edit of an open archive with these names.
    void open(const std::vector<std::string>& names) {
        edit = {};
        for (const std::string& name : names) {
            FarEntry entry;
            entry.FileName = name;
            edit.mudtFarDir.Entries.append(entry);
        }
        edit.mudtFarDir.FileCount = little32(static_cast<unsigned>(names.size()));
        listEntries(edit);
    }

    std::vector<std::string> texts() const {
        std::vector<std::string> all;
        for (const FarRow& row : edit.Rows) {
            all.push_back(row.Text);
        }
        return all;
    }

    std::vector<int> numbers() const {
        std::vector<int> all;
        for (const FarRow& row : edit.Rows) {
            all.push_back(row.Number);
        }
        return all;
    }

    test::TestFolder folder;
    FarEdit edit;
    const Path pictures{"C:\\Pictures"};
};

using Texts = std::vector<std::string>;
using Numbers = std::vector<int>;

TEST_F(FarEditTest, ListsEntriesWithTheirNumbersAndNewFilesWithNegativeOnes) {
    open({"Skins\\a.bmp", "b.bmp"});
    FarAdder adder(edit, pictures);
    EXPECT_EQ(adder.add("New.BMP"), FarAddition::Done);
    EXPECT_EQ(adder.add("other.bmp"), FarAddition::Done);
    EXPECT_EQ(texts(), (Texts{"Skins\\a.bmp", "b.bmp", "[NEW]  New.BMP", "[NEW]  other.bmp"}));
    EXPECT_EQ(numbers(), (Numbers{1, 2, -1, -2}));
    EXPECT_EQ(edit.mudtAddedFiles[1].AddedName, "New.BMP");
    EXPECT_EQ(edit.mudtAddedFiles[1].AddedPath.text(), "C:\\Pictures\\New.BMP");
}

TEST_F(FarEditTest, AFileWithTheTextOfARowIsADuplicateWhateverItsCase) {
    open({"Face.bmp", "\xE9t\xE9.bmp"});
    FarAdder adder(edit, pictures);
    EXPECT_EQ(adder.add("fACE.BMP"), FarAddition::Duplicate);
    EXPECT_EQ(adder.add("\xC9T\xC9.bmp"), FarAddition::Duplicate);
    EXPECT_EQ(edit.Rows.count(), 2);
    EXPECT_EQ(edit.mudtAddedFiles.bound(), 0);
}

TEST_F(FarEditTest, MarksAndFoldersHideANameFromTheDuplicateTest) {
    open({"gone.bmp", "Skins\\deep.bmp"});
    deleteRows(edit, {0});
    FarAdder adder(edit, pictures);
    EXPECT_EQ(adder.add("gone.bmp"), FarAddition::Done);
    EXPECT_EQ(adder.add("deep.bmp"), FarAddition::Done);
    EXPECT_EQ(adder.add("deep.bmp"), FarAddition::Done);
    EXPECT_EQ(texts(), (Texts{"[DEL]  gone.bmp", "Skins\\deep.bmp", "[NEW]  gone.bmp",
                              "[NEW]  deep.bmp", "[NEW]  deep.bmp"}));
    EXPECT_EQ(adder.add("[new]  DEEP.bmp"), FarAddition::Duplicate);
    EXPECT_EQ(adder.add("[del]  gone.BMP"), FarAddition::Duplicate);
}

TEST_F(FarEditTest, ANameThatIsNoFileNameIsNotAdded) {
    FarAdder adder(edit, pictures);
    for (const char* name : {"wh?t.bmp", "a:b.bmp", "con.bmp", ""}) {
        EXPECT_EQ(adder.add(name), FarAddition::NoEntryName) << name;
    }
    EXPECT_TRUE(edit.Rows.empty());
    EXPECT_EQ(edit.mudtAddedFiles.bound(), 0);
}

TEST_F(FarEditTest, DeletingMarksEntriesOnceAndTakesNewRowsOut) {
    open({"a.bmp", "b.bmp", "c.bmp"});
    FarAdder adder(edit, pictures);
    for (const char* name : {"n1.bmp", "n2.bmp", "n3.bmp"}) {
        adder.add(name);
    }
    deleteRows(edit, {1, 3, 5});
    EXPECT_EQ(texts(), (Texts{"a.bmp", "[DEL]  b.bmp", "c.bmp", "[NEW]  n2.bmp"}));
    EXPECT_EQ(numbers(), (Numbers{1, 2, 3, -2}));
    EXPECT_TRUE(edit.mudtFarDir.Entries[2].Deleted);
    EXPECT_FALSE(edit.mudtFarDir.Entries[1].Deleted);
    EXPECT_EQ(edit.mudtAddedFiles.bound(), 3);
    EXPECT_EQ(edit.mudtAddedFiles[1].AddedName, "");
    EXPECT_TRUE(edit.mudtAddedFiles[1].AddedPath.empty());
    EXPECT_EQ(edit.mudtAddedFiles[2].AddedName, "n2.bmp");
    deleteRows(edit, {1});
    EXPECT_EQ(edit.Rows[1].Text, "[DEL]  b.bmp");
    // The numbers of blanks aren't given again.
    FarAdder(edit, pictures).add("n4.bmp");
    EXPECT_EQ(numbers(), (Numbers{1, 2, 3, -2, -4}));
}

TEST_F(FarEditTest, UndeletingBringsTheBareNameBack) {
    open({"Skins\\a.bmp", "b.bmp"});
    FarAdder(edit, pictures).add("[DEL]  x.bmp");
    deleteRows(edit, {0});
    EXPECT_EQ(edit.Rows[0].Text, "[DEL]  Skins\\a.bmp");
    undeleteRows(edit, {0, 1, 2});
    EXPECT_EQ(texts(), (Texts{"Skins\\a.bmp", "b.bmp", "[NEW]  [DEL]  x.bmp"}));
    EXPECT_FALSE(edit.mudtFarDir.Entries[1].Deleted);
}

TEST_F(FarEditTest, KnowsWhetherAnythingIsPending) {
    open({"a.bmp", "b.bmp"});
    EXPECT_FALSE(hasChanges(edit));
    deleteRows(edit, {1});
    EXPECT_TRUE(hasChanges(edit));
    undeleteRows(edit, {1});
    EXPECT_FALSE(hasChanges(edit));
    FarAdder(edit, pictures).add("n.bmp");
    EXPECT_TRUE(hasChanges(edit));
    deleteRows(edit, {2});
    EXPECT_FALSE(hasChanges(edit));
}

TEST_F(FarEditTest, FindsTextsMarksIncludedBlindToCase) {
    open({"Face.bmp", "BODY.bmp", "face2.bmp"});
    deleteRows(edit, {1});
    EXPECT_EQ(findRow(edit, "FACE", 0), 0);
    EXPECT_EQ(findRow(edit, "FACE", 1), 2);
    EXPECT_EQ(findRow(edit, "[del]", 0), 1);
    EXPECT_EQ(findRow(edit, "nobody", 0), -1);
    EXPECT_EQ(nextSearchStart(edit, -1), 0);
    EXPECT_EQ(nextSearchStart(edit, 0), 1);
    EXPECT_EQ(nextSearchStart(edit, 2), 2);
}

TEST_F(FarEditTest, ARowThatIsNotThereIsAnIndexError) {
    open({"a.bmp"});
    EXPECT_EQ(edit.Rows[0].Text, "a.bmp");
    EXPECT_EQ(errorOf([&] { static_cast<void>(edit.Rows[1]); }), 9);
    EXPECT_EQ(errorOf([&] { static_cast<void>(edit.Rows[-1]); }), 9);
    EXPECT_EQ(errorOf([&] { deleteRows(edit, {1}); }), 9);
    EXPECT_EQ(errorOf([&] { undeleteRows(edit, {1}); }), 9);
}

TEST_F(FarEditTest, CountsInSixteenBits) {
    open(std::vector<std::string>(32766, "x"));
    EXPECT_EQ(edit.Rows.count(), 32766);
    FarAdder adder(edit, pictures);
    EXPECT_EQ(errorOf([&] { adder.add("new.bmp"); }), 6);
    EXPECT_EQ(edit.Rows.count(), 32766);
    EXPECT_EQ(errorOf([&] { open(std::vector<std::string>(32767, "x")); }), 6);
    EXPECT_TRUE(edit.Rows.empty());
}

TEST_F(FarEditTest, BlanksCountAmongTheAddedFiles) {
    for (int i = 0; i < 32766; ++i) {
        edit.mudtAddedFiles.append({});
    }
    EXPECT_EQ(errorOf([&] { FarAdder(edit, pictures).add("new.bmp"); }), 6);
    EXPECT_EQ(edit.mudtAddedFiles.bound(), 32766);
}

TEST_F(FarEditTest, ASelectionFollowsItsRowsThroughASave) {
    open({"a", "b", "c", "d"});
    FarAdder(edit, pictures).add("new.bmp");
    deleteRows(edit, {0, 2});
    EXPECT_EQ(rowsAfterSave(edit, {0, 1, 4}), (Numbers{0, 2}));
    EXPECT_EQ(rowsAfterSave(edit, {}), Numbers{});
}

}  // namespace
}  // namespace marlowick
