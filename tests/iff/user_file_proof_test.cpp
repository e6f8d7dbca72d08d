#include "iff/user_file_proof.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "iff/safe_rewrite.h"
#include "support/error_recorder.h"
#include "support/quick_disk.h"
#include "support/sweep_step.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"
#include "system/files.h"
#include "system/streams.h"

namespace marlowick {
namespace {

using std::string_literals::operator""s;
using test::fileHead;
using test::mapRow;
using test::mapType;
using test::segment;
using test::stringTable;

class UserFileProofTest : private test::QuickDisk, public ::testing::Test {
  protected:
    // Reads content as a sim or pet whose rows are then changed by change, and keeps the record as
    // it was loaded.
    void load(const std::string& content,
              const std::function<void(StrSegment& rows)>& change = {}) {
        folder.write("game/in.iff", content);
        gsResetIFF(record);
        ASSERT_EQ(gfstrQuickReadIFF(record, folder.path("game\\in.iff")), "");
        loaded = record;
        rows = {};
        ASSERT_TRUE(readWardrobeTable(record, rows));
        if (change) {
            change(rows);
        }
    }

    // Writes the record as the commands do.
    enum class Command { Repair, Sim, Pet };
    void save(Command command) {
        if (command == Command::Sim) {
            for (int i = 1; i <= record.Segments.bound(); ++i) {
                record.Segments[i].Label = padded(record.Segments[i].Label);
            }
        }
        ASSERT_TRUE(writeWardrobeTable(record, rows));
        std::filesystem::remove(folder.game() / "out.iff");
        ASSERT_TRUE(command == Command::Pet ? gsWriteIFF_NoBMPs(record, out)
                                            : gsWriteIFF(record, out));
    }

    std::string difference(Command command) const {
        return userFileDifference(loaded, {rows, command == Command::Sim, command == Command::Pet},
                                  out);
    }

    static std::string padded(std::string label) {
        const std::size_t end = label.find('\0');
        for (std::size_t i = end; i < label.size(); ++i) {
            label[i] = ' ';
        }
        return label;
    }

    test::TestFolder folder;
    test::ErrorRecorder recorder;
    const Path out = folder.path("game\\out.iff");
    IffFile record;
    IffFile loaded;
    StrSegment rows;
};

constexpr const char* kCommandNames[] = {"repair", "sim", "pet"};

// A file as the game or anybody might have made it, by a small writer of its own.
class RandomFile {
  public:
    explicit RandomFile(unsigned seed) : random_(seed) {}

    std::string make() {
        const int count = number(1, 6);
        const int wardrobe = number(0, count - 1);
        const bool hasSecond = number(0, 5) == 0;
        const int mapPlace = number(0, 3) == 0 ? number(0, count) : count;
        const bool hasMap = number(0, 4) != 0;
        const bool isDenied = number(0, 9) == 0;
        std::string body;
        std::string map;
        for (int i = 0; i <= count; ++i) {
            if (i == mapPlace && hasMap) {
                body += "<map>";
            }
            if (i < count) {
                body += part(i == wardrobe || (hasSecond && i == wardrobe + 1));
            }
        }
        const std::size_t place = body.find("<map>");
        if (hasMap) {
            body.replace(place, 5, wholeMap());
        }
        const unsigned head = isDenied || !hasMap ? (number(0, 1) == 0 ? 0 : 0x30303030)
                                                  : 64 + static_cast<unsigned>(place);
        return fileHead(head) + body + trailing(hasMap && mapPlace == count);
    }

  private:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    std::string bytes(int most) {
        std::string text(static_cast<std::size_t>(number(0, most)), '\0');
        for (char& c : text) {
            c = static_cast<char>(number(0, 255));
        }
        return text;
    }

    // Without what would end a label or be taken for a map.
    std::string word(int most) {
        std::string text(static_cast<std::size_t>(number(0, most)), '\0');
        for (char& c : text) {
            c = static_cast<char>(number('a', 'q'));
        }
        return text;
    }

    std::string part(bool isWardrobe) {
        const std::string label = number(0, 3) == 0 ? bytes(64) : word(63);
        if (isWardrobe) {
            std::vector<std::string> rows;
            for (int row = number(1, 36); row > 0; --row) {
                rows.push_back(word(20));
            }
            keys_.emplace_back("STR#", 200U);
            return segment("STR#", 200, 16, label, stringTable(rows, bytes(10)));
        }
        const char* const types[] = {"BMP_", "OBJD", "CTSS", "STR#", "BHAV"};
        const std::string type = types[number(0, 4)];
        const auto id = static_cast<unsigned>(number(1, 4));
        keys_.emplace_back(type, id);
        return segment(type, id, static_cast<unsigned>(number(0, 20)), label, bytes(60));
    }

    // Rows for most segments, some twice, and some that lead nowhere.
    std::string wholeMap() {
        std::string types;
        unsigned typeCount = 0;
        std::size_t size = 96;
        const auto addType = [&](const std::string& type, unsigned count, const auto& makeRows) {
            size += 8;
            types += mapType(type, count, makeRows());
            ++typeCount;
        };
        const auto row = [&](unsigned id) {
            const std::string start = mapRow(static_cast<unsigned>(number(0, 9999)), id,
                                             static_cast<unsigned>(number(0, 99)), "");
            std::string label = word(9);
            if (number(0, 3) == 0) {
                label += '\xA3';
            } else {
                label += '\0';
                // A pad where the row would end on an odd offset from the map's start.
                if ((size + start.size() + label.size()) % 2 == 1) {
                    label += static_cast<char>(number(0, 255));
                }
            }
            size += start.size() + label.size();
            return start + label;
        };
        for (const auto& [type, id] : keys_) {
            const int kind = number(0, 5);
            if (kind == 0) {
                continue;
            }
            const unsigned count = kind == 1 ? 2 : 1;
            addType(type, count, [&] {
                std::string rowsOfType = row(id);
                return count == 2 ? rowsOfType + row(number(0, 1) == 0 ? id : 77) : rowsOfType;
            });
        }
        addType("NONE", 1, [&] { return row(static_cast<unsigned>(number(1, 9))); });
        return test::map(static_cast<unsigned>(number(0, 9999)), typeCount, types);
    }

    std::string trailing(bool isBehindMap) {
        if (number(0, 2) != 0) {
            return {};
        }
        return isBehindMap ? std::string(static_cast<std::size_t>(number(1, 76)), 'z')
                           : std::string(1, 'z');
    }

    std::mt19937 random_;
    std::vector<std::pair<std::string, unsigned>> keys_;
};

void changeSome(StrSegment& rows, unsigned seed) {
    std::mt19937 random(seed);
    for (int row = 1; row <= rows.Entries.bound(); ++row) {
        if (random() % 3 == 0) {
            rows.Entries[row].Text = std::string(random() % 40, static_cast<char>('A' + row % 20));
        }
    }
}

TEST_F(UserFileProofTest, NoFileThatIsReadAndWrittenGivesAnAlarm) {
    int files = 0;
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        const std::string content = RandomFile(seed).make();
        for (const Command command : {Command::Repair, Command::Sim, Command::Pet}) {
            load(content, [&](StrSegment& table) { changeSome(table, seed); });
            save(command);
            ASSERT_EQ(difference(command), "")
                << "seed " << seed << ", " << kCommandNames[static_cast<int>(command)];
            ++files;
        }
    }
    EXPECT_EQ(files, 9000);
    EXPECT_TRUE(recorder.reports().empty());
}

// All of the new file matters: whatever byte is another one, too many or too few, it is told.
TEST_F(UserFileProofTest, AnyOneByteThatIsAnotherGivesAnAlarm) {
    int bytes = 0;
    for (unsigned seed = 1; seed <= 24; ++seed) {
        const auto command = static_cast<Command>(seed % 3);
        load(RandomFile(seed).make(), [&](StrSegment& table) { changeSome(table, seed); });
        save(command);
        ASSERT_EQ(difference(command), "") << seed;
        const std::string right = folder.read("game/out.iff");
        std::mt19937 random(seed);
        for (std::size_t i = 0; i < right.size(); i += test::kSweepStep, ++bytes) {
            std::string wrong = right;
            wrong[i] = static_cast<char>(wrong[i] ^ static_cast<char>(1U << random() % 8));
            folder.write("game/out.iff", wrong);
            ASSERT_NE(difference(command), "") << "seed " << seed << ", byte " << i;
        }
        for (const std::size_t less : {1, 2, 4, 76, 77}) {
            folder.write("game/out.iff", right.substr(0, right.size() - less));
            ASSERT_NE(difference(command), "") << "seed " << seed << ", " << less << " less";
        }
        for (const std::size_t more : {1, 2, 4, 76, 77, 1000}) {
            folder.write("game/out.iff", right + std::string(more, 'z'));
            ASSERT_NE(difference(command), "") << "seed " << seed << ", " << more << " more";
        }
    }
    EXPECT_GT(bytes, 10000 / test::kSweepStep);
    EXPECT_TRUE(recorder.reports().empty());
}

TEST_F(UserFileProofTest, SegmentsThatChangedPlacesGiveAnAlarm) {
    const std::string one = segment("AAAA", 1, 1, "", "data1");
    const std::string two = segment("AAAA", 1, 1, "", "data2");
    const std::string table = segment("STR#", 200, 16, "", stringTable({"adult"}));
    load(fileHead(0) + one + two + table);
    folder.write("game/out.iff", fileHead(0) + two + one + table);
    EXPECT_EQ(difference(Command::Repair), "Segment 1 has other data.");
    folder.write("game/out.iff", fileHead(0) + one + table);
    EXPECT_EQ(difference(Command::Repair), "Segment 2 is another one.");
    folder.write("game/out.iff", fileHead(0) + one + two);
    EXPECT_EQ(difference(Command::Repair), "The number of segments is 2 instead of 3.");
    folder.write("game/out.iff", fileHead(0) + one + two + table + one);
    EXPECT_EQ(difference(Command::Repair), "The number of segments is 4 instead of 3.");
}

TEST_F(UserFileProofTest, ARowWithAZeroByteGivesAnAlarm) {
    load(test::simFile(test::simRows({})),
         [](StrSegment& table) { table.Entries[31].Text = "f100\0fafit,BODY=x"s; });
    save(Command::Sim);
    EXPECT_EQ(difference(Command::Sim), "Row 31 of the wardrobe differs.");
    load(test::simFile(test::simRows({})),
         [](StrSegment& table) { table.Entries[35].Comment = "\0"s; });
    save(Command::Repair);
    EXPECT_EQ(difference(Command::Repair), "Row 35 of the wardrobe differs.");
}

TEST_F(UserFileProofTest, ACountThatIsNotTheRowsGivesAnAlarm) {
    load(test::simFile(test::simRows({})), [](StrSegment& table) { table.Count = "\x22\0"s; });
    save(Command::Repair);
    EXPECT_EQ(difference(Command::Repair),
              "The number of the wardrobe's rows is 34 instead of 35.");
    load(test::simFile(test::simRows({})),
         [](StrSegment& table) { table.Entries.resize(table.Entries.bound() + 1); });
    save(Command::Repair);
    EXPECT_EQ(difference(Command::Repair),
              "The number of the wardrobe's rows is 35 instead of 36.");
    load(test::simFile(test::simRows({})), [](StrSegment& table) { table.Count = "\xFF\xFF"; });
    save(Command::Repair);
    EXPECT_EQ(difference(Command::Repair), "The wardrobe can't be read again: Error 6 - Overflow.");
}

TEST_F(UserFileProofTest, RowsThatWereMeantForAFileWithoutAWardrobeGiveAnAlarm) {
    load(fileHead(0) + segment("AAAA", 1, 1, "", "data"), [](StrSegment& table) {
        table.Entries.append({'\1', "adult", ""});
    });
    save(Command::Repair);
    EXPECT_EQ(difference(Command::Repair), "It has no wardrobe.");
}

// Its rewrite appends what the record holds of a map: nothing, or the map of the sim before.
TEST_F(UserFileProofTest, AFileThatAnnouncesAMapAndHoldsNoneGivesAnAlarm) {
    const std::string table = segment("STR#", 200, 16, "", stringTable({"adult"}));
    load(fileHead(64) + table);
    save(Command::Repair);
    EXPECT_EQ(difference(Command::Repair),
              "It can't be read again: Error 5 - Invalid procedure call or argument.");
    // The record of a walk over a neighbourhood, which held another sim.
    load(test::simFile(test::simRows({})));
    folder.write("game/in.iff", fileHead(64) + table);
    gsResetIFF(record);
    ASSERT_EQ(gfstrQuickReadIFF(record, folder.path("game\\in.iff")), "");
    loaded = record;
    ASSERT_TRUE(readWardrobeTable(record, rows));
    save(Command::Repair);
    EXPECT_EQ(difference(Command::Repair),
              "It can't be read again: Error 9 - Subscript out of range (RSMP).");
    // A pet's save writes no map, and is none the worse.
    load(fileHead(64) + table);
    save(Command::Pet);
    EXPECT_EQ(difference(Command::Pet), "");
}

// Anything but the record as it was loaded: here one that lost a segment to a failure.
TEST_F(UserFileProofTest, ARecordThatAnotherFailureLeftBehindGivesAnAlarm) {
    load(test::simFile(test::simRows({})));
    record.Segments.resize(record.Segments.bound() - 1);
    save(Command::Sim);
    EXPECT_EQ(difference(Command::Sim), "The number of segments is 3 instead of 4.");
}

TEST_F(UserFileProofTest, WhatALongerFileLeavesBehindGivesAnAlarm) {
    load(test::simFile(test::simRows({})));
    save(Command::Repair);
    const std::string right = folder.read("game/out.iff");
    folder.write("game/out.iff", right + "tail of a longer one");
    EXPECT_EQ(difference(Command::Repair), "The length of the file is " +
                                               std::to_string(right.size() + 20) + " instead of " +
                                               std::to_string(right.size()) + ".");
}

TEST_F(UserFileProofTest, TheOdditiesOfFilesGiveNoAlarm) {
    const std::string table = segment("STR#", 200, 16, "", stringTable({"adult", "two"}));
    const std::string other = segment("STR#", 200, 16, "", stringTable({"child"}));
    const std::string part = segment("AAAA", 1, 1, "", "data");
    const std::string map = test::map(7, 1, mapType("AAAA", 1, mapRow(1, 1, 5, "abcde\0"s)));
    struct Row {
        const char* why;
        std::string content;
    };
    const Row odd[] = {
        {"a map in the middle", fileHead(1) + part + map + table},
        {"a map at the start", fileHead(1) + map + part + table},
        {"two maps, not side by side", fileHead(1) + map + part + map + table},
        {"bytes behind the map", fileHead(1) + part + table + map + std::string(76, 'z')},
        {"a map without its last pad byte",
         fileHead(1) + part + table +
             test::map(7, 1, mapType("AAAA", 1, mapRow(1, 1, 5, "abcd\0"s)))},
        {"a lone last byte", fileHead(0) + part + table + "z"},
        {"a map that the head denies", fileHead(0) + part + table + map},
        {"the text 0000", fileHead(0x30303030) + part + table},
        {"two wardrobes", fileHead(1) + table + other + map},
        {"two segments of one id", fileHead(1) + part + part + table + map},
        {"a segment that reaches past the end",
         fileHead(0) + part + segment("STR#", 200, 16, "", stringTable({"adult"})) + "BBBB" +
             test::big32(200) + "short"},
        {"a table that ends early",
         fileHead(0) + segment("STR#", 200, 16, "", "\xFD\xFF\x03\0\1one\0\0xyz"s)},
    };
    for (const Row& row : odd) {
        for (const Command command : {Command::Repair, Command::Sim, Command::Pet}) {
            load(row.content);
            save(command);
            EXPECT_EQ(difference(command), "")
                << row.why << ", " << kCommandNames[static_cast<int>(command)];
        }
    }
}

// A second map directly behind the first is carried as a segment; behind a rewrite it would be the
// map that is read.
TEST_F(UserFileProofTest, ASecondMapDirectlyBehindTheFirstGivesAnAlarm) {
    const std::string table = segment("STR#", 200, 16, "", stringTable({"adult"}));
    const std::string map = test::map(7, 1, mapType("AAAA", 1, mapRow(1, 1, 5, "abcde\0"s)));
    std::string asSegment = map;
    asSegment.replace(4, 4, test::big32(static_cast<unsigned>(map.size())));
    load(fileHead(1) + table + map + asSegment);
    EXPECT_EQ(loaded.Segments.bound(), 2);
    save(Command::Repair);
    EXPECT_NE(difference(Command::Repair), "");
}

TEST_F(UserFileProofTest, LeavesCheckpointAndStreamsAlone) {
    load(test::simFile(test::simRows({})));
    save(Command::Sim);
    CheckpointNumber = 4000;
    EXPECT_EQ(difference(Command::Sim), "");
    EXPECT_EQ(CheckpointNumber, 4000);
    EXPECT_FALSE(streams().isOpen(slot::kUserFile));
    folder.write("game/out.iff", "rubbish");
    EXPECT_NE(difference(Command::Sim), "");
    EXPECT_EQ(CheckpointNumber, 4000);
    EXPECT_FALSE(streams().isOpen(slot::kUserFile));
    streams().open(slot::kUserFile, folder.path("game\\in.iff"), OpenMode::Input);
    EXPECT_EQ(test::errorOf([&] { difference(Command::Sim); }), 55);
    EXPECT_TRUE(streams().isOpen(slot::kUserFile));
    EXPECT_EQ(CheckpointNumber, 4000);
}

}  // namespace
}  // namespace marlowick
