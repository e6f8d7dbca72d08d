#include "skeletons.h"

#include <bit>
#include <cmath>
#include <utility>

#include "bytes.h"

namespace sample {
namespace {

Quaternion operator*(const Quaternion& a, const Quaternion& b) {
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
            a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w,
            a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

Quaternion back(const Quaternion& q) {
    return {-q.x, -q.y, -q.z, q.w};
}

Point3 turned(const Quaternion& q, const Point3& p) {
    const Quaternion r = q * Quaternion{p.x, p.y, p.z, 0} * back(q);
    return {r.x, r.y, r.z};
}

// The game stores its bones left-handed.
Point3 stored(const Point3& p) {
    return {-p.x, p.y, p.z};
}

Quaternion stored(const Quaternion& q) {
    return {q.x, -q.y, -q.z, -q.w};
}

// Bones lie along their limbs, each in a way of its own.
const Quaternion kUpright = {0.5, 0.5, 0.5, 0.5};
const Quaternion kLeg = {0.6, 0, 0.8, 0};
const Quaternion kLeftArm = {0.28, 0, 0.96, 0};
const Quaternion kRightArm = {0, 0.6, 0, 0.8};
const Quaternion kStraight = {0, 0, 0, 1};

struct LocalBone {
    Point3 shift;
    Quaternion turn;
};

LocalBone localOf(const Skeleton& skeleton, const Bone& bone) {
    if (bone.parent < 0) {
        return {stored(bone.place), stored(bone.turn)};
    }
    const Bone& parent = skeleton.bones[static_cast<std::size_t>(bone.parent)];
    return {stored(turned(back(parent.turn), bone.place - parent.place)),
            stored(back(parent.turn) * bone.turn)};
}

std::string parentName(const Skeleton& skeleton, const Bone& bone) {
    return bone.parent < 0 ? "NULL" : skeleton.bones[static_cast<std::size_t>(bone.parent)].name;
}

std::string textOf(double value) {
    return floatText(static_cast<float>(value));
}

std::string bytesOf(double value) {
    return little32(std::bit_cast<std::uint32_t>(static_cast<float>(value)));
}

void add(Skeleton& skeleton, const std::string& name, const char* parent, const Point3& place,
         const Quaternion& turn) {
    skeleton.bones.push_back({name, *parent == '\0' ? -1 : skeleton.bone(parent), place, turn});
}

// A limb of three bones on one side.
void addLimb(Skeleton& skeleton, const std::array<std::string, 3>& names, const char* parent,
             const std::array<Point3, 3>& places, const Quaternion& turn) {
    std::string above = parent;
    for (std::size_t i = 0; i < names.size(); ++i) {
        add(skeleton, names.at(i), above.c_str(), places.at(i), turn);
        above = names.at(i);
    }
}

}  // namespace

int Skeleton::bone(const std::string& wanted) const {
    for (std::size_t i = 0; i < bones.size(); ++i) {
        if (bones[i].name == wanted) {
            return static_cast<int>(i);
        }
    }
    return 0;
}

double personUnit(bool child) {
    return child ? 0.058 : 0.067;
}

Skeleton personSkeleton(bool child) {
    const double unit = personUnit(child);
    const double top = child ? 44 : 30;
    const double hip = child ? 68 : 62;
    const auto at = [&](double x, double y) {
        return Point3{x * unit, (kPersonFloor - y) * unit, 0};
    };
    Skeleton skeleton{child ? "child" : "adult", {}};
    add(skeleton, "ROOT", "", at(0, hip - 2), kUpright);
    add(skeleton, "PELVIS", "ROOT", at(0, hip - 2), kLeg);
    add(skeleton, "SPINE", "PELVIS", at(0, (top + hip) / 2), kUpright);
    add(skeleton, "CHEST", "SPINE", at(0, top + 6), kStraight);
    add(skeleton, "NECK", "CHEST", at(0, top - 2), kUpright);
    add(skeleton, "HEAD", "NECK", at(0, top - 5), kStraight);
    for (const double side : {1.0, -1.0}) {
        const std::string s = side > 0 ? "L_" : "R_";
        const double leg = side * (child ? 4.9 : 6.2);
        addLimb(skeleton, {s + "LEG", s + "SHIN", s + "FOOT"}, "PELVIS",
                {at(leg, hip + 1), at(leg * 1.05, (hip + 93) / 2), at(leg * 1.1, 93)}, kLeg);
        const double arm = side * (child ? 9.5 : 13);
        addLimb(skeleton, {s + "ARM", s + "FOREARM", s + "HAND"}, "CHEST",
                {at(arm, top + 4), at(arm + side * 5.5, top + 18), at(arm + side * 9, top + 32)},
                side > 0 ? kLeftArm : kRightArm);
    }
    return skeleton;
}

Skeleton petSkeleton(bool dog) {
    const auto at = [](double px, double py, double x = 0) {
        return Point3{x * kPetUnit, (kPetFloor - py) * kPetUnit, (50 - px) * kPetUnit};
    };
    Skeleton skeleton{dog ? "dog" : "kat", {}};
    add(skeleton, "ROOT", "", at(58, 62), kStraight);
    add(skeleton, "PELVIS", "ROOT", at(74, 62), kUpright);
    add(skeleton, "SPINE", "ROOT", at(50, 62), kUpright);
    add(skeleton, "NECK", "SPINE", at(40, 54), kLeg);
    add(skeleton, "HEAD", "NECK", at(30, 44), kStraight);
    add(skeleton, "TAIL", "PELVIS", at(80, 58), kRightArm);
    for (const double side : {1.0, -1.0}) {
        const std::string s = side > 0 ? "L_" : "R_";
        add(skeleton, s + "FRONTLEG", "SPINE", at(38, 66, side * 7), kLeg);
        add(skeleton, s + "HINDLEG", "PELVIS", at(74, 66, side * 7), kLeftArm);
    }
    return skeleton;
}

std::string skeletonCmx(const Skeleton& skeleton) {
    std::string file = "// A skeleton of the sample game\r\nversion 300\r\n1\r\n" + skeleton.name +
                       "\r\n" + std::to_string(skeleton.bones.size()) + "\r\n";
    for (const Bone& bone : skeleton.bones) {
        const auto [shift, turn] = localOf(skeleton, bone);
        file += bone.name + "\r\n" + parentName(skeleton, bone) + "\r\n0\r\n";
        file += "| " + textOf(shift.x) + " " + textOf(shift.y) + " " + textOf(shift.z) + " |\r\n";
        file += "| " + textOf(turn.x) + " " + textOf(turn.y) + " " + textOf(turn.z) + " " +
                textOf(turn.w) + " |\r\n";
        file += "1\r\n1\r\n0\r\n1.0\r\n0.0\r\n";
    }
    return file + "0\r\n0\r\n";
}

std::string skeletonBcf(const Skeleton& skeleton) {
    std::string file = little32(1) + counted(skeleton.name) +
                       little32(static_cast<std::uint32_t>(skeleton.bones.size()));
    for (const Bone& bone : skeleton.bones) {
        const auto [shift, turn] = localOf(skeleton, bone);
        file += counted(bone.name) + counted(parentName(skeleton, bone)) + little32(0);
        for (const double value : {shift.x, shift.y, shift.z, turn.x, turn.y, turn.z, turn.w}) {
            file += bytesOf(value);
        }
        file += little32(1) + little32(1) + little32(0) + bytesOf(1) + bytesOf(0);
    }
    return file + little32(0) + little32(0);
}

namespace {

std::array<float, 6> storedVertex(const SolidVertex& vertex, const Bone& bone) {
    const Point3 place = stored(turned(back(bone.turn), vertex.place - bone.place));
    const Point3 normal = stored(turned(back(bone.turn), vertex.normal));
    return {static_cast<float>(place.x),  static_cast<float>(place.y),
            static_cast<float>(place.z),  static_cast<float>(normal.x),
            static_cast<float>(normal.y), static_cast<float>(normal.z)};
}

// Puts the vertices in the order of their bones, as a mesh has them.
class MeshMaker {
  public:
    MeshMaker(const Solid& solid, const Skeleton& skeleton) : solid_(solid), skeleton_(skeleton) {}

    MeshRows rows(const std::string& name, const std::string& texture) {
        rows_.name = name;
        rows_.texture = texture;
        number_.resize(solid_.vertices.size());
        for (std::size_t bone = 0; bone < skeleton_.bones.size(); ++bone) {
            addReals(static_cast<int>(bone));
        }
        for (std::size_t bone = 0; bone < skeleton_.bones.size(); ++bone) {
            addBlended(static_cast<int>(bone));
        }
        rows_.vertices.insert(rows_.vertices.end(), blended_.begin(), blended_.end());
        for (const auto& [a, b, c] : solid_.faces) {
            // The game's faces are clockwise seen from outside.
            rows_.faces.push_back({number(a), number(c), number(b)});
        }
        return std::move(rows_);
    }

  private:
    int number(int vertex) const { return number_[static_cast<std::size_t>(vertex)]; }

    void addReals(int bone) {
        const int first = static_cast<int>(rows_.vertices.size());
        for (std::size_t i = 0; i < solid_.vertices.size(); ++i) {
            const SolidVertex& vertex = solid_.vertices[i];
            if (vertex.hold.bone != bone) {
                continue;
            }
            number_[i] = static_cast<int>(rows_.vertices.size());
            rows_.sheet.push_back({static_cast<float>(vertex.sheet.x / 100),
                                   static_cast<float>(vertex.sheet.y / 100)});
            rows_.vertices.push_back(
                storedVertex(vertex, skeleton_.bones[static_cast<std::size_t>(bone)]));
        }
        const int count = static_cast<int>(rows_.vertices.size()) - first;
        if (count > 0) {
            rows_.bindings.push_back({boneRow(bone), first, count, -1, 0});
        }
    }

    void addBlended(int bone) {
        const int first = static_cast<int>(blended_.size());
        for (std::size_t i = 0; i < solid_.vertices.size(); ++i) {
            const SolidVertex& vertex = solid_.vertices[i];
            if (vertex.hold.other != bone) {
                continue;
            }
            rows_.blends.push_back({vertex.hold.pull, number_[i]});
            blended_.push_back(
                storedVertex(vertex, skeleton_.bones[static_cast<std::size_t>(bone)]));
        }
        const int count = static_cast<int>(blended_.size()) - first;
        if (count > 0) {
            const int row = boneRow(bone);
            for (auto& binding : rows_.bindings) {
                if (binding[0] == row) {
                    binding[3] = first;
                    binding[4] = count;
                    return;
                }
            }
            rows_.bindings.push_back({row, -1, 0, first, count});
        }
    }

    // Its number in the mesh's own list, which grows by what is used.
    int boneRow(int bone) {
        const std::string& name = skeleton_.bones[static_cast<std::size_t>(bone)].name;
        for (std::size_t i = 0; i < rows_.bones.size(); ++i) {
            if (rows_.bones[i] == name) {
                return static_cast<int>(i);
            }
        }
        rows_.bones.push_back(name);
        return static_cast<int>(rows_.bones.size()) - 1;
    }

    const Solid& solid_;
    const Skeleton& skeleton_;
    MeshRows rows_;
    std::vector<std::array<float, 6>> blended_;
    std::vector<int> number_;  // of each of the solid's vertices in the mesh
};

}  // namespace

MeshRows onSkeleton(const Solid& solid, const Skeleton& skeleton, const std::string& name,
                    const std::string& texture) {
    return MeshMaker(solid, skeleton).rows(name, texture);
}

}  // namespace sample
