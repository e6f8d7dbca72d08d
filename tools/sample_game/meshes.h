// Meshes and suits of heads and bodies, in their binary and in their text forms.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace sample {

// A binary mesh: a small pyramid under that name.
std::string bmfMesh(const std::string& name, const std::string& texture);

// What a mesh file holds, in its order.
struct MeshRows {
    std::string name;
    std::string texture;
    std::vector<std::string> bones;
    std::vector<std::array<int, 3>> faces;
    std::vector<std::array<int, 5>> bindings;
    std::vector<std::array<float, 2>> sheet;
    std::vector<std::array<int, 2>> blends;  // weight, vertex
    std::vector<std::array<float, 6>> vertices;
};

std::string bmfFile(const MeshRows& rows);
// Some text meshes have the vertex of a blend record first, others the weight, as binary ones have.
std::string sknFile(const MeshRows& rows, bool vertexFirst);

// The shortest text that is this very float again.
std::string floatText(float value);

// A binary suit with one mesh on the bone.
std::string suitBcf(const std::string& suit, const std::string& bone, const std::string& mesh);
// The text form of a suit.
std::string suitCmx(const std::string& suit, const std::string& bone, const std::string& mesh);

}  // namespace sample
