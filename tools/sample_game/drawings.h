// What the pictures of the game show: faces, clothed figures, hands, pets.
#pragma once

#include <string>

#include "canvas.h"

namespace sample {

enum class Tone { Light, Medium, Dark };
inline constexpr Tone kTones[] = {Tone::Light, Tone::Medium, Tone::Dark};
const char* toneCode(Tone tone);
Colour skinColour(Tone tone);

// What a face looks like; every number may be any, it is taken modulo what there is.
struct Look {
    Tone tone = Tone::Light;
    bool female = false;
    bool child = false;
    unsigned hairStyle = 0;
    unsigned hairColour = 0;
    unsigned eyeColour = 0;
    unsigned clothes = 0;
    unsigned backdrop = 0;
};

enum class Mood { Glad, Calm, Cross };

// A portrait of 45 by 45 pixels; three moods side by side, 105 by 45; five small ones, 200 by 40.
Picture portrait(const Look& look);
Picture faceStrip(const Look& look);
Picture relationshipStrip(const Look& look);

enum class Body { Fit, Fat, Skinny, Child };

struct Figure {
    char outfit = 'B';  // the letter of the outfit
    bool female = false;
    Body body = Body::Fit;
    Tone tone = Tone::Light;
    unsigned variant = 0;
};

// Half widths of a figure's parts and the height of its shoulders, in units of a square of 100 by
// 100 whose middle is 50.
struct Frame {
    double shoulder, waist, hip, leg, top;
};
Frame frameOf(const Figure& figure);
// The height of its hips.
double hipOf(const Figure& figure);
// The radius of a head, whose chin lies 3 above the shoulders.
double headRadius(bool child);

// Where the clothes' backs are drawn, narrow, beside the figure: so much of a figure's width.
inline constexpr double kBackMiddle = 90.5;
inline constexpr double kBackWidth = 0.34;

// A clothed figure from the front with the back of its clothes, size by size pixels.
Picture figure(const Figure& figure, int size);

enum class HandPose { Open, Point, Closed };

// A hand, 64 by 64 pixels; gloved hands are those of formal wear.
Picture hand(HandPose pose, Colour skin, bool left);

// The skin of a head, rolled out: the face in the middle, the back of the head at both sides.
Picture headSkin(const Look& look, int size);
// On that skin: the square of 100 by 100 that a portrait's head is drawn in.
inline constexpr Point kFaceCorner = {18.5, -25};
inline constexpr double kFaceWidth = 0.63;
inline constexpr double kFaceHeight = 1.56;

// A dog or a cat from the side.
Picture pet(bool dog, unsigned coat, int size);

}  // namespace sample
