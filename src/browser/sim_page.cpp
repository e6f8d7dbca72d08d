#include "browser/sim_page.h"

namespace marlowick::page {

Position corner(int cell) {
    return {(cell % kColumns) * kPitch, (cell / kColumns) * kPitch};
}

int cellAt(int x, int y) {
    return (y / kPitch) * kColumns + x / kPitch;
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
