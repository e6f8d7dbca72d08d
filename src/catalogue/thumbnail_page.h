// A page of 49 cells, seven by seven: where a cell lies and which entry of a list it
// shows. Cells count from 0, left to right and top to bottom; pages from 0; entries
// from 1; pixels from the page's upper left corner.
#pragma once

namespace marlowick::page {

inline constexpr int kColumns = 7;
inline constexpr int kCells = 49;
inline constexpr int kPitch = 68;  // pixels from cell to cell, both ways

struct Position {
    int x = 0;
    int y = 0;
};

// The upper left corner of a cell, which may lie outside of the page.
Position corner(int cell);

// The cell under a pixel. What lies behind the seventh column counts as an eighth one, which is the
// first cell of the next row; what lies before the first as the last cell of the row before. Above
// the page cells are below 0.
int cellAt(int x, int y);

// The cell beside another, so many columns and rows away; -1 outside the page's 49.
int cellBeside(int cell, int columns, int rows);

// The number of the entry in a cell.
int entryOf(int pageNumber, int cell);

// Number of pages for so many entries.
int pageCount(int entries);

// The last page for so many entries: -1 for none.
int lastPage(int entries);

}  // namespace marlowick::page
