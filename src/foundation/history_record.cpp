#include "foundation/history_record.h"

#include <algorithm>
#include <array>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

namespace marlowick {
namespace {

using nlohmann::json;

constexpr std::uint64_t kVersion = 1;

// Names in the file.
constexpr std::string_view kVersionKey = "version";
constexpr std::string_view kFilesKey = "files";
constexpr std::string_view kBeforeKey = "before";
constexpr std::string_view kAfterKey = "after";
constexpr std::string_view kChangesKey = "changes";
constexpr std::string_view kSizeKey = "size";
constexpr std::string_view kHashKey = "sha256";

// Bytes; what the program itself writes is shorter.
constexpr std::size_t kLongestText = 1000;
constexpr std::size_t kLongestPath = 32768;
constexpr std::size_t kLongestChanges = 8000;

// Deeper values are no part of such a file.
constexpr std::size_t kDeepest = 16;

struct TextKey {
    std::string_view key;
    std::string HistoryAbout::*text;
};

constexpr TextKey kTexts[] = {
    {"program", &HistoryAbout::program}, {"command", &HistoryAbout::command},
    {"name", &HistoryAbout::name},       {"begun", &HistoryAbout::begun},
    {"ended", &HistoryAbout::ended},
};

std::string quoted(std::string_view utf8) {
    return json(std::string(utf8)).dump(-1, ' ', false, json::error_handler_t::replace);
}

std::string field(std::string_view key, std::string_view utf8) {
    return quoted(key) + ":" + quoted(utf8);
}

std::string stateField(std::string_view key, const std::optional<FileState>& state) {
    return quoted(key) + ":" +
           (state ? "{" + quoted(kSizeKey) + ":" + std::to_string(state->size) + "," +
                        field(kHashKey, hexText(state->hash)) + "}"
                  : "null");
}

std::string changesField(std::string_view lines) {
    std::string list;
    while (!lines.empty()) {
        const std::size_t end = std::min(lines.find('\n'), lines.size());
        list += (list.empty() ? "" : ",") + quoted(lines.substr(0, end));
        lines.remove_prefix(std::min(end + 1, lines.size()));
    }
    return quoted(kChangesKey) + ":[" + list + "]";
}

// At most so many bytes, without a part of a character at the end.
std::string cut(std::string text, std::size_t most) {
    if (text.size() > most) {
        while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0U) == 0x80U) {
            --most;
        }
        text.resize(most);
    }
    return text;
}

// A text for one line of a window.
std::string oneLine(std::string text, std::size_t most) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return cut(std::move(text), most);
}

// Takes the events of the JSON text as they come, so that no more is held than what is wanted of
// it. Each event tells by its result whether the reading goes on.
class AboutReader : public nlohmann::json_sax<json> {
  public:
    // What was read; nothing without the version that this program writes.
    std::optional<HistoryAbout> take(bool isWhole) {
        about_.isWhole = isWhole;
        return hasVersion_ ? std::optional(std::move(about_)) : std::nullopt;
    }

    bool null() override {
        if (isIn(Where::Record) && key_ == kBeforeKey) {
            toldBefore_ = true;
        } else if (isIn(Where::Record) && key_ == kAfterKey) {
            toldAfter_ = true;
        }
        return true;
    }

    bool boolean(bool /*value*/) override { return true; }
    bool number_integer(number_integer_t /*value*/) override { return true; }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return true; }
    bool binary(binary_t& /*value*/) override { return true; }

    bool number_unsigned(number_unsigned_t value) override {
        if (isIn(Where::Top) && key_ == kVersionKey) {
            hasVersion_ = value == kVersion;
            return hasVersion_;
        }
        if (isIn(Where::State) && key_ == kSizeKey &&
            value <= static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max())) {
            state_.size = static_cast<std::int64_t>(value);
            hasSize_ = true;
        }
        return true;
    }

    bool string(string_t& value) override {
        if (isIn(Where::Top)) {
            takeHeadText(value);
        } else if (isIn(Where::Record)) {
            takeRecordText(value);
        } else if (isIn(Where::State) && key_ == kHashKey) {
            const std::optional<Sha256> hash = hashOfHexText(value);
            hasHash_ = hash.has_value();
            state_.hash = hash.value_or(Sha256{});
        } else if (isIn(Where::Changes) && !value.empty() &&
                   record_.changes.size() + value.size() < kLongestChanges) {
            record_.changes +=
                (record_.changes.empty() ? "" : "\n") + oneLine(std::move(value), kLongestText);
        }
        return true;
    }

    bool key(string_t& name) override {
        key_ = std::move(name);
        return true;
    }

    bool start_object(std::size_t /*count*/) override {
        if (where_.empty()) {
            return enter(Where::Top);
        }
        if (isIn(Where::Files)) {
            record_ = {};
            toldBefore_ = toldAfter_ = false;
            return enter(Where::Record);
        }
        if (isIn(Where::Record) && (key_ == kBeforeKey || key_ == kAfterKey)) {
            isBefore_ = key_ == kBeforeKey;
            hasSize_ = hasHash_ = false;
            return enter(Where::State);
        }
        return enter(Where::Elsewhere);
    }

    bool start_array(std::size_t /*count*/) override {
        if (isIn(Where::Top) && key_ == kFilesKey) {
            return enter(Where::Files);
        }
        return enter(isIn(Where::Record) && key_ == kChangesKey ? Where::Changes
                                                                : Where::Elsewhere);
    }

    bool end_object() override {
        if (isIn(Where::State) && hasSize_ && hasHash_) {
            (isBefore_ ? record_.before : record_.after) = state_;
            (isBefore_ ? toldBefore_ : toldAfter_) = true;
        } else if (isIn(Where::Record)) {
            takeRecord();
        }
        return leave();
    }

    bool end_array() override { return leave(); }

    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& /*failure*/) override {
        return false;
    }

  private:
    enum class Where { Top, Files, Record, State, Changes, Elsewhere };

    bool isIn(Where where) const { return !where_.empty() && where_.back() == where; }

    bool enter(Where where) {
        where_.push_back(where);
        return where_.size() <= kDeepest;
    }

    bool leave() {
        where_.pop_back();
        key_.clear();
        return true;
    }

    void takeHeadText(std::string& value) {
        const auto* const text = std::find_if(std::begin(kTexts), std::end(kTexts),
                                              [&](const TextKey& row) { return row.key == key_; });
        if (text != std::end(kTexts)) {
            about_.*text->text = oneLine(std::move(value), kLongestText);
        } else if (key_ == "game") {
            about_.game = Path(cut(std::move(value), kLongestPath));
        } else if (key_ == "neighbourhoods") {
            about_.neighbourhoods = Path(cut(std::move(value), kLongestPath));
        }
    }

    void takeRecordText(std::string& value) {
        if (key_ == "path") {
            record_.place = keptPlace(value);
            record_.path = oneLine(std::move(value), kLongestText);
        } else if (key_ == "time") {
            record_.time = oneLine(std::move(value), kLongestText);
        }
    }

    // A record that doesn't tell of both states, or of a file that was never there, means nothing.
    void takeRecord() {
        const bool tells = toldBefore_ && toldAfter_ && (record_.before || record_.after);
        if (tells && !record_.path.empty()) {
            about_.records.push_back(std::move(record_));
        }
    }

    HistoryAbout about_;
    bool hasVersion_ = false;
    std::vector<Where> where_;
    std::string key_;
    HistoryRecord record_;
    bool toldBefore_ = false;
    bool toldAfter_ = false;
    FileState state_;
    bool isBefore_ = false;
    bool hasSize_ = false;
    bool hasHash_ = false;
};

}  // namespace

std::string utcText(const std::tm& time) {
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &time);
    return text.data();
}

std::string aboutHead(const HistoryAbout& about) {
    return "{" + quoted(kVersionKey) + ":" + std::to_string(kVersion) + "," +
           field("program", about.program) + "," + field("command", about.command) + "," +
           field("name", about.name) + ",\n" + field("begun", about.begun) + ",\n" +
           field("game", about.game.text()) + ",\n" +
           field("neighbourhoods", about.neighbourhoods.text()) + ",\n" + quoted(kFilesKey) + ":[";
}

std::string aboutRecord(const HistoryRecord& record, bool isFirst) {
    return (isFirst ? "\n{" : ",\n{") + field("path", record.path) + "," +
           field("time", record.time) + ",\n " + stateField(kBeforeKey, record.before) + ",\n " +
           stateField(kAfterKey, record.after) + ",\n " + changesField(record.changes) + "}";
}

std::string aboutEnd(std::string_view ended) {
    return "\n],\n" + field("ended", ended) + "}\n";
}

std::optional<HistoryAbout> readAbout(std::string_view text) {
    AboutReader reader;
    const bool isWhole = json::sax_parse(text.begin(), text.end(), &reader);
    return reader.take(isWhole);
}

}  // namespace marlowick
