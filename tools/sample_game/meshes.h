// Meshes and suits of heads and bodies, in their binary and in their text forms.
#pragma once

#include <string>

namespace sample {

// A binary mesh: a small pyramid under that name.
std::string bmfMesh(const std::string& name, const std::string& texture);
// The text form of such a mesh.
std::string sknMesh(const std::string& name, const std::string& texture);
// A binary suit with one mesh on the bone.
std::string suitBcf(const std::string& suit, const std::string& bone, const std::string& mesh);
// The text form of a suit.
std::string suitCmx(const std::string& suit, const std::string& bone, const std::string& mesh);

}  // namespace sample
