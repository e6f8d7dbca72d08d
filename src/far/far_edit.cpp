#include "far/far_edit.h"

#include <algorithm>
#include <utility>

#include "system/game_text.h"

namespace marlowick {
namespace {

FarEntry* entryOf(FarEdit& edit, const FarRow& row) {
    return row.Number >= 1 ? &edit.mudtFarDir.Entries[row.Number] : nullptr;
}

}  // namespace

void FarRows::remove(int number) {
    std::erase_if(rows_, [number](const FarRow& row) { return row.Number == number; });
}

std::size_t FarRows::checked(int row) const {
    if (row < 0 || row >= count()) {
        throw RuntimeError(error::kSubscript);
    }
    return static_cast<std::size_t>(row);
}

void listEntries(FarEdit& edit) {
    edit.Rows.clear();
    const int count = farEntryCount(edit.mudtFarDir);
    if (count > kMostFarRows) {
        throw RuntimeError(error::kOverflow);
    }
    for (int number = 1; number <= count; ++number) {
        edit.Rows.append({edit.mudtFarDir.Entries[number].FileName, number});
    }
}

FarAdder::FarAdder(FarEdit& edit, Path folder) : edit_(edit), folder_(std::move(folder)) {
    for (const FarRow& row : edit.Rows) {
        taken_.insert(upperCase(row.Text));
    }
}

FarAddition FarAdder::add(const std::string& name) {
    if (!isFileName(name)) {
        return FarAddition::NoEntryName;
    }
    if (taken_.contains(upperCase(name))) {
        return FarAddition::Duplicate;
    }
    if (edit_.Rows.count() >= kMostFarRows || edit_.mudtAddedFiles.bound() >= kMostFarRows) {
        throw RuntimeError(error::kOverflow);
    }
    edit_.mudtAddedFiles.append({name, folder_.child(name)});
    const std::string text = std::string(kNewMark) + name;
    edit_.Rows.append({text, -edit_.mudtAddedFiles.bound()});
    taken_.insert(upperCase(text));
    return FarAddition::Done;
}

bool hasChanges(const FarEdit& edit) {
    return std::any_of(edit.Rows.begin(), edit.Rows.end(), [&](const FarRow& row) {
        return row.Number < 1 || edit.mudtFarDir.Entries[row.Number].Deleted;
    });
}

void deleteRows(FarEdit& edit, const std::vector<int>& selected) {
    for (const int index : selected) {
        FarRow& row = edit.Rows[index];
        FarEntry* entry = entryOf(edit, row);
        if (entry == nullptr) {
            edit.mudtAddedFiles[-row.Number] = {};
            row.Number = 0;
        } else if (!entry->Deleted) {
            row.Text.insert(0, kDeletedMark);
            entry->Deleted = true;
        }
    }
    edit.Rows.remove(0);
}

void undeleteRows(FarEdit& edit, const std::vector<int>& selected) {
    for (const int index : selected) {
        FarRow& row = edit.Rows[index];
        FarEntry* entry = entryOf(edit, row);
        if (entry != nullptr && entry->Deleted) {
            row.Text.erase(0, kDeletedMark.size());
            entry->Deleted = false;
        }
    }
}

int findRow(const FarEdit& edit, std::string_view text, int start) {
    const std::string wanted = upperCase(text);
    for (int row = start; row < edit.Rows.count(); ++row) {
        if (upperCase(edit.Rows[row].Text).find(wanted) != std::string::npos) {
            return row;
        }
    }
    return -1;
}

int nextSearchStart(const FarEdit& edit, int firstSelected) {
    return std::min(firstSelected + 1, edit.Rows.count() - 1);
}

std::vector<int> rowsAfterSave(const FarEdit& before, const std::vector<int>& selected) {
    std::vector<int> rows;
    int kept = 0;
    for (int row = 0; row < before.Rows.count(); ++row) {
        const int number = before.Rows[row].Number;
        if (number >= 1 && before.mudtFarDir.Entries[number].Deleted) {
            continue;
        }
        if (std::binary_search(selected.begin(), selected.end(), row)) {
            rows.push_back(kept);
        }
        ++kept;
    }
    return rows;
}

std::string changesInWords(const FarEdit& edit) {
    constexpr int kMostTold = 100;
    std::string words;
    int count = 0;
    const auto tell = [&](const char* what, const std::string& name) {
        if (++count <= kMostTold) {
            words += (words.empty() ? "" : "\n") + std::string(what) + gameTextToUtf8(name);
        }
    };
    for (int number = 1; number <= edit.mudtFarDir.Entries.bound(); ++number) {
        if (edit.mudtFarDir.Entries[number].Deleted) {
            tell("Deleted: ", edit.mudtFarDir.Entries[number].FileName);
        }
    }
    for (int number = 1; number <= edit.mudtAddedFiles.bound(); ++number) {
        if (!edit.mudtAddedFiles[number].AddedName.empty()) {
            tell("Added: ", edit.mudtAddedFiles[number].AddedName);
        }
    }
    return count <= kMostTold ? words
                              : words + "\nand " + std::to_string(count - kMostTold) + " more";
}

}  // namespace marlowick
