#include "drawings.h"

#include <array>

namespace sample {
namespace {

const Colour kWhite = rgb(0xFFFFFF);
const Colour kInk = rgb(0x3A2A2A);

const std::array<Colour, 6> kHair = {rgb(0x2B1B14), rgb(0x5B3A1E), rgb(0x8F5A2A),
                                     rgb(0xD9B25F), rgb(0xA63F1E), rgb(0x9A9A9E)};
const std::array<Colour, 4> kEyes = {rgb(0x3E6FA3), rgb(0x4F7A3A), rgb(0x5A3A20), rgb(0x6A7A86)};
const std::array<Colour, 8> kCloth = {rgb(0x2F6DB5), rgb(0xC0392B), rgb(0x2E8B57), rgb(0xE0A030),
                                      rgb(0x7D4AA0), rgb(0x2FA6A6), rgb(0xD9688F), rgb(0x5C6B7A)};
const std::array<Colour, 6> kBackdrop = {rgb(0xCFE3F5), rgb(0xF5E3CF), rgb(0xDDF0D5),
                                         rgb(0xF2DCE6), rgb(0xE3DCF2), rgb(0xF3F0CF)};

template <std::size_t N>
Colour pick(const std::array<Colour, N>& colours, unsigned number) {
    return colours.at(number % N);
}

void drawHairBehind(Canvas& canvas, const Look& look, Colour hair) {
    if (look.female && look.hairStyle % 3 != 2) {
        const double length = look.hairStyle % 3 == 0 ? 40 : 26;
        canvas.ellipse({50, 46}, 33, 34, hair);
        canvas.rect(18, 46, 82, 46 + length, hair);
        canvas.ellipse({50, 46 + length}, 32, 8, hair);
    }
}

void drawHairInFront(Canvas& canvas, const Look& look, Colour hair) {
    canvas.dome({50, 42}, 29, 28, 36, hair);
    switch (look.hairStyle % 4) {
        case 0:
            canvas.polygon({{22, 40}, {30, 22}, {60, 20}, {74, 30}, {58, 33}, {36, 36}}, hair);
            break;
        case 1:
            canvas.polygon({{24, 38}, {46, 26}, {78, 38}, {76, 26}, {50, 14}, {24, 26}}, hair);
            canvas.ellipse({24, 42}, 5, 9, hair);
            canvas.ellipse({76, 42}, 5, 9, hair);
            break;
        case 2:
            for (int i = 0; i < 6; ++i) {
                canvas.ellipse({26.0 + i * 9.6, 22.0 + (i % 2) * 5}, 9, 8, hair);
            }
            break;
        default:
            canvas.rect(24, 30, 76, 37, hair);
            break;
    }
}

void drawEyes(Canvas& canvas, const Look& look, Colour hair) {
    for (const double x : {39.0, 61.0}) {
        canvas.ellipse({x, 48}, 6, 4.6, kWhite);
        canvas.ellipse({x, 48.4}, 3.4, 3.8, pick(kEyes, look.eyeColour));
        canvas.ellipse({x, 48.4}, 1.7, 2, kInk);
        canvas.ellipse({x + 1.2, 47}, 0.9, 0.9, kWhite);
        canvas.stroke({{x - 6, 41}, {x, 39.4}, {x + 6, 41}}, 2, darker(hair, 30));
        if (look.female && !look.child) {
            canvas.stroke({{x - 6.5, 46}, {x, 43.4}, {x + 6.5, 46}}, 1.4, kInk);
        }
    }
}

void drawMouth(Canvas& canvas, const Look& look, Mood mood, Colour skin) {
    const Colour lip = look.female ? rgb(0xB8414B) : darker(mix(skin, rgb(0xB05050), 55), 8);
    if (mood == Mood::Glad) {
        canvas.ellipse({50, 66}, 11, 6.5, lip);
        canvas.ellipse({50, 65}, 9, 3.6, kWhite);
        canvas.rect(38, 58, 62, 63.2, skin);
    } else if (mood == Mood::Calm) {
        canvas.stroke({{42, 67}, {50, 68.4}, {58, 67}}, 3, lip);
    } else {
        canvas.stroke({{42, 70}, {50, 66.5}, {58, 70}}, 3, lip);
    }
}

Colour hairColour(const Look& look) {
    return pick(kHair, look.tone == Tone::Dark ? look.hairColour % 2 : look.hairColour);
}

// What a head has in front.
void drawFace(Canvas& canvas, const Look& look, Mood mood) {
    const Colour skin = skinColour(look.tone);
    const Colour hair = hairColour(look);
    const Colour cheek = mix(skin, rgb(0xE06A5A), look.female || look.child ? 26 : 12);
    canvas.ellipse({33.5, 59}, 5.5, 4, cheek);
    canvas.ellipse({66.5, 59}, 5.5, 4, cheek);
    drawEyes(canvas, look, hair);
    canvas.stroke({{50, 52}, {48.4, 58}, {51, 59}}, 1.6, darker(skin, 24));
    drawMouth(canvas, look, mood, skin);
}

// A head in a square of 100 units, shoulders below.
void drawHead(Canvas& canvas, const Look& look, Mood mood) {
    const Colour skin = skinColour(look.tone);
    const Colour hair = hairColour(look);
    const Colour cloth = pick(kCloth, look.clothes);
    drawHairBehind(canvas, look, hair);
    canvas.ellipse({50, 108}, 40, 28, cloth);
    canvas.polygon({{38, 82}, {62, 82}, {50, 96}}, darker(skin, 12));
    canvas.rect(42, 70, 58, 86, darker(skin, 12));
    canvas.ellipse({24.5, 52}, 4.5, 6.5, darker(skin, 8));
    canvas.ellipse({75.5, 52}, 4.5, 6.5, darker(skin, 8));
    canvas.ellipse({50, 46}, 26, 26, skin);
    canvas.ellipse({50, look.child ? 56.0 : 58.0}, look.child ? 25 : 22, look.child ? 21 : 22,
                   skin);
    drawFace(canvas, look, mood);
    drawHairInFront(canvas, look, hair);
}

std::vector<Point> torso(const Frame& f, double bottom) {
    const double middle = (f.top + bottom) / 2;
    return {{50 - f.shoulder, f.top}, {50 + f.shoulder, f.top}, {50 + f.waist, middle + 2},
            {50 + f.hip, bottom},     {50 - f.hip, bottom},     {50 - f.waist, middle + 2}};
}

struct Dress {
    const Figure& figure;
    Frame frame;
    double hip;
    Colour skin;
    Colour main;
    Colour accent;
    bool isBack = false;
};

// Arms and legs look the same from behind.
void drawLimbs(Canvas& canvas, const Dress& d, Colour arm, Colour leg) {
    if (d.isBack) {
        return;
    }
    const Frame& f = d.frame;
    const double hipY = d.hip;
    canvas.stroke({{50 - f.shoulder, f.top + 3},
                   {50 - f.shoulder - 6, f.top + 18},
                   {50 - f.shoulder - 8, f.top + 32}},
                  f.leg * 1.15, arm);
    canvas.stroke({{50 + f.shoulder, f.top + 3},
                   {50 + f.shoulder + 6, f.top + 18},
                   {50 + f.shoulder + 8, f.top + 32}},
                  f.leg * 1.15, arm);
    canvas.stroke({{50 - f.hip * 0.52, hipY}, {50 - f.hip * 0.6, 93}}, f.leg * 1.7, leg);
    canvas.stroke({{50 + f.hip * 0.52, hipY}, {50 + f.hip * 0.6, 93}}, f.leg * 1.7, leg);
}

void drawFeet(Canvas& canvas, const Dress& d, Colour shoe) {
    if (d.isBack) {
        return;
    }
    const Frame& f = d.frame;
    canvas.ellipse({50 - f.hip * 0.6 - 1.5, 96}, f.leg * 1.25, 3, shoe);
    canvas.ellipse({50 + f.hip * 0.6 + 1.5, 96}, f.leg * 1.25, 3, shoe);
}

void drawMannequinHead(Canvas& canvas, const Figure& figure, const Frame& f, Colour skin) {
    const double radius = headRadius(figure.body == Body::Child);
    const double y = f.top - radius - 3;
    const Colour hair = figure.tone == Tone::Dark ? kHair[0] : pick(kHair, figure.variant + 3U);
    if (figure.female) {
        canvas.ellipse({50, y}, radius + 1.6, radius + 1.4, hair);
        canvas.stroke({{50 - radius * 0.9, y}, {50 - radius, f.top - 3}}, 4, hair);
        canvas.stroke({{50 + radius * 0.9, y}, {50 + radius, f.top - 3}}, 4, hair);
    }
    canvas.rect(47, f.top - 6, 53, f.top + 3, darker(skin, 12));
    canvas.ellipse({50, y}, radius * 0.88, radius, skin);
    canvas.dome({50, y}, radius * 0.95, radius * 1.08, y - radius * 0.3, hair);
    for (const double side : {-3.2, 3.2}) {
        canvas.ellipse({50 + side, y + 0.8}, 1, 1.3, kInk);
    }
    canvas.stroke({{48, y + 4.6}, {50, y + 5.3}, {52, y + 4.6}}, 0.9, rgb(0xA84848));
}

void drawNormal(Canvas& canvas, const Dress& d) {
    const Colour trousers = darker(pick(kCloth, d.figure.variant + 3), 40);
    drawLimbs(canvas, d, d.skin, trousers);
    drawFeet(canvas, d, rgb(0x4A3626));
    canvas.polygon(torso(d.frame, d.hip + 2), d.main);
    canvas.stroke(
        {{50 - d.frame.shoulder, d.frame.top + 3}, {50 - d.frame.shoulder - 4, d.frame.top + 12}},
        d.frame.leg * 1.5, d.main);
    canvas.stroke(
        {{50 + d.frame.shoulder, d.frame.top + 3}, {50 + d.frame.shoulder + 4, d.frame.top + 12}},
        d.frame.leg * 1.5, d.main);
    if (d.figure.variant % 3 == 1) {
        for (double y = d.frame.top + 8; y < d.hip - 2; y += 8) {
            canvas.rect(50 - d.frame.waist, y, 50 + d.frame.waist, y + 3, d.accent);
        }
    } else if (d.figure.variant % 3 == 2 && !d.isBack) {
        canvas.ellipse({50, d.frame.top + 16}, 5, 5, d.accent);
    }
    canvas.rect(50 - d.frame.hip, d.hip, 50 + d.frame.hip, d.hip + 3, rgb(0x3A2A1E));
}

void drawSwimsuit(Canvas& canvas, const Dress& d) {
    drawLimbs(canvas, d, d.skin, d.skin);
    drawFeet(canvas, d, darker(d.skin, 10));
    canvas.polygon(torso(d.frame, d.hip + 3), d.skin);
    const double w = d.frame.hip;
    if (d.figure.female) {
        if (d.isBack) {
            canvas.rect(50 - d.frame.shoulder, d.frame.top + 9, 50 + d.frame.shoulder,
                        d.frame.top + 12, d.main);
        } else {
            canvas.ellipse({50 - 4.2, d.frame.top + 10}, 4.4, 4.4, d.main);
            canvas.ellipse({50 + 4.2, d.frame.top + 10}, 4.4, 4.4, d.main);
        }
        canvas.stroke({{46, d.frame.top + 7}, {47, d.frame.top}}, 1.2, d.main);
        canvas.stroke({{54, d.frame.top + 7}, {53, d.frame.top}}, 1.2, d.main);
        canvas.polygon({{50 - w, d.hip - 2}, {50 + w, d.hip - 2}, {52, d.hip + 8}, {48, d.hip + 8}},
                       d.main);
    } else {
        canvas.rect(50 - w, d.hip - 3, 50 + w, d.hip + 6, d.main);
        canvas.polygon(
            {{50 - w, d.hip + 5}, {50, d.hip + 5}, {49, d.hip + 14}, {50 - w, d.hip + 14}}, d.main);
        canvas.polygon(
            {{50, d.hip + 5}, {50 + w, d.hip + 5}, {50 + w, d.hip + 14}, {51, d.hip + 14}}, d.main);
        canvas.rect(50 - w, d.hip - 3, 50 + w, d.hip - 1, d.accent);
    }
}

void drawGown(Canvas& canvas, const Dress& d) {
    drawLimbs(canvas, d, d.skin, d.main);
    canvas.polygon(torso(d.frame, d.hip), d.main);
    canvas.polygon(
        {{50 - d.frame.waist, d.hip - 12}, {50 + d.frame.waist, d.hip - 12}, {74, 96}, {26, 96}},
        d.main);
    canvas.rect(50 - d.frame.waist, d.hip - 14, 50 + d.frame.waist, d.hip - 11, d.accent);
    if (!d.isBack) {
        canvas.polygon({{50 - 3, d.hip - 10}, {50 + 3, d.hip - 10}, {58, 96}, {42, 96}},
                       lighter(d.main, 22));
        canvas.polygon({{44, d.frame.top}, {56, d.frame.top}, {50, d.frame.top + 10}}, d.skin);
        canvas.ellipse({50, d.frame.top + 2}, 1.4, 1.4, rgb(0xF2D060));
    }
}

void drawSuit(Canvas& canvas, const Dress& d) {
    const Colour cloth = darker(mix(d.main, rgb(0x20242C), 70), 10);
    drawLimbs(canvas, d, cloth, cloth);
    drawFeet(canvas, d, rgb(0x14110F));
    canvas.polygon(torso(d.frame, d.hip + 4), cloth);
    if (d.isBack) {
        return;
    }
    canvas.polygon({{44, d.frame.top}, {56, d.frame.top}, {50, d.frame.top + 20}}, kWhite);
    canvas.polygon({{45.5, d.frame.top + 3},
                    {54.5, d.frame.top + 6.5},
                    {54.5, d.frame.top + 2.5},
                    {45.5, d.frame.top + 7}},
                   d.accent);
    for (double y = d.frame.top + 22; y < d.hip; y += 6) {
        canvas.ellipse({50, y}, 1, 1, lighter(cloth, 40));
    }
}

void drawPajamas(Canvas& canvas, const Dress& d) {
    const Colour cloth = lighter(d.main, 55);
    drawLimbs(canvas, d, cloth, cloth);
    drawFeet(canvas, d, d.main);
    canvas.polygon(torso(d.frame, d.hip + 4), cloth);
    for (double x = 50 - d.frame.waist; x <= 50 + d.frame.waist; x += 4) {
        canvas.stroke({{x, d.frame.top + 2}, {x, d.hip + 3}}, 1.1, d.main);
    }
    if (d.isBack) {
        return;
    }
    for (const double side : {-0.56, 0.56}) {
        for (const double shift : {-2.0, 2.0}) {
            const double x = 50 + d.frame.hip * side + shift;
            canvas.stroke({{x, d.hip + 6}, {x, 92}}, 1, d.main);
        }
    }
    canvas.polygon({{44, d.frame.top}, {56, d.frame.top}, {50, d.frame.top + 7}}, d.skin);
}

void drawWinter(Canvas& canvas, const Dress& d) {
    const Colour coat = d.main;
    drawLimbs(canvas, d, coat, rgb(0x3C3A48));
    drawFeet(canvas, d, rgb(0x6A4526));
    canvas.polygon(torso(d.frame, d.hip + 16), coat);
    canvas.rect(50 - d.frame.hip - 1, d.hip + 12, 50 + d.frame.hip + 1, d.hip + 17,
                lighter(coat, 70));
    if (!d.isBack) {
        canvas.rect(49, d.frame.top, 51, d.hip + 12, darker(coat, 35));
    }
    canvas.rect(50 - d.frame.shoulder * 0.7, d.frame.top - 3, 50 + d.frame.shoulder * 0.7,
                d.frame.top + 4, d.accent);
    if (d.isBack) {
        return;
    }
    canvas.rect(54, d.frame.top + 3, 59, d.frame.top + 20, d.accent);
    for (const double side : {-1.0, 1.0}) {
        canvas.ellipse({50 + side * (d.frame.shoulder + 8), d.frame.top + 33}, 4, 4.4, d.accent);
    }
}

void drawFashion(Canvas& canvas, const Dress& d) {
    const Colour shiny = mix(d.main, rgb(0xD8B040), 25);
    drawLimbs(canvas, d, d.figure.female ? d.skin : shiny,
              d.figure.female ? rgb(0x26242C) : darker(shiny, 40));
    drawFeet(canvas, d, rgb(0xB02040));
    canvas.polygon(torso(d.frame, d.hip + 6), shiny);
    if (d.isBack) {
        return;
    }
    canvas.polygon({{50 - d.frame.shoulder, d.frame.top},
                    {50, d.frame.top},
                    {50 + d.frame.hip, d.hip + 6},
                    {50 + d.frame.hip - 7, d.hip + 6}},
                   d.accent);
    for (int i = 0; i < 9; ++i) {
        canvas.ellipse({50 - 8.0 + (i * 37 % 17), d.frame.top + 6.0 + i * 3.4}, 0.9, 0.9, kWhite);
    }
}

void drawNude(Canvas& canvas, const Dress& d) {
    drawSwimsuit(canvas,
                 {d.figure, d.frame, d.hip, d.skin, rgb(0xE8E8EC), rgb(0xC8C8D0), d.isBack});
}

// The clothes from behind, without what is drawn on their front. They fit in a narrow strip.
void drawBack(Canvas& canvas, Dress dress, void (*draw)(Canvas&, const Dress&)) {
    dress.isBack = true;
    canvas.place({kBackMiddle - 50 * kBackWidth, 0}, 100, kBackWidth);
    canvas.rect(45, dress.frame.top - 9, 55, dress.frame.top + 3, darker(dress.skin, 12));
    draw(canvas, dress);
    canvas.place({0, 0}, 100);
}

}  // namespace

Frame frameOf(const Figure& figure) {
    const double female = figure.female ? -1.5 : 1.5;
    switch (figure.body) {
        case Body::Fat:
            return {17 + female, 17, 17, 7.5, 30};
        case Body::Skinny:
            return {11.5 + female, 7.5, 9, 4.2, 30};
        case Body::Child:
            return {10.5, 9, 9.5, 4.6, 44};
        case Body::Fit:
            break;
    }
    return {14.5 + female, figure.female ? 8.8 : 11, figure.female ? 12.0 : 11.5, 5.4, 30};
}

double hipOf(const Figure& figure) {
    return frameOf(figure).top + (figure.body == Body::Child ? 24 : 32);
}

double headRadius(bool child) {
    return child ? 9.5 : 8.5;
}

const char* toneCode(Tone tone) {
    return tone == Tone::Light ? "lgt" : (tone == Tone::Medium ? "med" : "drk");
}

Colour skinColour(Tone tone) {
    return rgb(tone == Tone::Light ? 0xF3C9A5 : (tone == Tone::Medium ? 0xCB9264 : 0x84532F));
}

Picture portrait(const Look& look) {
    Canvas canvas(45, 45);
    const Colour back = pick(kBackdrop, look.backdrop);
    canvas.fill(back, darker(back, 14));
    drawHead(canvas, look, Mood::Glad);
    return canvas.finished();
}

Picture faceStrip(const Look& look) {
    Canvas canvas(105, 45);
    canvas.fill(rgb(0xF4F6FA), rgb(0xDDE4EE));
    double x = 0;
    for (const Mood mood : {Mood::Glad, Mood::Calm, Mood::Cross}) {
        canvas.place({x - 11, 0}, 100);
        drawHead(canvas, look, mood);
        x += 233.3 / 3;
    }
    return canvas.finished();
}

Picture relationshipStrip(const Look& look) {
    Canvas canvas(200, 40);
    canvas.fill(rgb(0xF4F6FA), rgb(0xDDE4EE));
    for (int i = 0; i < 5; ++i) {
        const Mood moods[] = {Mood::Cross, Mood::Cross, Mood::Calm, Mood::Glad, Mood::Glad};
        canvas.place({i * 100.0 + 12, 12}, 76);
        drawHead(canvas, look, moods[i]);
        canvas.place({i * 100.0, 0}, 100);
        const Colour sign = i < 2 ? rgb(0xB03030) : (i == 2 ? rgb(0x8A8A92) : rgb(0xD04070));
        canvas.ellipse({76, 16}, 8, 8, sign);
        canvas.ellipse({88, 16}, 8, 8, sign);
        canvas.polygon({{68.6, 19}, {95.4, 19}, {82, 34}}, sign);
    }
    return canvas.finished();
}

Picture figure(const Figure& wanted, int size) {
    using Draw = void (*)(Canvas&, const Dress&);
    struct Row {
        char outfit;
        bool female;
        Draw draw;
    };
    static constexpr Row kRows[] = {
        {'B', false, drawNormal},  {'B', true, drawNormal},   {'S', false, drawSwimsuit},
        {'S', true, drawSwimsuit}, {'F', false, drawSuit},    {'F', true, drawGown},
        {'L', false, drawPajamas}, {'L', true, drawPajamas},  {'W', false, drawWinter},
        {'W', true, drawWinter},   {'H', false, drawFashion}, {'H', true, drawFashion},
        {'N', false, drawNude},    {'N', true, drawNude},
    };
    Canvas canvas(size, size);
    canvas.fill(rgb(0xEEF2F7), rgb(0xD3DCE8));
    canvas.ellipse({50, 97}, 30, 3, rgb(0xB9C4D2));
    const Frame frame = frameOf(wanted);
    const Dress dress{wanted,
                      frame,
                      hipOf(wanted),
                      skinColour(wanted.tone),
                      pick(kCloth, wanted.variant),
                      lighter(pick(kCloth, wanted.variant + 3), 15)};
    for (const Row& row : kRows) {
        if (row.outfit == wanted.outfit && row.female == wanted.female) {
            drawBack(canvas, dress, row.draw);
            row.draw(canvas, dress);
        }
    }
    for (const double side : {-1.0, 1.0}) {
        if (wanted.outfit != 'W') {
            canvas.ellipse({50 + side * (frame.shoulder + 8.5), frame.top + 34}, 3, 3.6,
                           dress.skin);
        }
    }
    drawMannequinHead(canvas, wanted, frame, dress.skin);
    return canvas.finished();
}

Picture headSkin(const Look& look, int size) {
    const Colour skin = skinColour(look.tone);
    const Colour hair = hairColour(look);
    Canvas canvas(size, size);
    canvas.fill(skin, skin);
    // The hair on top, at the temples, at the sides and behind.
    canvas.rect(0, 0, 100, 14, hair);
    canvas.rect(26, 0, 34, 31, hair);
    canvas.rect(66, 0, 74, 31, hair);
    const double neckline = look.female ? 100 : 66;
    canvas.rect(0, 0, 27, neckline, hair);
    canvas.rect(73, 0, 100, neckline, hair);
    canvas.place(kFaceCorner, 100, kFaceWidth, kFaceHeight);
    drawFace(canvas, look, Mood::Glad);
    drawHairInFront(canvas, look, hair);
    return canvas.finished();
}

Picture hand(HandPose pose, Colour skin, bool left) {
    Canvas canvas(64, 64);
    canvas.fill(rgb(0xE6EEF6), rgb(0xC9D6E4));
    const Colour edge = darker(skin, 28);
    const double side = left ? 1 : -1;
    const auto at = [&](double x, double y) { return Point{50 + side * x, y}; };
    const auto finger = [&](double x, double top, double lean, double width) {
        canvas.stroke({at(x, 56), at(x + lean, top)}, width + 2, edge);
        canvas.stroke({at(x, 56), at(x + lean, top)}, width, skin);
    };
    canvas.rect(38, 76, 62, 102, edge);
    canvas.rect(39.5, 74, 60.5, 102, skin);
    const bool fist = pose == HandPose::Closed;
    finger(-12, pose == HandPose::Open ? 22 : 44, -3, 9);
    finger(-4, pose == HandPose::Open ? 14 : 42, -1, 9);
    finger(4, fist ? 41 : (pose == HandPose::Point ? 9 : 15), 1, 9);
    finger(12, pose == HandPose::Open ? 24 : 45, 4, 8.5);
    canvas.ellipse(at(0, 64), 21, 19, edge);
    canvas.ellipse(at(0, 64), 19.6, 17.6, skin);
    const Point thumb = fist ? at(4, 62) : at(27, 48);
    canvas.stroke({at(16, 68), thumb}, 11, edge);
    canvas.stroke({at(16, 68), thumb}, 9, skin);
    canvas.stroke({at(-10, 58), at(-6, 61), at(-1, 61)}, 1.2, edge);
    return canvas.finished();
}

Picture pet(bool dog, unsigned coat, int size) {
    const std::array<Colour, 5> coats = {rgb(0xB9793B), rgb(0x4A3B32), rgb(0xD8C6A8), rgb(0x8A8E96),
                                         rgb(0xE6A24C)};
    const Colour fur = pick(coats, coat);
    const Colour light = lighter(fur, 45);
    Canvas canvas(size, size);
    canvas.fill(rgb(0xDDF0E0), rgb(0xB8D8BE));
    canvas.ellipse({52, 93}, 36, 4, rgb(0x93B89B));
    canvas.stroke({{80, 58}, {90, dog ? 44.0 : 40.0}, {dog ? 92.0 : 84.0, dog ? 34.0 : 26.0}},
                  dog ? 6 : 5, darker(fur, 12));
    for (const double x : {36.0, 46.0, 68.0, 77.0}) {
        canvas.stroke({{x, 66}, {x, 90}}, dog ? 8 : 6.5,
                      x == 46 || x == 68 ? darker(fur, 18) : fur);
    }
    canvas.ellipse({58, 62}, 27, dog ? 16 : 14, fur);
    canvas.ellipse({58, 69}, 20, 8, light);
    canvas.ellipse({30, 42}, 18, 17, fur);
    if (dog) {
        canvas.ellipse({17, 40}, 6, 13, darker(fur, 25));
        canvas.ellipse({43, 40}, 6, 13, darker(fur, 25));
        canvas.ellipse({30, 50}, 10, 8, light);
    } else {
        canvas.polygon({{14, 34}, {16, 16}, {28, 28}}, fur);
        canvas.polygon({{46, 34}, {44, 16}, {32, 28}}, fur);
        canvas.ellipse({30, 50}, 8, 6, light);
        for (const double y : {48.0, 51.0}) {
            canvas.stroke({{8, y}, {22, 50}}, 0.7, kWhite);
            canvas.stroke({{38, 50}, {52, y}}, 0.7, kWhite);
        }
    }
    for (const double x : {24.0, 36.0}) {
        canvas.ellipse({x, 40}, 3.4, 3.8, dog ? kWhite : rgb(0xC8D860));
        canvas.ellipse({x, 40.4}, 1.8, 2.6, kInk);
    }
    canvas.ellipse({30, 47}, 3, 2.2, kInk);
    return canvas.finished();
}

}  // namespace sample
