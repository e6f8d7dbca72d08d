#include "catalogue/thumbnail_page.h"

namespace marlowick::page {

namespace {

// Rounded down, also below 0.
int quotient(int number, int divisor) {
    return (number - (number < 0 ? divisor - 1 : 0)) / divisor;
}

int rowOf(int cell) {
    return quotient(cell, kColumns);
}

int columnOf(int cell) {
    return cell - rowOf(cell) * kColumns;
}

}  // namespace

Position corner(int cell) {
    return {columnOf(cell) * kPitch, rowOf(cell) * kPitch};
}

int cellAt(int x, int y) {
    return quotient(y, kPitch) * kColumns + quotient(x, kPitch);
}

int cellBeside(int cell, int columns, int rows) {
    const int column = columnOf(cell) + columns;
    const int row = rowOf(cell) + rows;
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
