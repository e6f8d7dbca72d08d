// Where the cells of a page of 49 lie on the picture that shows them.
#pragma once

#include <QRect>

namespace marlowick {

// The whole of a cell, its frame included.
QRect cellBox(int cell);

}  // namespace marlowick
