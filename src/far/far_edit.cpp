#include "far/far_edit.h"

#include <algorithm>
#include <utility>

#include "system/game_text.h"

namespace marlowick {
namespace {

FarEntry* entryOf(FarEdit& edit, const FarRow& row) {
    return row.Number >= 1 ? &edit.mudtFarDir.Entries[row.Number] : nullptr;
}

FarRow& rowAt(FarEdit& edit, int row) {
    return edit.Rows.at(static_cast<std::size_t>(row));
}

}  // namespace

void listEntries(FarEdit& edit) {
    edit.Rows.clear();
    const int count = farEntryCount(edit.mudtFarDir);
    if (count > kMostFarRows) {
        throw RuntimeError(error::kOverflow);
    }
    edit.Rows.reserve(static_cast<std::size_t>(count));
    for (int number = 1; number <= count; ++number) {
        edit.Rows.push_back({edit.mudtFarDir.Entries[number].FileName, number});
    }
}

FarAdder::FarAdder(FarEdit& edit, Path folder) : edit_(edit), folder_(std::move(folder)) {
    for (const FarRow& row : edit.Rows) {
        taken_.insert(upperCase(row.Text));
    }
}

bool FarAdder::add(const std::string& name) {
    if (taken_.contains(upperCase(name))) {
        return false;
    }
    if (static_cast<int>(edit_.Rows.size()) >= kMostFarRows ||
        edit_.mudtAddedFiles.bound() >= kMostFarRows) {
        throw RuntimeError(error::kOverflow);
    }
    edit_.mudtAddedFiles.append({name, folder_.child(name)});
    edit_.Rows.push_back({std::string(kNewMark) + name, -edit_.mudtAddedFiles.bound()});
    taken_.insert(upperCase(edit_.Rows.back().Text));
    return true;
}

void deleteRows(FarEdit& edit, const std::vector<int>& selected) {
    for (const int index : selected) {
        FarRow& row = rowAt(edit, index);
        FarEntry* entry = entryOf(edit, row);
        if (entry == nullptr) {
            edit.mudtAddedFiles[-row.Number] = {};
            row.Number = 0;
        } else if (!entry->Deleted) {
            row.Text.insert(0, kDeletedMark);
            entry->Deleted = true;
        }
    }
    std::erase_if(edit.Rows, [](const FarRow& row) { return row.Number == 0; });
}

void undeleteRows(FarEdit& edit, const std::vector<int>& selected) {
    for (const int index : selected) {
        FarRow& row = rowAt(edit, index);
        FarEntry* entry = entryOf(edit, row);
        if (entry != nullptr && entry->Deleted) {
            row.Text.erase(0, kDeletedMark.size());
            entry->Deleted = false;
        }
    }
}

int findRow(const FarEdit& edit, std::string_view text, int start) {
    const std::string wanted = upperCase(text);
    for (int row = start; row < static_cast<int>(edit.Rows.size()); ++row) {
        const std::string& shown = edit.Rows[static_cast<std::size_t>(row)].Text;
        if (upperCase(shown).find(wanted) != std::string::npos) {
            return row;
        }
    }
    return -1;
}

int nextSearchStart(const FarEdit& edit, int firstSelected) {
    return std::min(firstSelected + 1, static_cast<int>(edit.Rows.size()) - 1);
}

std::vector<int> rowsAfterSave(const FarEdit& before, const std::vector<int>& selected) {
    std::vector<int> rows;
    int kept = 0;
    for (int row = 0; row < static_cast<int>(before.Rows.size()); ++row) {
        const int number = before.Rows[static_cast<std::size_t>(row)].Number;
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

}  // namespace marlowick
