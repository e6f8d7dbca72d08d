// Pending changes to an archive. The rows are both what a person sees and what stands for an entry
// or a new file; nothing reaches the archive before it is saved (far_save.h).
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "far/far_directory.h"
#include "foundation/list.h"
#include "system/path.h"

namespace marlowick {

// A file waiting to be added. One that was taken back stays in its list with both texts empty, so
// that the numbers of the others don't shift.
struct FarAddedFile {
    std::string AddedName;  // game text; the name that the entry will bear
    Path AddedPath;
};

// Number n above 0 is entry n of the directory; below 0 it is the added file -n.
struct FarRow {
    std::string Text;  // game text: the mark, if there is one, and the name
    int Number = 0;
};

inline constexpr std::string_view kDeletedMark = "[DEL]  ";
inline constexpr std::string_view kNewMark = "[NEW]  ";

// Rows, entries and added files are counted in 16 bits, and the step behind the last must fit too.
inline constexpr int kMostFarRows = 32766;

// The rows as the list box counts them, from 0.
class FarRows {
  public:
    int count() const { return static_cast<int>(rows_.size()); }
    bool empty() const { return rows_.empty(); }
    // 9 for a row outside the list.
    FarRow& operator[](int row) { return rows_[checked(row)]; }
    const FarRow& operator[](int row) const { return rows_[checked(row)]; }
    std::vector<FarRow>::const_iterator begin() const { return rows_.begin(); }
    std::vector<FarRow>::const_iterator end() const { return rows_.end(); }

    void clear() { rows_.clear(); }
    void append(FarRow row) { rows_.push_back(std::move(row)); }
    // Takes the rows out that bear a number.
    void remove(int number);

  private:
    std::size_t checked(int row) const;

    std::vector<FarRow> rows_;
};

struct FarEdit {
    FarDirectory mudtFarDir;            // the open archive's; no entries for a new archive
    List<FarAddedFile> mudtAddedFiles;  // from 1
    Path mstrFarFile;                   // empty for a new archive
    FarRows Rows;
    bool ReadingFailed = false;  // the archive's directory, in the middle or at its very start
};

// One row for each entry, in the order of the file, in place of all rows. 6 past kMostFarRows.
void listEntries(FarEdit& edit);

// What became of a file that was to be added.
enum class FarAddition {
    Done,
    Duplicate,    // a row's text, marks included, equals the name but for case
    NoEntryName,  // no file of the game can bear the name (isFileName)
};

// Adds files of one folder. It takes the rows as they stand when it is made, so the edit must not
// change otherwise while it lives.
class FarAdder {
  public:
    FarAdder(FarEdit& edit, Path folder);

    // Unless it is done, nothing has changed. Raises 6 past kMostFarRows.
    FarAddition add(const std::string& name);

  private:
    FarEdit& edit_;
    Path folder_;
    std::set<std::string, std::less<>> taken_;  // upper case
};

// True if a save would change the archive.
bool hasChanges(const FarEdit& edit);

// Marks the entries of the selected rows, which are numbers of rows from 0, ascending, and takes
// the rows of new files out.
void deleteRows(FarEdit& edit, const std::vector<int>& selected);

// Takes the marks of the selected rows off again; rows of new files stay as they are.
void undeleteRows(FarEdit& edit, const std::vector<int>& selected);

// The first row from start that holds the text, blind to case; -1 if there is none.
int findRow(const FarEdit& edit, std::string_view text, int start);

// Where a search for the next match begins: behind the first selected row (-1 if none is), but at
// the last row where that was the last one already.
int nextSearchStart(const FarEdit& edit, int firstSelected);

// The rows of before that a save carries into the new archive, as rows of the new list: the
// selection of a list that is filled anew.
std::vector<int> rowsAfterSave(const FarEdit& before, const std::vector<int>& selected);

// What a save will change in the archive, in words for a person: "Deleted: a.bmp", "Added: b.bmp",
// a line each without an end behind the last, UTF-8. Behind the hundredth only their number is
// told.
std::string changesInWords(const FarEdit& edit);

}  // namespace marlowick
