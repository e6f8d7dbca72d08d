#include "preview/pose.h"

#include <gtest/gtest.h>

#include <cmath>

namespace marlowick {
namespace {

constexpr float kHalfRoot = 0.70710678F;  // of a quarter turn

void expectNear(const Vector& actual, const Vector& expected, float tolerance = 1e-5F) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

// The root one up; the middle two further up, turned by a quarter about z; the tip one along the
// middle's x.
Skeleton threeBones() {
    return {"three",
            {{"ROOT", "NULL", {0, 1, 0}, {0, 0, 0, 1}},
             {"MIDDLE", "ROOT", {0, 2, 0}, {0, 0, kHalfRoot, kHalfRoot}},
             {"TIP", "MIDDLE", {1, 0, 0}, {0, 0, 0, 1}}}};
}

// The stored bones of a published skeleton, and where its left leg begins: reckoned apart from this
// program.
TEST(BonePlacesTest, APublishedLegIsWhereItShouldBe) {
    const Skeleton skeleton{
        "adult",
        {{"ROOT",
          "NULL",
          {-5.88894e-5F, 3.01362F, 0.00807638F},
          {-0.0262998F, -0.706899F, 0.0262789F, -0.706336F}},
         {"PELVIS", "ROOT", {-0.0366778F, 0, 0}, {0.499999F, 0.5F, 0.5F, -0.500001F}},
         {"L_LEG", "PELVIS", {0, 0.241228F, 0}, {0.0137635F, 0, -0.999905F, 0}}}};
    const auto places = bonePlaces(skeleton);
    ASSERT_TRUE(places[2]);
    expectNear(places[2]->shift, {0.241F, 3.011F, -0.029F}, 6e-4F);
    // The stored x axis, which points to -x here, leads down.
    const Vector down = places[2]->turn * Vector{-1, 0, 0};
    EXPECT_LT(down.y, -0.99F);
}

TEST(BonePlacesTest, ThreeBonesByHand) {
    const auto places = bonePlaces(threeBones());
    ASSERT_TRUE(places[0] && places[1] && places[2]);
    expectNear(places[0]->shift, {0, 1, 0});
    expectNear(places[1]->shift, {0, 3, 0});
    // Stored one to +x is one to -x, which the quarter turn leads down.
    expectNear(places[2]->shift, {0, 2, 0});
    expectNear(*places[2] * Vector{0, 1, 0}, {-1, 2, 0});
}

// About each axis, as it comes out once x is mirrored.
TEST(BonePlacesTest, StoredTurnsAreLeftHanded) {
    const auto turned = [](const Quaternion& rotation, const Vector& point) {
        return *bonePlaces({"", {{"ROOT", "NULL", {}, rotation}}})[0] * point;
    };
    expectNear(turned({kHalfRoot, 0, 0, kHalfRoot}, {0, 1, 0}), {0, 0, -1});
    expectNear(turned({0, kHalfRoot, 0, kHalfRoot}, {0, 0, 1}), {1, 0, 0});
    expectNear(turned({0, 0, kHalfRoot, kHalfRoot}, {1, 0, 0}), {0, 1, 0});
    // Of any length; one without a length turns nothing.
    expectNear(turned({0, 0, 3, 3}, {1, 0, 0}), {0, 1, 0});
    expectNear(turned({0, 0, 0, 0}, {1, 2, 3}), {1, 2, 3});
}

TEST(BonePlacesTest, ParentsMayComeBehindAndInAnyCase) {
    Skeleton skeleton = threeBones();
    std::swap(skeleton.bones[0], skeleton.bones[2]);
    skeleton.bones[1].parent = "Root";
    expectNear(bonePlaces(skeleton)[0]->shift, {0, 2, 0});
}

TEST(BonePlacesTest, RingsAndLostParentsHaveNoPlace) {
    Skeleton skeleton = threeBones();
    skeleton.bones.push_back({"SELF", "SELF", {}, {}});
    skeleton.bones.push_back({"A", "B", {}, {}});
    skeleton.bones.push_back({"B", "A", {}, {}});
    skeleton.bones.push_back({"LOST", "nobody", {}, {}});
    skeleton.bones.push_back({"CHILD", "A", {}, {}});
    const auto places = bonePlaces(skeleton);
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ(places[i].has_value(), i < 3) << skeleton.bones[i].name;
    }
}

// One triangle on the root; its first vertex is pulled by a blended one on the middle.
Mesh triangle() {
    return {"mesh",
            "x",
            {"ROOT", "MIDDLE"},
            {{0, 1, 2}},
            {{0, 0, 3, -1, 0}, {1, -1, 0, 0, 1}},
            {{0.25F, 0.5F}, {1, 0}, {0, 1}},
            {{0, 0}},
            {{{1, 0, 0}, {0, 0, 1}},
             {{0, 1, 0}, {0, 0, 1}},
             {{0, 0, 0}, {0, 0, 1}},
             {{0, 2, 0}, {1, 0, 0}}}};
}

FigurePart posed(const Mesh& mesh, const Skeleton& skeleton = threeBones()) {
    return posedMesh(mesh, skeleton, bonePlaces(skeleton));
}

TEST(PosedMeshTest, VerticesAreWhereTheirBonesAre) {
    const FigurePart part = posed(triangle());
    ASSERT_EQ(part.vertices.size(), 3U);
    expectNear(part.vertices[0].position, {-1, 1, 0});
    expectNear(part.vertices[1].position, {0, 2, 0});
    expectNear(part.vertices[0].normal, {0, 0, 1});
    EXPECT_EQ(part.vertices[0].u, 0.25F);
    EXPECT_EQ(part.vertices[0].v, 0.5F);
    ASSERT_EQ(part.faces.size(), 1U);
    EXPECT_EQ(part.faces[0], (FigureFace{0, 1, 2}));
}

// The real vertex stands at (-1, 1, 0). The blended one is two up in the middle's space, which is
// two to -x of (0, 3, 0); its normal, stored to +x, leads to -x there, and so down.
TEST(PosedMeshTest, BlendedVerticesPull) {
    struct Row {
        int weight;
        Vector position;
        Vector normal;
    };
    for (const Row& row :
         {Row{0, {-1, 1, 0}, {0, 0, 1}}, Row{16384, {-1.5F, 2, 0}, {0, -kHalfRoot, kHalfRoot}},
          Row{32768, {-2, 3, 0}, {0, -1, 0}}, Row{-5, {-1, 1, 0}, {0, 0, 1}},
          Row{0x7FFFFFFF, {-2, 3, 0}, {0, -1, 0}}}) {
        Mesh mesh = triangle();
        mesh.blends[0].weight = row.weight;
        const FigurePart part = posed(mesh);
        expectNear(part.vertices[0].position, row.position);
        expectNear(part.vertices[0].normal, row.normal);
        expectNear(part.vertices[1].position, {0, 2, 0});
    }
}

TEST(PosedMeshTest, FacesThatNameWhatIsNotThereAreLeftOut) {
    Mesh mesh = triangle();
    mesh.faces = {{0, 1, 3}, {-1, 1, 2}, {0, 1, 0x7FFFFFFF}, {0, 0, 1}, {1, 2, 1}, {2, 1, 0}};
    const FigurePart part = posed(mesh);
    ASSERT_EQ(part.faces.size(), 1U);
    EXPECT_EQ(part.faces[0], (FigureFace{2, 1, 0}));
}

TEST(PosedMeshTest, VerticesOfALostBoneLeaveTheirFacesOut) {
    Mesh mesh = triangle();
    mesh.bones[0] = "NOWHERE";
    EXPECT_TRUE(posed(mesh).faces.empty());
    mesh = triangle();
    mesh.bones[1] = "NOWHERE";
    EXPECT_TRUE(posed(mesh).faces.empty());
    mesh = triangle();
    mesh.bindings[0].reals = 2;  // the third vertex is on no bone
    EXPECT_TRUE(posed(mesh).faces.empty());
    Skeleton ring = threeBones();
    ring.bones[0].parent = "TIP";
    EXPECT_TRUE(posed(triangle(), ring).faces.empty());
}

TEST(PosedMeshTest, WhatIsOutOfAllReasonIsLeftOut) {
    for (const float far : {2000.0F, 3.4e38F, -3.4e38F}) {
        Mesh mesh = triangle();
        mesh.vertices[2].position.y = far;
        EXPECT_TRUE(posed(mesh).faces.empty()) << far;
    }
    Mesh mesh = triangle();
    mesh.vertices[2].normal = {3.4e38F, 3.4e38F, 0};
    mesh.texturePoints[1] = {3.4e38F, -1e9F};
    const FigurePart part = posed(mesh);
    ASSERT_EQ(part.faces.size(), 1U);
    EXPECT_TRUE(std::isfinite(part.vertices[2].normal.x));
    EXPECT_LE(std::abs(part.vertices[1].u), 1000);
    EXPECT_LE(std::abs(part.vertices[1].v), 1000);
    Skeleton skeleton = threeBones();
    skeleton.bones[0].translation = {3e38F, 3e38F, 3e38F};
    skeleton.bones[1].translation = {3e38F, 3e38F, 3e38F};
    EXPECT_TRUE(posed(triangle(), skeleton).faces.empty());
}

// A pyramid with its faces as they are stored, clockwise seen from outside, and normals that lead
// outwards: before and after the change of hands.
TEST(PosedMeshTest, FacesAreClockwiseSeenFromOutside) {
    Mesh mesh{"pyramid", "x", {"ROOT"}, {}, {{0, 0, 4, 0, 0}}, {{}, {}, {}, {}}, {}, {}};
    const Vector corners[] = {{0, 1, 0}, {-1, -1, 1}, {1, -1, 1}, {0, -1, -1}};
    for (const Vector& corner : corners) {
        mesh.vertices.push_back({corner, unit(corner)});
    }
    // Left-handed: the product of two sides leads outwards.
    mesh.faces = {{0, 1, 2}, {0, 2, 3}, {0, 3, 1}, {1, 3, 2}};
    for (const MeshFace& face : mesh.faces) {
        const auto at = [&](int i) {
            return corners[static_cast<std::size_t>(face.at(static_cast<std::size_t>(i)))];
        };
        ASSERT_GT(dot(cross(at(1) - at(0), at(2) - at(0)), at(0) + at(1) + at(2)), 0);
    }
    const FigurePart part = posed(mesh);
    ASSERT_EQ(part.faces.size(), 4U);
    for (const auto& [a, b, c] : part.faces) {
        const FigureVertex& first = part.vertices[a];
        const FigureVertex& second = part.vertices[b];
        const FigureVertex& third = part.vertices[c];
        EXPECT_LT(dot(cross(second.position - first.position, third.position - first.position),
                      first.normal + second.normal + third.normal),
                  0);
    }
}

TEST(TurnTest, AboutTheAxes) {
    expectNear(turnAboutY(90) * Vector{0, 0, 1}, {1, 0, 0});
    expectNear(turnAboutX(90) * Vector{0, 1, 0}, {0, 0, 1});
    for (int degrees = -720; degrees <= 720; degrees += 15) {
        const auto angle = static_cast<float>(degrees);
        EXPECT_NEAR(sineOf(angle), std::sin(degrees * 3.14159265358979 / 180), 2e-7);
        EXPECT_NEAR(cosineOf(angle), std::cos(degrees * 3.14159265358979 / 180), 2e-7);
    }
}

}  // namespace
}  // namespace marlowick
