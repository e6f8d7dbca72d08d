// A small game in which clothes can be seen worn: boards that stand upright and face the front.
#pragma once

#include <QImage>
#include <string>
#include <vector>

#include "support/test_folder.h"

class QWidget;

namespace marlowick::test {

// A board: its own left is +x, as that of a sim that is seen from the front lies at the right. u0
// is the texture's place at the side of its right hand.
struct Board {
    float right;  // x of that side, below left
    float left;
    float bottom;
    float top;
    float u0;
    float u1;
};

// The text form of a mesh of such boards on the bone ROOT.
std::string boardMesh(const std::vector<Board>& boards);

// The text form of a skeleton of that one bone.
std::string rootSkeleton();

// The text form of a suit of one mesh.
std::string oneMeshSuit(const std::string& suit, const std::string& mesh);

// A bitmap of two colours, the left half and the right half.
std::string halvesBitmap(unsigned left, unsigned right);

// Skeletons of all kinds, and in GameData/Skins the suits of these names: a trunk in the texture's
// left half with a left arm in its right half. Not the bitmaps.
void writeBodies(const TestFolder& folder, const std::vector<std::string>& bodies);

// A head above such a body, or a hand at its left or right side, with a bitmap of one colour.
void writeHead(const TestFolder& folder, const std::string& head, const std::string& skin,
               unsigned rgb);
void writeHand(const TestFolder& folder, const std::string& hand, const std::string& skin,
               unsigned rgb, bool left);

// Where a control shows a colour: pixels that are mostly red, green or blue.
struct ColourSeen {
    int left = 0;  // pixels in the left half of the control
    int right = 0;
    int top = 0;  // in the upper third
    int all() const { return left + right; }
};
ColourSeen redSeen(QWidget& control);
ColourSeen greenSeen(QWidget& control);
ColourSeen blueSeen(QWidget& control);

}  // namespace marlowick::test
