#include "wardrobe/history_words.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/test_folder.h"

namespace marlowick {
namespace {

HistoryRecord recordOf(const std::string& path, const std::string& changes = {}) {
    HistoryRecord record;
    record.path = path;
    record.place = keptPlace(path);
    record.before = stateOf("old");
    record.after = stateOf("new");
    record.changes = changes;
    return record;
}

HistoryEntry entryOf(int number, const std::string& command, const std::string& name,
                     std::vector<HistoryRecord> records) {
    HistoryEntry entry;
    entry.number = number;
    entry.folder = "00000" + std::to_string(number) + " 2026-11-21 14.15.33 " + command;
    entry.when = "2026-11-21 14.15.33";
    entry.isReadable = true;
    entry.about.command = command;
    entry.about.name = name;
    entry.about.records = std::move(records);
    return entry;
}

constexpr const char* kMara = "UserData2\\Characters\\user00007.iff";

TEST(HistoryWordsTest, ACommandHasATitleAndDetails) {
    const HistoryEntry save = entryOf(1, "Save", "Mara Quill", {recordOf(kMara)});
    EXPECT_EQ(titleOf(save), "Save Mara Quill");
    EXPECT_EQ(detailsOf(save), "2026-11-21 14:15:33, UserData2");
    const HistoryEntry repair =
        entryOf(2, "Fix fit to skinny", "",
                {recordOf(kMara), recordOf("UserData2\\Characters\\user00008.iff")});
    EXPECT_EQ(titleOf(repair), "Fix fit to skinny");
    EXPECT_EQ(detailsOf(repair), "2026-11-21 14:15:33, 2 files");
    const HistoryEntry archive =
        entryOf(3, "Save archive", "a.far", {recordOf("gamedata\\textures\\a.far")});
    EXPECT_EQ(detailsOf(archive), "2026-11-21 14:15:33");
    HistoryEntry broken = entryOf(4, "Save", "", {});
    broken.isReadable = false;
    EXPECT_EQ(titleOf(broken), "000004 2026-11-21 14.15.33 Save");
    EXPECT_EQ(detailsOf(broken), "can't be read");
}

TEST(HistoryWordsTest, ChangesAreTheRecordsWordsOrWhatBecameOfTheFile) {
    EXPECT_EQ(changesOf(recordOf(kMara, "Formal: a\nWinter: b\nNude: c"), 2),
              "Formal: a\nWinter: b\nand 1 more");
    EXPECT_EQ(changesOf(recordOf(kMara, "Formal: a\nWinter: b"), 2), "Formal: a\nWinter: b");
    HistoryRecord record = recordOf(kMara);
    EXPECT_EQ(changesOf(record, 2), "changed");
    record.after = std::nullopt;
    EXPECT_EQ(changesOf(record, 2), "deleted");
    record.before = std::nullopt;
    EXPECT_EQ(changesOf(record, 2), "made");
}

TEST(HistoryWordsTest, TheFilterFindsNamesNeighbourhoodsAndFilesBlindToCase) {
    const HistoryEntry entry = entryOf(1, "Save", "Mara Quill", {recordOf(kMara)});
    for (const char* filter :
         {"", "  ", "mara", "QUILL mara", "userdata2", "save quill userdata2", "2026-11-21",
          "UserData2\\characters\\USER00007.IFF", "userdata2/characters/user00007.iff"}) {
        EXPECT_TRUE(fitsFilter(entry, filter)) << filter;
    }
    for (const char* filter : {"Max", "mara max", "UserData\\", "user00008"}) {
        EXPECT_FALSE(fitsFilter(entry, filter)) << filter;
    }
}

TEST(HistoryWordsTest, AnEntryIsTheOpenGamesAMovedOnesOrAnothers) {
    const test::TestFolder folder;
    std::filesystem::create_directories(folder.root() / "another");
    const HistoryPlaces places = historyPlaces();
    HistoryEntry entry = entryOf(1, "Save", "Mara Quill", {recordOf(kMara)});
    entry.about.game = places.game;
    entry.about.neighbourhoods = places.neighbourhoods;
    EXPECT_EQ(gameOfEntry(places, entry), GameOfRecord::Open);
    entry.about.neighbourhoods = folder.path("gone");
    EXPECT_EQ(gameOfEntry(places, entry), GameOfRecord::Moved);
    entry.about.neighbourhoods = folder.path("another");
    EXPECT_EQ(gameOfEntry(places, entry), GameOfRecord::Other);
    entry.about.records.push_back(recordOf("ENS\\x.ens"));
    EXPECT_EQ(gameOfEntry(places, entry), GameOfRecord::Open);
    EXPECT_EQ(gameOfEntry(places, entryOf(2, "Save", "", {recordOf("C:\\x.iff")})),
              GameOfRecord::Other);
}

RestoreItem itemOf(const std::string& path, RestoreStep step) {
    RestoreItem item;
    item.record = recordOf(path);
    item.step = step;
    return item;
}

TEST(HistoryWordsTest, TheQuestionTellsWhatWouldBeDone) {
    const HistoryEntry entry = entryOf(1, "Save", "Mara Quill", {recordOf(kMara)});
    const HistoryEntry later = entryOf(2, "Fix fit to skinny", "", {recordOf(kMara)});
    RestoreItem back = itemOf("UserData\\Characters\\user1.iff", RestoreStep::PutBack);
    back.isChangedSince = true;
    back.later = {2};
    // A file that is gone holds nothing that could go back.
    RestoreItem gone = itemOf("UserData\\Characters\\user2.iff", RestoreStep::MakeAnew);
    gone.isChangedSince = true;
    RestoreItem refused = itemOf("x.iff", RestoreStep::Refused);
    refused.reason = "It is a secret.";
    const std::vector<RestoreItem> plan = {
        back, gone, itemOf("ENS\\new.ens", RestoreStep::Remove),
        itemOf("UserData\\Characters\\user3.iff", RestoreStep::Nothing), refused};
    EXPECT_EQ(restoreQuestion(entry, plan, {later, entry}),
              "Put back as it was before \"Save Mara Quill\" of 2026-11-21 14:15:33:\n"
              "UserData\\Characters\\user1.iff\n\n"
              "Not there any more, to be made anew:\n"
              "UserData\\Characters\\user2.iff\n\n"
              "Made by that command, to be removed:\n"
              "ENS\\new.ens\n\n"
              "Changed since by the game or by somebody; that goes back too:\n"
              "UserData\\Characters\\user1.iff\n\n"
              "What these later commands did to them goes back too:\n"
              "2026-11-21 14:15:33  Fix fit to skinny\n\n"
              "Can not be restored:\n"
              "x.iff: It is a secret.");
}

TEST(HistoryWordsTest, WithoutAnythingToDoThereIsNoQuestion) {
    const HistoryEntry entry = entryOf(1, "Save", "Mara Quill", {recordOf(kMara)});
    RestoreItem refused = itemOf("x.iff", RestoreStep::Refused);
    refused.reason = "No.";
    EXPECT_EQ(restoreQuestion(entry, {refused, itemOf(kMara, RestoreStep::Nothing)}, {entry}), "");
    EXPECT_EQ(nothingToRestore({refused}), "Can not be restored:\nx.iff: No.");
    EXPECT_EQ(nothingToRestore({itemOf(kMara, RestoreStep::Nothing)}),
              "All is as it was before that command already.");
}

TEST(HistoryWordsTest, OfManyFilesTheFirstTenAreNamed) {
    const HistoryEntry entry = entryOf(1, "Fix fit to skinny", "", {});
    const std::vector<RestoreItem> plan(13, itemOf(kMara, RestoreStep::PutBack));
    const std::string question = restoreQuestion(entry, plan, {entry});
    EXPECT_TRUE(question.ends_with("user00007.iff\nand 3 more")) << question;
}

}  // namespace
}  // namespace marlowick
