#include "foundation/history_record.h"

#include <gtest/gtest.h>

#include <random>

namespace marlowick {
namespace {

using std::string_literals::operator""s;

// Of "abc", and of nothing.
constexpr const char* kAbc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
constexpr const char* kNone = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";

HistoryAbout someAbout() {
    HistoryAbout about;
    about.program = "Marlowick 3.0.5";
    about.command = "Save";
    about.name = "Mara \"Quill\"";
    about.begun = "2026-11-21T13:15:33Z";
    about.game = Path("C:\\Games\\The Sims");
    about.neighbourhoods = Path("D:\\Saves");
    return about;
}

HistoryRecord record(const std::string& path, const std::optional<FileState>& before,
                     const std::optional<FileState>& after, const std::string& changes = {}) {
    return {path, keptPlace(path), "2026-11-21T13:15:34Z", before, after, changes};
}

const std::string kHead = R"({"version":1,"program":"Marlowick 3.0.5","command":"Save",)"
                          R"("name":"Mara \"Quill\"",
"begun":"2026-11-21T13:15:33Z",
"game":"C:\\Games\\The Sims",
"neighbourhoods":"D:\\Saves",
"files":[)";

const std::string kFirstRecord =
    "\n{\"path\":\"UserData\\\\Characters\\\\user1.iff\",\"time\":\"2026-11-21T13:15:34Z\",\n"
    " \"before\":{\"size\":3,\"sha256\":\""s +
    kAbc +
    "\"},\n"
    " \"after\":{\"size\":0,\"sha256\":\"" +
    kNone +
    "\"},\n"
    " \"changes\":[\"Formal: a \xE2\x86\x92 b\",\"Swimsuit: c \xE2\x86\x92 d\"]}";

const std::string kSecondRecord =
    ",\n{\"path\":\"ENS\\\\x.ens\",\"time\":\"2026-11-21T13:15:34Z\",\n"
    " \"before\":null,\n"
    " \"after\":{\"size\":3,\"sha256\":\""s +
    kAbc +
    "\"},\n"
    " \"changes\":[]}";

TEST(HistoryRecordTest, IsWrittenAsJsonThatGrowsByARecord) {
    EXPECT_EQ(aboutHead(someAbout()), kHead);
    EXPECT_EQ(aboutRecord(record("UserData\\Characters\\user1.iff", stateOf("abc"), stateOf(""),
                                 "Formal: a \xE2\x86\x92 b\nSwimsuit: c \xE2\x86\x92 d"),
                          true),
              kFirstRecord);
    EXPECT_EQ(aboutRecord(record("ENS\\x.ens", std::nullopt, stateOf("abc")), false),
              kSecondRecord);
    EXPECT_EQ(kAboutOpenEnd, "\n]}\n");
    EXPECT_EQ(aboutEnd("2026-11-21T13:15:35Z"), "\n],\n\"ended\":\"2026-11-21T13:15:35Z\"}\n");
}

TEST(HistoryRecordTest, IsReadAsItWasWritten) {
    const auto about = readAbout(kHead + kFirstRecord + kSecondRecord + aboutEnd("the end"));
    ASSERT_TRUE(about);
    EXPECT_TRUE(about->isWhole);
    EXPECT_EQ(about->program, "Marlowick 3.0.5");
    EXPECT_EQ(about->command, "Save");
    EXPECT_EQ(about->name, "Mara \"Quill\"");
    EXPECT_EQ(about->begun, "2026-11-21T13:15:33Z");
    EXPECT_EQ(about->ended, "the end");
    EXPECT_EQ(about->game, Path("C:\\Games\\The Sims"));
    EXPECT_EQ(about->neighbourhoods, Path("D:\\Saves"));
    ASSERT_EQ(about->records.size(), 2U);
    const HistoryRecord& first = about->records[0];
    EXPECT_EQ(first.path, "UserData\\Characters\\user1.iff");
    EXPECT_EQ(first.place, (KeptPlace{KeptKind::UserFile, "UserData\\Characters\\user1.iff"}));
    EXPECT_EQ(first.time, "2026-11-21T13:15:34Z");
    EXPECT_EQ(first.before, stateOf("abc"));
    EXPECT_EQ(first.after, stateOf(""));
    EXPECT_EQ(first.changes, "Formal: a \xE2\x86\x92 b\nSwimsuit: c \xE2\x86\x92 d");
    EXPECT_EQ(about->records[1].before, std::nullopt);
    EXPECT_EQ(about->records[1].after, stateOf("abc"));
}

// A command that was killed never wrote its end; one in the middle of a record is cut short.
TEST(HistoryRecordTest, AnEndAnywhereCostsOnlyTheRecordsThatAreNotWhole) {
    const std::string start = kHead + kFirstRecord;
    const std::string whole = start + kSecondRecord + std::string(kAboutOpenEnd);
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        for (const char* behind : {"", "\xFF", "\n]}\n", "\"}]}", "\x01\x02"}) {
            const auto about = readAbout(whole.substr(0, size) + behind);
            ASSERT_EQ(about.has_value(), size > kHead.find("1,")) << size << behind;
            if (about) {
                const std::size_t records = size < start.size()                          ? 0
                                            : size < start.size() + kSecondRecord.size() ? 1
                                                                                         : 2;
                EXPECT_GE(about->records.size(), records) << size;
                EXPECT_LE(about->records.size(), records + 1) << size;
                EXPECT_TRUE(about->isWhole || size < whole.size() || *behind != '\0');
            }
        }
    }
}

TEST(HistoryRecordTest, APersonsOwnWritingOfItIsReadToo) {
    const auto about = readAbout(R"({ "remark": {"files": [1, {"path": 2}], "version": 7},
        "files" : [ null, 5, true, "x", [], { "after" : null, "path" : "ENS/a.ens", "more": [[]],
            "before" : { "sha256" : ")" +
                                 std::string(kAbc) + R"(", "size" : 3, "size2": -1 } } ],
        "command" : "Delete", "version" : 1 })");
    ASSERT_TRUE(about);
    EXPECT_TRUE(about->isWhole);
    EXPECT_EQ(about->command, "Delete");
    ASSERT_EQ(about->records.size(), 1U);
    EXPECT_EQ(about->records[0].before, stateOf("abc"));
    EXPECT_EQ(about->records[0].after, std::nullopt);
    EXPECT_EQ(about->records[0].place, (KeptPlace{KeptKind::Ensemble, "ENS\\a.ens"}));
}

TEST(HistoryRecordTest, OtherTextsAndVersionsAreNothing) {
    for (const char* text :
         {"", "{}", "[]", "null", "7", "\"version\"", "{\"version\":2}", "{\"version\":\"1\"}",
          "{\"version\":1.0}", "{\"version\":-1}", "[{\"version\":1}]", "{\"x\":{\"version\":1}}",
          "\xEF\xBB\xBF", "PK\3\4", "{\"version\":1e400}",
          "{\"version\":99999999999999999999999999}"}) {
        EXPECT_FALSE(readAbout(text)) << text;
    }
    EXPECT_FALSE(readAbout(std::string(1000, '\0')));
    EXPECT_FALSE(readAbout(std::string(1000000, '[')));
}

struct BadRecord {
    const char* why;
    std::string text;
};

TEST(HistoryRecordTest, ARecordThatTellsTooLittleIsNone) {
    const std::string state = "{\"size\":3,\"sha256\":\""s + kAbc + "\"}";
    const std::string path = "\"path\":\"ENS\\\\x.ens\"";
    const BadRecord bad[] = {
        {"no path", "{\"before\":null,\"after\":" + state + "}"},
        {"empty path", "{\"path\":\"\",\"before\":null,\"after\":" + state + "}"},
        {"no before", "{" + path + ",\"after\":" + state + "}"},
        {"no after", "{" + path + ",\"before\":" + state + "}"},
        {"never there", "{" + path + ",\"before\":null,\"after\":null}"},
        {"a size below 0",
         "{" + path + ",\"after\":null,\"before\":{\"size\":-3,\"sha256\":\"" + kAbc + "\"}}"},
        {"a size past all", "{" + path +
                                ",\"after\":null,\"before\":{\"size\":9223372036854775808,"
                                "\"sha256\":\"" +
                                kAbc + "\"}}"},
        {"a half size",
         "{" + path + ",\"after\":null,\"before\":{\"size\":1.5,\"sha256\":\"" + kAbc + "\"}}"},
        {"no size", "{" + path + ",\"after\":null,\"before\":{\"sha256\":\"" + kAbc + "\"}}"},
        {"no hash", "{" + path + ",\"after\":null,\"before\":{\"size\":3}}"},
        {"a short hash", "{" + path + ",\"after\":null,\"before\":{\"size\":3,\"sha256\":\"ba\"}}"},
        {"a list for a state", "{" + path + ",\"after\":null,\"before\":[" + state + "]}"},
        {"a state in a state", "{" + path + ",\"after\":null,\"before\":{\"x\":" + state + "}}"},
    };
    for (const BadRecord& record : bad) {
        const auto about = readAbout("{\"version\":1,\"files\":[" + record.text + "]}");
        ASSERT_TRUE(about) << record.why;
        EXPECT_TRUE(about->isWhole) << record.why;
        EXPECT_EQ(about->records.size(), 0U) << record.why;
    }
}

TEST(HistoryRecordTest, APathThatMeansNoFileIsTold) {
    const auto about = readAbout(
        "{\"version\":1,\"files\":[{\"path\":\"..\\\\evil.iff\",\"before\":null,"
        "\"after\":{\"size\":3,\"sha256\":\""s +
        kAbc + "\"}}]}");
    ASSERT_EQ(about->records.size(), 1U);
    EXPECT_EQ(about->records[0].path, "..\\evil.iff");
    EXPECT_EQ(about->records[0].place, std::nullopt);
}

TEST(HistoryRecordTest, TextsForAPersonAreBoundedAndOfOneLine) {
    const std::string umlauts = [] {
        std::string text;
        for (int i = 0; i < 700; ++i) {
            text += "\xC3\xA4";
        }
        return text;
    }();
    const auto about =
        readAbout("{\"version\":1,\"command\":\"a\\nb\\u0007c\",\"name\":\"x" + umlauts + "\"}");
    ASSERT_TRUE(about);
    EXPECT_EQ(about->command, "a b c");
    EXPECT_EQ(about->name.size(), 999U);  // the last letter would be cut in two
    std::string changes = "\"\"";
    for (int i = 0; i < 10000; ++i) {
        changes += ",\"0123456789\"";
    }
    const auto many = readAbout(
        "{\"version\":1,\"files\":[{\"path\":\"ENS\\\\x.ens\",\"before\":null,"
        "\"changes\":[" +
        changes + "],\"after\":{\"size\":3,\"sha256\":\"" + kAbc + "\"}}]}");
    ASSERT_EQ(many->records.size(), 1U);
    EXPECT_LE(many->records[0].changes.size(), 8000U);
    EXPECT_EQ(many->records[0].changes.substr(0, 22), "0123456789\n0123456789\n");
}

TEST(HistoryRecordTest, NestingWithoutEndIsNoneOfIt) {
    const auto about = readAbout("{\"version\":1,\"files\":[" + std::string(1000000, '['));
    ASSERT_TRUE(about);
    EXPECT_FALSE(about->isWhole);
}

TEST(HistoryRecordTest, BytesThatAreNoTextAreReplacedInWriting) {
    HistoryAbout about = someAbout();
    about.game = Path("/home/\xFF");
    const auto read = readAbout(aboutHead(about) + std::string(kAboutOpenEnd));
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->isWhole);
    EXPECT_EQ(read->game, Path("/home/\xEF\xBF\xBD"));
}

// Whatever single byte is another, or missing, or doubled: no more is read than was there, and
// nothing that a record tells is of another form.
TEST(HistoryRecordTest, AnyChangedByteIsSurvived) {
    const std::string whole = kHead + kFirstRecord + kSecondRecord + aboutEnd("the end");
    std::mt19937 random(1);
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (int kind = 0; kind < 4; ++kind) {
            std::string text = whole;
            if (kind == 0) {
                text.erase(i, 1);
            } else if (kind == 1) {
                text.insert(i, 1, text[i]);
            } else {
                text[i] = static_cast<char>(random());
            }
            const auto about = readAbout(text);
            EXPECT_LE(about ? about->records.size() : 0, 2U);
        }
    }
}

}  // namespace
}  // namespace marlowick
