// The tools on the odd files of the sample game, byte for byte, against a small reader and writer
// of this test's own.
#include <gtest/gtest.h>

#include <QProcess>
#include <algorithm>
#include <map>

#include "browser/neighbourhood_tools.h"
#include "browser/neighbourhoods.h"
#include "support/keeping.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"

namespace marlowick {
namespace {

using Rows = std::map<int, std::string>;

std::size_t number(const std::string& bytes, std::size_t position, bool bigEndian) {
    std::size_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value =
            value << 8U | static_cast<unsigned char>(bytes.at(position + (bigEndian ? i : 3 - i)));
    }
    return value;
}

// A user file as its pieces: segments with their offsets, and the map, which may lie among them.
struct Pieces {
    std::string head;
    std::vector<std::pair<std::size_t, std::string>> segments;
    std::string map;
};

Pieces takeApart(const std::string& file) {
    Pieces pieces;
    pieces.head = file.substr(0, 60);
    std::size_t position = 64;
    while (position + 76 <= file.size()) {
        if (file.compare(position, 4, "rsmp") == 0) {
            const std::size_t size = number(file, position + 88, false) + 1;
            pieces.map = file.substr(position, size);
            position += size;
            continue;
        }
        const std::size_t size = number(file, position + 4, true);
        pieces.segments.emplace_back(position, file.substr(position, size));
        position += size;
    }
    return pieces;
}

bool isWardrobe(const std::string& segment) {
    return segment.compare(0, 4, "STR#") == 0 &&
           segment.compare(8, 4, std::string("\x00\xC8\x00\x10", 4)) == 0;
}

// A wardrobe segment with some rows' texts replaced.
std::string withRows(const std::string& segment, const Rows& rows) {
    std::string data = segment.substr(76, 4);
    std::size_t position = 80;
    for (int row = 1; row <= static_cast<unsigned char>(segment[78]); ++row) {
        const std::size_t textEnd = segment.find('\0', position + 1);
        const std::size_t commentEnd = segment.find('\0', textEnd + 1);
        const auto changed = rows.find(row);
        data += segment[position];
        data += changed != rows.end() ? changed->second
                                      : segment.substr(position + 1, textEnd - position - 1);
        data += segment.substr(textEnd, commentEnd + 1 - textEnd);
        position = commentEnd + 1;
    }
    data += segment.substr(position);
    return segment.substr(0, 4) + test::big32(static_cast<unsigned>(76 + data.size())) +
           segment.substr(8, 68) + data;
}

// The file as it is after its wardrobe was rewritten: the map goes to the end, and each offset in
// it follows its segment.
std::string rewritten(const std::string& file, const Rows& rows) {
    const Pieces pieces = takeApart(file);
    std::string body;
    std::string map = pieces.map;
    for (const auto& [oldOffset, segment] : pieces.segments) {
        const std::string before = test::little32(static_cast<unsigned>(oldOffset));
        const std::string after = test::little32(static_cast<unsigned>(64 + body.size()));
        // An offset, with the id behind it as the map has it, stands there once.
        const std::string id = {segment[9], segment[8]};
        const std::size_t row = pieces.map.find(before + id);
        if (row != std::string::npos) {
            map.replace(row, 4, after);
        }
        body += isWardrobe(segment) ? withRows(segment, rows) : segment;
    }
    const bool hasMap = !pieces.map.empty();
    return pieces.head + test::big32(hasMap ? static_cast<unsigned>(64 + body.size()) : 0) + body +
           map;
}

class SampleToolsTest : public ::testing::Test {
  protected:
    SampleToolsTest() {
        const QString game = QString::fromStdString(folder.game().string());
        EXPECT_EQ(QProcess::execute(MAKE_SAMPLE_GAME, {game, "--skins", "1", "--sims", "36",
                                                       "--archive-entries", "2"}),
                  0);
        sims = findSimFiles("UserData");
        for (int i = 1; i <= sims.bound(); ++i) {
            before[numberOf(sims[i])] = folder.read(place(sims[i]));
        }
        EXPECT_EQ(before.size(), 36U);
    }

    static int numberOf(const std::string& name) { return std::stoi(name.substr(4, 5)); }
    static std::string place(const std::string& name) { return "game/UserData/Characters/" + name; }

    SimWalk walk() {
        return {"UserData", sims, iff, [] {}};
    }

    // Nothing is passed over: every file of the game is proven.
    bool repair(bool (*tool)(const SimWalk&, RepairWork&)) {
        test::Keeping keeping;
        RepairWork work{keeping.command, [](const Path& /*file*/) { return false; }};
        return tool(walk(), work) && work.passedOver.empty();
    }

    // Every file is what it was, but for those with changed rows and those that a rewriting
    // brings into another shape. Puts the old ones back.
    void expectChanges(const std::map<int, Rows>& changes) {
        for (int i = 1; i <= sims.bound(); ++i) {
            const std::string after = folder.read(place(sims[i]));
            const auto changed = changes.find(numberOf(sims[i]));
            const std::string& old = before[numberOf(sims[i])];
            EXPECT_TRUE(after == (changed == changes.end() ? old : rewritten(old, changed->second)))
                << sims[i];
            folder.write(place(sims[i]), old);
        }
    }

    void expectClothesOfTheRightType();
    void expectNoPinkHands();
    void expectListsOfSkins();

    test::TestFolder folder;
    List<std::string> sims;
    IffFile iff;
    std::map<int, std::string> before;
};

void SampleToolsTest::expectClothesOfTheRightType() {
    EXPECT_TRUE(repair(fixFitToSkinny));
    const auto tone = [this](int sim) { return test::rowsOfFile(before[sim])[14]; };
    const auto original = [](const std::string& body, const std::string& skinTone) {
        return body + "_original,BODY=" + body + skinTone + "_original";
    };
    expectChanges({
        {7, {}},   // its map goes to the end
        {13, {}},  // its "0000" becomes zeros
        {21, {{31, original("f100faSKN", tone(21))}, {33, original("l100faSKN", tone(21))}}},
        {22, {{32, original("s100maSKN", tone(22))}}},
    });
    EXPECT_TRUE(rewritten(before[7], {}) != before[7]);
    EXPECT_TRUE(rewritten(before[13], {}) != before[13]);
    EXPECT_TRUE(rewritten(before[1], {}) == before[1]);
}

void SampleToolsTest::expectNoPinkHands() {
    EXPECT_TRUE(repair(removePinkHands));
    expectChanges({
        {24, {{29, ""}, {30, ""}}},
        {25, {{29, "HfLO,HAND=gfao_bride"}, {30, "HfRO,HAND=gfao_bride"}}},
    });
}

void SampleToolsTest::expectListsOfSkins() {
    exportSkinNames(walk());
    std::string heads;
    std::string bodies;
    std::string simName;
    for (int i = 1; i <= sims.bound(); ++i) {
        const std::string& file = before[numberOf(sims[i])];
        if (numberOf(sims[i]) == 34) {
            continue;  // damaged
        }
        const std::size_t names = file.find("CTSS");
        if (names < file.find("STR#")) {
            simName = file.c_str() + names + 76 + 5;
        }
        const std::vector<std::string> rows = test::rowsOfFile(file);
        bodies += sims[i] + ";" + simName + ";" + rows[1].substr(rows[1].find('=') + 1) + "\r\n";
        heads += sims[i] + ";" + simName + ";" + rows[2].substr(rows[2].find('=') + 1) + "\r\n";
    }
    EXPECT_EQ(folder.read("program/headskins.txt"), heads);
    EXPECT_EQ(folder.read("program/bodyskins.txt"), bodies);
    EXPECT_EQ(std::count(bodies.begin(), bodies.end(), '\n'), 35);
    expectChanges({});
}

// The making of the game takes most of the time, so one serves all.
TEST_F(SampleToolsTest, EachToolChangesTheFilesThatItShould) {
    expectClothesOfTheRightType();
    expectNoPinkHands();
    expectListsOfSkins();
}

}  // namespace
}  // namespace marlowick
