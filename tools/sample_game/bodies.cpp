#include "bodies.h"

#include <algorithm>
#include <cmath>

#include "skeletons.h"

namespace sample {
namespace {

// Bitmaps are taken a little inside of what is drawn, so that no rim of their ground shows.
constexpr double kInside = 0.9;
constexpr double kInsideLimb = 0.6;  // also of the narrow back

double between(double first, double second, double share) {
    return first + (second - first) * share;
}

// One ring of an upright part of a person, in units of the drawing: its middle is x beside the
// middle of the drawing and z in front of it.
struct Slice {
    double y;
    double half;  // its width
    double depth;
    Hold hold;
    double x = 0;
    double z = 0;
    double sheetX = 0;     // beside the middle of the drawing, if that is elsewhere
    double sheetHalf = 0;  // likewise; 0 on a body: its own
    double sheetY = 0;     // 0: where it is
};

class Person {
  public:
    Person(const Figure& figure)
        : child_(figure.body == Body::Child),
          unit_(personUnit(child_)),
          skeleton_(personSkeleton(child_)),
          frame_(frameOf(figure)),
          hip_(hipOf(figure)) {}

    Solid body(const Figure& figure, Cut cut) {
        addTorso(figure, cut);
        for (const double side : {1.0, -1.0}) {
            addArm(side);
            if (cut != Cut::Gown) {
                addLeg(side);
                addFoot(side);
            }
        }
        return std::move(solid_);
    }

    Solid head(bool female) {
        const double radius = headRadius(child_);
        const double y = frame_.top - radius - 3;
        const Hold hold = on("HEAD");
        // Hair shows at the sides and behind; in front it stays within the face.
        const double back = female ? -1.9 : -1.1;
        const double hang = female ? -0.3 : -0.9;
        addEgg({0, y, 0}, {radius * 0.9, radius, radius * 0.94}, hold, faceMap(y, radius));
        addEgg({0, y + hang, back}, {radius * (female ? 1 : 0.93), radius * 1.01, radius * 0.88},
               hold, hairMap());
        if (female) {
            const double low = frame_.top + 5;
            addSlices({{y, radius * 0.8, 3.2, hold, 0, -4.8},
                       {y + radius, radius * 0.82, 2.8, hold, 0, -5},
                       {low - 2, radius * 0.6, 2, on("NECK"), 0, -5.6},
                       {low, radius * 0.35, 1.2, on("NECK"), 0, -5.8}},
                      hairMap());
        }
        for (const double side : {1.0, -1.0}) {
            addEgg({side * radius * 0.93, y + 1, -0.4}, {1, 1.9, 1.5}, hold,
                   [](const RingPlace& p) {
                       return Point{32, 52.0 + static_cast<double>(p.ring)};
                   });
        }
        return std::move(solid_);
    }

    Solid hand(double side) {
        const Hold hold = on(side > 0 ? "L_HAND" : "R_HAND");
        const Point3 wrist = skeleton_.bones[static_cast<std::size_t>(hold.bone)].place;
        const double size = child_ ? 0.82 : 1;
        // Hands hang down, their thumbs in front. z is the width of the drawing.
        const auto at = [&](double x, double y, double z) {
            return Point3{wrist.x + side * x * size * unit_, wrist.y - y * size * unit_,
                          wrist.z + z * size * unit_};
        };
        const auto ring = [&](double y, double thick, double wide, double z = 0) {
            return Ring{
                at(0, y, z), {thick * size * unit_, 0, 0}, {0, 0, wide * size * unit_}, hold};
        };
        const auto map = [](double middle, double wide, double top, double bottom, double rings) {
            return [=](const RingPlace& p) {
                return Point{50 + middle + wide * cosine(p.degrees),
                             between(top, bottom, static_cast<double>(p.ring) / rings)};
            };
        };
        addTube(solid_,
                {ring(-1.6, 1.5, 1.7), ring(0.4, 1.5, 2), ring(2, 1.5, 2.6), ring(3.8, 1.2, 2.6)},
                map(0, 9, 92, 56, 3));
        struct Finger {
            double z;
            double length;
            double sheet;
        };
        for (const Finger& f : {Finger{1.95, 2.7, 4}, Finger{0.65, 3.3, -4}, Finger{-0.65, 3.1, 4},
                                Finger{-1.95, 2.4, -4}}) {
            addTube(solid_,
                    {ring(3.2, 0.7, 0.62, f.z), ring(3.6 + f.length * 0.7, 0.62, 0.58, f.z * 1.06),
                     ring(3.8 + f.length, 0.35, 0.3, f.z * 1.08)},
                    map(f.sheet, 2.5, 54, 30, 2));
        }
        addTube(solid_,
                {{at(0, 1, 1.8), {0.8 * size * unit_, 0, 0}, {0, 0.7 * size * unit_, 0}, hold},
                 {at(-0.3, 2.8, 3.4),
                  {0.7 * size * unit_, 0, 0},
                  {0, 0.6 * size * unit_, 0.3 * size * unit_},
                  hold},
                 {at(-0.4, 4.2, 3.9),
                  {0.4 * size * unit_, 0, 0},
                  {0, 0.2 * size * unit_, 0.3 * size * unit_},
                  hold}},
                map(4, 3, 70, 60, 2));
        return std::move(solid_);
    }

  private:
    Hold on(const char* bone) const { return {skeleton_.bone(bone), -1, 0}; }
    // Half way between two bones' movements.
    Hold between2(const char* bone, const char* other) const {
        return {skeleton_.bone(bone), skeleton_.bone(other), 16384};
    }

    Point3 at(double x, double y, double z) const {
        return {x * unit_, (kPersonFloor - y) * unit_, z * unit_};
    }

    void addSlices(const std::vector<Slice>& slices, const SheetMap& map) {
        std::vector<Ring> rings;
        rings.reserve(slices.size());
        for (const Slice& slice : slices) {
            rings.push_back({at(slice.x, slice.y, slice.z),
                             {slice.half * unit_, 0, 0},
                             {0, 0, slice.depth * unit_},
                             slice.hold});
        }
        addTube(solid_, rings, map);
    }

    void addEgg(const Point3& centre, const Point3& radii, const Hold& hold, const SheetMap& map) {
        addTube(solid_, egg(at(centre.x, centre.y, centre.z), radii * unit_, kEggRings, hold), map);
    }

    // The front is seen as it is drawn; the back, which is drawn beside it, as from behind.
    static SheetMap clothMap(const std::vector<Slice>& slices) {
        return [slices](const RingPlace& p) {
            const Slice& slice = slices[p.ring];
            const double half = slice.sheetHalf > 0 ? slice.sheetHalf : slice.half;
            const double x = sine(p.degrees) * half;
            const double y = slice.sheetY > 0 ? slice.sheetY : slice.y;
            return p.isBack ? Point{kBackMiddle - x * kInsideLimb * kBackWidth, y}
                            : Point{50 + x * kInside, y};
        };
    }

    // Limbs look alike from all sides; where they are drawn their slices tell.
    static SheetMap limbMap(const std::vector<Slice>& slices) {
        return [slices](const RingPlace& p) {
            const Slice& slice = slices[p.ring];
            return Point{50 + slice.sheetX + sine(p.degrees) * slice.sheetHalf * kInsideLimb,
                         slice.sheetY};
        };
    }

    // The skin of a head goes once around it.
    static SheetMap faceMap(double, double) {
        return [](const RingPlace& p) {
            const double height = static_cast<double>(p.ring) / (kEggRings - 1);
            return Point{50 + p.degrees / 3.6, 2 + 96 * height};
        };
    }

    static SheetMap hairMap() {
        return [](const RingPlace& p) {
            return Point{10 + 8 * sine(p.degrees), 12.0 + 6 * static_cast<double>(p.ring)};
        };
    }

    // Half the torso's width at a height, as it is drawn down to a bottom.
    double torsoHalf(double y, double bottom) const {
        const double middle = (frame_.top + bottom) / 2 + 2;
        return y < middle ? between(frame_.shoulder, frame_.waist,
                                    (y - frame_.top) / (middle - frame_.top))
                          : between(frame_.waist, frame_.hip,
                                    std::min(1.0, (y - middle) / (bottom - middle)));
    }

    void addTorso(const Figure& figure, Cut cut) {
        const double top = frame_.top;
        const bool fat = figure.body == Body::Fat;
        const double round = fat ? 0.64 : 0.62;
        const double chest = figure.female && !child_ ? 1 : 0.2;
        const double belly = fat ? 2.6 : 0;
        const double bottom = hip_ + 3;
        const double neckDepth = 2.8;
        std::vector<Slice> slices = {
            {top - 7, 2.6, neckDepth, on("NECK")},
            {top - 3, 2.7, neckDepth, on("NECK")},
            {top - 0.6, 3.6, 3.3, between2("CHEST", "NECK"), 0, 0, 0, 2.6},
            {top + 0.8, frame_.shoulder * 0.66, 4, on("CHEST"), 0, 0, 0, 0, top + 1.8},
            {top + 3.4, frame_.shoulder * 0.96, 5.2, on("CHEST")},
        };
        const auto slice = [&](double y, double z, const Hold& hold) {
            const double half = torsoHalf(y, bottom);
            slices.push_back({y, half, std::max(5.2, half * round), hold, 0, z});
        };
        slice(top + 8, chest * 0.8, on("CHEST"));
        slice(top + 12, chest, on("CHEST"));
        slice((top + bottom) / 2 + 2, belly * 0.8, on("SPINE"));
        slice(hip_ - 7, belly, between2("SPINE", "PELVIS"));
        if (cut == Cut::Gown) {
            // Wide, and closed just above the floor.
            const double waist = hip_ - 12;
            while (slices.back().y > waist - 2) {
                slices.pop_back();
            }
            for (const double share : {0.0, 0.3, 0.7, 1.0}) {
                const double half = between(frame_.waist, 23.5, share);
                slices.push_back({between(waist, 96, share), half, half * 0.8,
                                  share < 0.5 ? on("PELVIS") : on("ROOT"), 0, belly * (1 - share)});
            }
        } else if (cut == Cut::Coat) {
            slice(hip_, 0, on("PELVIS"));
            slices.push_back({hip_ + 15.6, frame_.hip + 1.2, frame_.hip * 0.85, on("PELVIS")});
        } else {
            slice(hip_ - 2, belly * 0.5, on("PELVIS"));
            slice(hip_ + 2.5, 0, on("PELVIS"));
            // Between the legs nothing is drawn.
            slices.push_back({hip_ + 4.5, frame_.hip * 0.75, frame_.hip * 0.45, on("PELVIS"), 0, 0,
                              0, 0, hip_ + 1});
        }
        addSlices(slices, clothMap(slices));
    }

    void addLeg(double side) {
        const std::string s = side > 0 ? "L_" : "R_";
        const std::string leg = s + "LEG";
        const std::string shin = s + "SHIN";
        const std::string foot = s + "FOOT";
        const double knee = (hip_ + 93) / 2;
        const double radius = frame_.leg * 0.85;
        std::vector<Slice> slices;
        const auto slice = [&](double y, double thickness, const Hold& hold) {
            const double share = std::clamp((y - hip_) / (93 - hip_), 0.0, 1.0);
            const double x = side * frame_.hip * between(0.52, 0.6, share);
            const double r = radius * thickness;
            // Thick legs are thicker still from the side.
            slices.push_back({y, r, std::max(r, r * 1.3 - 1), hold, x, 0, x, radius, y});
        };
        slice(hip_ - 1, 0.9, on("PELVIS"));
        slice(hip_ + 5, 1.02, between2(leg.c_str(), "PELVIS"));
        slice(hip_ + 12, 0.98, on(leg.c_str()));
        slice(knee + 1, 0.86, between2(leg.c_str(), shin.c_str()));
        slice(knee + 7, 0.84, on(shin.c_str()));
        slice(94.5, 0.68, between2(shin.c_str(), foot.c_str()));
        addSlices(slices, limbMap(slices));
    }

    void addFoot(double side) {
        const double x = side * (frame_.hip * 0.6 + 0.6);
        const double sheetX = 50 + side * (frame_.hip * 0.6 + 1.5);
        const double half = frame_.leg * 0.92;
        addEgg({x, 96.4, frame_.leg * 0.75}, {half, 2.6, frame_.leg * 1.5},
               on(side > 0 ? "L_FOOT" : "R_FOOT"), [=, this](const RingPlace& p) {
                   return Point{sheetX + sine(p.degrees) * frame_.leg * 0.8,
                                94.8 + 2.6 * static_cast<double>(p.ring) / (kEggRings - 1)};
               });
    }

    // The arm goes from the shoulders of the body to the wrist of the skeleton, which is the same
    // for all bodies; the drawn one goes its own way.
    void addArm(double side) {
        const std::string s = side > 0 ? "L_" : "R_";
        const std::string arm = s + "ARM";
        const std::string forearm = s + "FOREARM";
        const std::string hand = s + "HAND";
        const auto bone = [&](const std::string& name) {
            const Point3 place =
                skeleton_.bones[static_cast<std::size_t>(skeleton_.bone(name))].place;
            return Point{place.x / unit_, kPersonFloor - place.y / unit_};
        };
        const double radius = frame_.leg * 0.575;
        const double drawn = frame_.leg * 0.575;
        const double thick = std::clamp(radius, 2.5, 4.0);
        const Point shoulder = {side * (frame_.shoulder - thick * 0.75), frame_.top + 3.2};
        const Point elbow = {(bone(forearm).x + side * (frame_.shoulder + 4)) / 2, frame_.top + 18};
        const Point wrist = bone(hand);
        std::vector<Slice> slices;
        const auto slice = [&](const Point& p, double share, double thickness, const Hold& hold) {
            // Along the stroke that is drawn.
            const double y = frame_.top + 3 + share * 29;
            const double x = share < 0.5 ? between(0, 6, share * 2) : between(6, 8, share * 2 - 1);
            slices.push_back({p.y, thick * thickness, thick * thickness, hold, p.x, 0,
                              side * (frame_.shoulder + x), drawn, y});
        };
        const auto point = [&](const Point& a, const Point& b, double share) {
            return Point{between(a.x, b.x, share), between(a.y, b.y, share)};
        };
        slice({shoulder.x - side, shoulder.y - 1.9}, 0.04, 0.55, on(arm.c_str()));
        slice(shoulder, 0.06, 1, on(arm.c_str()));
        slice(point(shoulder, elbow, 0.3), 0.2, 1.08, on(arm.c_str()));
        slice(point(shoulder, elbow, 0.6), 0.33, 1, on(arm.c_str()));
        slice(elbow, 0.5, 0.9, between2(arm.c_str(), forearm.c_str()));
        slice(point(elbow, wrist, 0.4), 0.7, 0.86, on(forearm.c_str()));
        slice({wrist.x, wrist.y}, 0.93, 0.66, between2(forearm.c_str(), hand.c_str()));
        addSlices(slices, limbMap(slices));
    }

    static constexpr int kEggRings = 9;

    bool child_;
    double unit_;
    Skeleton skeleton_;
    Frame frame_;
    double hip_;
    Solid solid_;
};

Figure ofAge(bool child) {
    Figure figure;
    figure.body = child ? Body::Child : Body::Fit;
    return figure;
}

// A dog or a cat as it is drawn from its side, its nose towards the left edge.
class Pet {
  public:
    explicit Pet(bool dog) : dog_(dog), skeleton_(petSkeleton(dog)) {}

    Solid solid() {
        addTrunk();
        addNeck();
        addHead();
        for (const double side : {1.0, -1.0}) {
            addLeg(38, side, true);
            addLeg(74, side, false);
            addEar(side);
        }
        addTail();
        return std::move(solid_);
    }

  private:
    Hold on(const std::string& bone) const { return {skeleton_.bone(bone), -1, 0}; }

    static Point3 at(double px, double py, double x) {
        return {x * kPetUnit, (kPetFloor - py) * kPetUnit, (50 - px) * kPetUnit};
    }

    // Plain fur: where the trunk is drawn and nothing lies over it.
    static Point fur(double along, double down) { return {54 + 22 * along, 53 + 17 * down}; }

    void addTrunk() {
        const double tall = dog_ ? 15.5 : 13.5;
        const double wide = dog_ ? 11 : 9;
        std::vector<Ring> rings;
        constexpr int kRings = 9;
        for (int i = 0; i < kRings; ++i) {
            const double degrees = -78 + 156.0 * i / (kRings - 1);
            // A chest in front, slimmer towards the back.
            const double size = std::sqrt(cosine(degrees)) * (i < 4 ? 1.04 : 0.94);
            rings.push_back(
                {at(58 + 26 * sine(degrees), 61, 0),
                 {wide * size * kPetUnit, 0, 0},
                 {0, tall * size * kPetUnit, 0},
                 i < 4 ? on("SPINE")
                       : (i == 4 ? Hold{skeleton_.bone("SPINE"), skeleton_.bone("PELVIS"), 16384}
                                 : on("PELVIS"))});
        }
        addTube(solid_, rings, [](const RingPlace& p) {
            return fur(static_cast<double>(p.ring) / (kRings - 1), 0.5 - 0.5 * cosine(p.degrees));
        });
    }

    void addNeck() {
        const double wide = dog_ ? 7.5 : 6.5;
        const auto ring = [&](double px, double py, double size, const Hold& hold) {
            return Ring{at(px, py, 0),
                        {wide * size * kPetUnit, 0, 0},
                        Point3{0, 0.66, -0.75} * (wide * size * kPetUnit),
                        hold};
        };
        addTube(solid_,
                {ring(44, 60, 1.15, on("SPINE")),
                 ring(38, 53, 1, {skeleton_.bone("NECK"), skeleton_.bone("SPINE"), 8192}),
                 ring(30, 44, 0.9, on("HEAD"))},
                [](const RingPlace& p) {
                    return fur(0.2 + 0.2 * static_cast<double>(p.ring),
                               0.2 - 0.2 * cosine(p.degrees));
                });
    }

    void addEgg(const Point3& centre, const Point3& radii, const std::string& bone,
                const SheetMap& map) {
        addTube(solid_, egg(centre, radii * kPetUnit, kEggRings, on(bone)), map);
    }

    // The face is drawn as from the front.
    void addHead() {
        const Point3 centre = at(24, 42, 0);
        const double radius = dog_ ? 14 : 14.5;
        const auto face = [=](const RingPlace& p) {
            const double x = (p.place.x - centre.x) / kPetUnit;
            const double y = (centre.y - p.place.y) / kPetUnit;
            return p.isBack ? fur(0.5 + x / 60, 0.35 + y / 60)
                            : Point{30 + x * 15.5 / radius, 42 + y * 15.5 / radius};
        };
        addEgg(centre, {radius, radius, radius * 0.86}, "HEAD", face);
        const double reach = dog_ ? 9 : 4;
        addEgg(at(24 - (dog_ ? 11 : 10.5), 48.5, 0), {dog_ ? 6.5 : 5.5, dog_ ? 5.5 : 4.5, reach},
               "HEAD", [this](const RingPlace& p) {
                   // The nose comes to lie on the tip.
                   const double share = static_cast<double>(p.ring) / (kEggRings - 1);
                   return Point{30 + (p.isBack ? 0.9 : 1) * sine(p.degrees) * 7,
                                between(dog_ ? 43.5 : 45, 55, share)};
               });
    }

    void addEar(double side) {
        if (dog_) {
            addEgg(at(25, 41, side * 14.5), {2.6, 11, 5}, "HEAD", [=](const RingPlace& p) {
                return Point{30 + side * 13 + 3 * sine(p.degrees),
                             between(31, 49, static_cast<double>(p.ring) / (kEggRings - 1))};
            });
            return;
        }
        const auto ring = [&](double x, double py, double size) {
            return Ring{at(25, py, side * x),
                        {4.6 * size * kPetUnit, 0, 0},
                        {0, 0, 2.4 * size * kPetUnit},
                        on("HEAD")};
        };
        addTube(solid_, {ring(10.5, 19, 0.12), ring(10, 24, 0.6), ring(8.5, 34, 1.35)},
                [=](const RingPlace& p) {
                    return Point{30 + side * (12.5 - static_cast<double>(p.ring)) + sine(p.degrees),
                                 22.0 + 4 * static_cast<double>(p.ring)};
                });
    }

    void addLeg(double px, double side, bool front) {
        const double radius = dog_ ? 3.7 : 3;
        // Of each pair the leg that is further away is drawn darker.
        const double drawn = front ? (side > 0 ? 36 : 46) : (side > 0 ? 77 : 68);
        const std::string bone =
            std::string(side > 0 ? "L_" : "R_") + (front ? "FRONTLEG" : "HINDLEG");
        const double x = side * (dog_ ? 6.4 : 5.4);
        const auto ring = [&](double py, double size, double shift) {
            return Ring{at(px - shift, py, x),
                        {radius * size * kPetUnit, 0, 0},
                        {0, 0, radius * size * kPetUnit},
                        on(bone)};
        };
        const double thigh = front ? 1.35 : 1.7;
        addTube(solid_,
                {ring(56.5, thigh * 0.4, 0), ring(60, thigh * 0.9, 0), ring(67, thigh, 0),
                 ring(76, 1, 0), ring(87, 0.9, 0), ring(90.5, 1.15, 0.8), ring(93.6, 1.2, 1)},
                [=](const RingPlace& p) {
                    // The upper part lies under the trunk in the drawing.
                    return Point{drawn + sine(p.degrees) * radius * 0.6,
                                 78.0 + 2.2 * static_cast<double>(p.ring)};
                });
    }

    void addTail() {
        const double radius = dog_ ? 2.8 : 2.3;
        const auto ring = [&](double px, double py, double size) {
            return Ring{at(px, py, 0),
                        {radius * size * kPetUnit, 0, 0},
                        Point3{0, 0.47, 0.88} * (radius * size * kPetUnit),
                        on("TAIL")};
        };
        const double top = dog_ ? 34 : 26;
        const double end = dog_ ? 92 : 84;
        const double bend = dog_ ? 44 : 40;
        addTube(solid_,
                {ring(78, 60, 1), ring(85, 52, 1), ring(90, bend, 0.95), ring(end, top, 0.5)},
                [=](const RingPlace& p) {
                    static constexpr double kX[] = {82, 85, 90, 90};
                    const double y[] = {56, 51, bend, bend - 2};
                    return Point{kX[p.ring] + sine(p.degrees), y[p.ring]};
                });
    }

    static constexpr int kEggRings = 9;

    bool dog_;
    Skeleton skeleton_;
    Solid solid_;
};

}  // namespace

Solid personBody(const Figure& figure, Cut cut) {
    return Person(figure).body(figure, cut);
}

Solid personHead(bool female, bool child) {
    return Person(ofAge(child)).head(female);
}

Solid personHand(bool child, bool left) {
    return Person(ofAge(child)).hand(left ? 1 : -1);
}

Solid petBody(bool dog) {
    return Pet(dog).solid();
}

}  // namespace sample
