// The hands of a sim: four poses of a left and a right one. Everything that belongs to a hand is
// told here once: its row in the wardrobe table, its field, its picture and its commands.
#pragma once

#include <array>

#include "wardrobe/wardrobe_fields.h"

namespace marlowick {

enum class HandPose { Open, Closed, Point, Formal };

struct Hand {
    int row;                  // of the wardrobe table, from 1
    const char* sideAndPose;  // in the code before the skin of the row
    Field field;              // the skin
    const char* picture;      // the controls of the window
    const char* changeButton;
};

struct HandPair {
    HandPose pose;
    Hand left;
    Hand right;
    const char* copyButton;  // puts the left hand onto the right one
    const char* defaultButton;
    const char* defaultPrompt;
    const char*
        defaultStem;  // of the game's own hand, before the skin tone; formal hands have none
    // The pose whose pictures the default command fetches. For closed and pointing hands that is
    // the other one: the pose itself shows its old skin until the window is opened again.
    HandPose fetchedPose;
};

// In the order in which the pictures are shown.
extern const std::array<HandPair, 4> kHandPairs;
const HandPair& handPair(HandPose pose);

}  // namespace marlowick
