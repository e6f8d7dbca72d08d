#include "catalogue/thumbnail_page.h"

namespace marlowick::page {

Position corner(int cell) {
    return {(cell % kColumns) * kPitch, (cell / kColumns) * kPitch};
}

int cellAt(int x, int y) {
    return (y / kPitch) * kColumns + x / kPitch;
}

int cellBeside(int cell, int columns, int rows) {
    const int column = cell % kColumns + columns;
    const int row = cell / kColumns + rows;
    const bool inside = column >= 0 && column < kColumns && row >= 0 && row < kCells / kColumns;
    return inside ? row * kColumns + column : -1;
}

int entryOf(int pageNumber, int cell) {
    return pageNumber * kCells + cell + 1;
}

int pageCount(int entries) {
    return (entries + kCells - 1) / kCells;
}

int lastPage(int entries) {
    return pageCount(entries) - 1;
}

}  // namespace marlowick::page
