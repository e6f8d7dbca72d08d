#include "wardrobe/history_words.h"

#include <algorithm>
#include <optional>
#include <set>

#include "system/folder_order.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr std::size_t kMostNamed = 10;

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

// A line each, and how many more there are.
std::string listed(const std::vector<std::string>& lines, std::size_t most) {
    std::string text;
    for (std::size_t i = 0; i < std::min(lines.size(), most); ++i) {
        text += (i == 0 ? "" : "\n") + lines[i];
    }
    return lines.size() <= most ? text
                                : text + "\nand " + std::to_string(lines.size() - most) + " more";
}

// "2026-11-21 14.15.33" as a person writes it.
std::string timeOf(const HistoryEntry& entry) {
    std::string time = entry.when;
    std::replace(time.begin(), time.end(), '.', ':');
    return time;
}

// The text as it is searched: without letter case, and with one kind of slash.
std::u16string folded(std::string_view text) {
    std::string plain(text);
    std::replace(plain.begin(), plain.end(), '/', '\\');
    return foldedName(plain);
}

std::vector<std::u16string> wordsOf(std::string_view filter) {
    std::vector<std::u16string> words;
    while (!filter.empty()) {
        const std::size_t end = std::min(filter.find(' '), filter.size());
        if (end > 0) {
            words.push_back(folded(filter.substr(0, end)));
        }
        filter.remove_prefix(std::min(end + 1, filter.size()));
    }
    return words;
}

void add(std::string& question, const char* heading, const std::vector<std::string>& lines) {
    if (!lines.empty()) {
        question += (question.empty() ? "" : "\n\n") + std::string(heading) + "\n" +
                    listed(lines, kMostNamed);
    }
}

bool changes(RestoreStep step) {
    return step == RestoreStep::PutBack || step == RestoreStep::MakeAnew ||
           step == RestoreStep::Remove;
}

std::vector<std::string> pathsOf(const std::vector<RestoreItem>& plan,
                                 bool (*wanted)(const RestoreItem& item)) {
    std::vector<std::string> paths;
    for (const RestoreItem& item : plan) {
        if (wanted(item)) {
            paths.push_back(item.record.path + (item.reason.empty() ? "" : ": " + item.reason));
        }
    }
    return paths;
}

}  // namespace

std::string titleOf(const HistoryEntry& entry) {
    if (!entry.isReadable) {
        return gameTextToUtf8(entry.folder);
    }
    return entry.about.name.empty() ? entry.about.command
                                    : entry.about.command + " " + entry.about.name;
}

std::string detailsOf(const HistoryEntry& entry) {
    if (!entry.isReadable) {
        return "can't be read";
    }
    const std::vector<HistoryRecord>& records = entry.about.records;
    std::string details = timeOf(entry);
    if (records.size() == 1) {
        const std::optional<KeptPlace>& place = records[0].place;
        return place && place->kind == KeptKind::UserFile
                   ? details + ", " + place->path.substr(0, place->path.find('\\'))
                   : details;
    }
    return details + ", " + std::to_string(records.size()) + " files";
}

std::string changesOf(const HistoryRecord& record, int mostLines) {
    const std::vector<std::string> lines = linesOf(record.changes);
    if (lines.empty()) {
        return !record.before ? "made" : record.after ? "changed" : "deleted";
    }
    return listed(lines, static_cast<std::size_t>(mostLines));
}

bool fitsFilter(const HistoryEntry& entry, std::string_view filter) {
    std::vector<std::u16string> texts = {folded(titleOf(entry) + " " + timeOf(entry))};
    for (const HistoryRecord& record : entry.about.records) {
        texts.push_back(folded(record.path));
    }
    const std::vector<std::u16string> words = wordsOf(filter);
    return std::all_of(words.begin(), words.end(), [&](const std::u16string& word) {
        return std::any_of(texts.begin(), texts.end(), [&](const std::u16string& text) {
            return text.find(word) != std::u16string::npos;
        });
    });
}

GameOfRecord gameOfEntry(const HistoryPlaces& places, const HistoryEntry& entry) {
    std::set<KeptKind> seen;
    GameOfRecord best = GameOfRecord::Other;
    for (const HistoryRecord& record : entry.about.records) {
        if (record.place && seen.insert(record.place->kind).second) {
            best = std::min(best, gameOfRecord(places, entry.about, record.place->kind));
        }
    }
    return best;
}

std::string restoreQuestion(const HistoryEntry& entry, const std::vector<RestoreItem>& plan,
                            const std::vector<HistoryEntry>& all) {
    if (std::none_of(plan.begin(), plan.end(),
                     [](const RestoreItem& item) { return changes(item.step); })) {
        return {};
    }
    std::string question;
    const std::string heading =
        "Put back as it was before \"" + titleOf(entry) + "\" of " + timeOf(entry) + ":";
    add(question, heading.c_str(),
        pathsOf(plan, [](const RestoreItem& item) { return item.step == RestoreStep::PutBack; }));
    add(question, "Not there any more, to be made anew:",
        pathsOf(plan, [](const RestoreItem& item) { return item.step == RestoreStep::MakeAnew; }));
    add(question, "Made by that command, to be removed:",
        pathsOf(plan, [](const RestoreItem& item) { return item.step == RestoreStep::Remove; }));
    add(question, "Changed since by the game or by somebody; that goes back too:",
        pathsOf(plan, [](const RestoreItem& item) {
            return changes(item.step) && item.step != RestoreStep::MakeAnew && item.isChangedSince;
        }));
    std::set<std::int64_t> later;
    for (const RestoreItem& item : plan) {
        if (changes(item.step)) {
            later.insert(item.later.begin(), item.later.end());
        }
    }
    std::vector<std::string> laterTitles;
    for (const HistoryEntry& other : all) {
        if (later.contains(other.number)) {
            laterTitles.push_back(timeOf(other) + "  " + titleOf(other));
        }
    }
    add(question, "What these later commands did to them goes back too:", laterTitles);
    add(question, "Can not be restored:", pathsOf(plan, [](const RestoreItem& item) {
            return item.step == RestoreStep::Refused;
        }));
    return question;
}

std::string nothingToRestore(const std::vector<RestoreItem>& plan) {
    std::string text;
    add(text, "Can not be restored:", pathsOf(plan, [](const RestoreItem& item) {
            return item.step == RestoreStep::Refused;
        }));
    return text.empty() ? "All is as it was before that command already." : text;
}

}  // namespace marlowick
