// The page of sims in the main window: which files of a neighbourhood it shows, which cell is
// chosen, and where a sim's picture and its name lie in a cell. Cells, pages and pixels count as
// catalogue/thumbnail_page.h tells, which both pages of 49 stand on.
#pragma once

#include <string>

#include "catalogue/thumbnail_page.h"
#include "foundation/list.h"

namespace marlowick {

// A portrait is a square.
inline constexpr int kPortraitSize = 45;

// Two lines of small letters fit in.
inline constexpr int kNameWidth = 64;
inline constexpr int kNameHeight = 20;

// The upper left corners of a cell's portrait and of its name.
page::Position portraitPosition(int cell);
page::Position namePosition(int cell);

class SimPage {
  public:
    // The names of the neighbourhood's sim files.
    const List<std::string>& files() const { return files_; }
    // Other files; page and chosen cell stay as they are.
    void setFiles(List<std::string> files) { files_ = std::move(files); }

    // The page on view; -1, which shows nothing, is the last page of no sims.
    int number() const { return number_; }
    int pageCount() const { return page::pageCount(files_.bound()); }

    // To another page. False if there is nothing to do: the page is on view already, or none lies
    // that way.
    bool goToFirst();
    bool goToPrevious();
    bool goToNext();
    bool goToLast();

    // How many of the cells hold a sim, from cell 0 on.
    int filledCells() const;
    // The file of a cell; empty if it holds none. The cells behind the last are those of the next
    // page, and the cells before the first those of the page before.
    std::string fileIn(int cell) const;

    // The chosen cell. It may hold no sim, and lie outside of the 49.
    int selected() const { return selected_; }
    void select(int cell) { selected_ = cell; }
    std::string selectedFile() const { return fileIn(selected_); }

  private:
    bool goTo(int number);

    List<std::string> files_;
    int number_ = 0;
    int selected_ = 0;
};

}  // namespace marlowick
