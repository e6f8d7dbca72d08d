#include "preview/scene.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/error_trap.h"
#include "preview/mesh.h"
#include "preview/pose.h"
#include "preview/skeleton.h"
#include "preview/suit.h"
#include "preview/worn_files.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

using TexturePointer = std::shared_ptr<const Texture>;

// Bytes. What is larger is no file of the game.
constexpr std::int64_t kLargestSuit = 1 << 20U;
constexpr std::int64_t kLargestMesh = 16 << 20U;
constexpr std::int64_t kLargestBitmap = 64 << 20U;
// In all; a body, a head and two hands of the largest kind have no more.
constexpr std::size_t kMostFaces = 4 * static_cast<std::size_t>(kMostMeshRows);

constexpr std::string_view kTextSuit = ".cmx";
constexpr std::string_view kBinarySuit = ".cmx.bcf";
constexpr std::string_view kTextMesh = ".skn";
constexpr std::string_view kBinaryMesh = ".bmf";
// A mesh names this where it has no texture of its own.
constexpr std::string_view kNoTexture = "x";

std::string joined(std::string_view name, std::string_view ending) {
    return std::string(name) + std::string(ending);
}

FileForm formOf(const FilePlace& place, std::string_view binaryEnding) {
    const std::string name = lowerCase(place.name);
    return name.ends_with(binaryEnding) ? FileForm::Binary : FileForm::Text;
}

bool isSound(const Texture& texture) {
    return texture.width > 0 && texture.height > 0 &&
           texture.pixels.size() ==
               static_cast<std::size_t>(texture.width) * static_cast<std::size_t>(texture.height);
}

std::size_t memoryOf(const Skeleton& skeleton) {
    return sizeof skeleton + skeleton.bones.size() * 2 * sizeof(Bone);
}

std::size_t memoryOf(const std::vector<Suit>& suits) {
    std::size_t bytes = sizeof(Suit);
    for (const Suit& suit : suits) {
        bytes += 2 * sizeof suit + suit.parts.size() * 2 * sizeof(SuitPart);
    }
    return bytes;
}

std::size_t memoryOf(const Mesh& mesh) {
    return sizeof mesh + mesh.bones.size() * 2 * sizeof(std::string) +
           mesh.faces.capacity() * sizeof(MeshFace) +
           mesh.bindings.capacity() * sizeof(MeshBinding) +
           mesh.texturePoints.capacity() * sizeof(TexturePoint) +
           mesh.blends.capacity() * sizeof(MeshBlend) +
           mesh.vertices.capacity() * sizeof(MeshVertex);
}

class SceneMaker {
  public:
    SceneMaker(const DecodeBitmap& decode, KeptFiles& kept) : search_(kept), decode_(decode) {}

    Scene make(const Worn& worn, TexturePointer skin);

  private:
    template <class Value, class Read>
    std::shared_ptr<const Value> readPlace(const FilePlace& place, std::int64_t most,
                                           const char* what, const Read& read) {
        std::shared_ptr<const Value> value;
        ignoringErrors([&] {
            value = search_.made<Value>(place, what, most, [&](const std::string& bytes) {
                Made<Value> made{read(bytes), 0};
                made.bytes = memoryOf(made.value);
                return made;
            });
        });
        return value;
    }

    bool findSkeleton(std::string_view kind);
    TexturePointer textureAt(const FilePlace& place);
    // As the flat picture of a skin is found.
    TexturePointer flatTexture(const std::string& name);
    // Of a head, a hand or a part of its own; each name is looked for once a way.
    TexturePointer namedTexture(const std::string& name, EntryMatch match);
    std::shared_ptr<const Mesh> meshNamed(const std::string& name, const FilePlace& suit);
    // The suit's first mesh in that texture, further ones in their own. False without the first.
    bool wear(const std::string& suitName, const TexturePointer& texture);
    bool wearWith(const SuitAndSkin& piece);
    bool addPart(const std::string& meshName, const FilePlace& suit, const TexturePointer& texture,
                 bool isFirst);

    WornFiles search_;
    const DecodeBitmap& decode_;
    std::shared_ptr<const Skeleton> skeleton_;
    std::vector<std::optional<Placement>> places_;
    std::map<std::pair<std::string, EntryMatch>, TexturePointer> textures_;
    std::vector<FigurePart> parts_;
    std::size_t faces_ = 0;
};

bool SceneMaker::findSkeleton(std::string_view kind) {
    const std::string_view name = skeletonOf(kind);
    std::string other(name);
    for (char& c : other) {
        c = c == '-' ? '_' : (c == '_' ? '-' : c);
    }
    const std::optional<FilePlace> place =
        search_.find({joined(name, kTextSuit), joined(other, kTextSuit), joined(name, kBinarySuit),
                      joined(other, kBinarySuit)});
    if (place) {
        const FileForm form = formOf(*place, kBinarySuit);
        skeleton_ = readPlace<Skeleton>(
            *place, kLargestSuit, "skeleton",
            [&](const std::string& bytes) { return readSkeletonFile(bytes, form); });
    }
    if (skeleton_) {
        places_ = bonePlaces(*skeleton_);
    }
    return skeleton_ != nullptr;
}

TexturePointer SceneMaker::textureAt(const FilePlace& place) {
    TexturePointer texture;
    ignoringErrors([&] {
        std::optional<Texture> decoded = decode_(search_.read(place, kLargestBitmap));
        if (decoded && isSound(*decoded)) {
            texture = std::make_shared<const Texture>(std::move(*decoded));
        }
    });
    return texture;
}

TexturePointer SceneMaker::flatTexture(const std::string& name) {
    TexturePointer texture;
    search_.findSkin(name, EntryMatch::Beginning, [&](const FilePlace& place) {
        texture = textureAt(place);
        return texture != nullptr;
    });
    return texture;
}

TexturePointer SceneMaker::namedTexture(const std::string& name, EntryMatch match) {
    const auto [known, isNew] = textures_.try_emplace({upperCase(name), match});
    if (isNew && !name.empty()) {
        search_.findSkin(name, match, [&, entry = known](const FilePlace& place) {
            entry->second = textureAt(place);
            return entry->second != nullptr;
        });
    }
    return known->second;
}

std::shared_ptr<const Mesh> SceneMaker::meshNamed(const std::string& name, const FilePlace& suit) {
    const std::optional<FilePlace> place =
        search_.find({joined(name, kTextMesh), joined(name, kBinaryMesh)}, &suit);
    if (!place) {
        return nullptr;
    }
    const FileForm form = formOf(*place, kBinaryMesh);
    return readPlace<Mesh>(*place, kLargestMesh, "mesh",
                           [&](const std::string& bytes) { return readMesh(bytes, form); });
}

bool SceneMaker::addPart(const std::string& meshName, const FilePlace& suit,
                         const TexturePointer& texture, bool isFirst) {
    const std::shared_ptr<const Mesh> mesh = meshNamed(meshName, suit);
    if (!mesh) {
        return false;
    }
    FigurePart part = posedMesh(*mesh, *skeleton_, places_);
    if (part.faces.empty() || part.faces.size() > kMostFaces - faces_) {
        return false;
    }
    if (!isFirst && !equalsIgnoringCase(mesh->texture, kNoTexture)) {
        part.texture = namedTexture(mesh->texture, EntryMatch::Whole);
    }
    if (!part.texture) {
        part.texture = texture;
    }
    faces_ += part.faces.size();
    parts_.push_back(std::move(part));
    return true;
}

bool SceneMaker::wear(const std::string& suitName, const TexturePointer& texture) {
    const std::optional<FilePlace> place =
        search_.find({joined(suitName, kTextSuit), joined(suitName, kBinarySuit)});
    if (!place) {
        return false;
    }
    const FileForm form = formOf(*place, kBinarySuit);
    const auto suits = readPlace<std::vector<Suit>>(
        *place, kLargestSuit, "suits",
        [&](const std::string& bytes) { return readSuits(bytes, form); });
    const Suit* suit = suits ? suitNamed(*suits, suitName) : nullptr;
    if (suit == nullptr || suit->parts.empty() ||
        !addPart(suit->parts.front().mesh, *place, texture, true)) {
        return false;
    }
    for (std::size_t i = 1; i < suit->parts.size(); ++i) {
        addPart(suit->parts[i].mesh, *place, texture, false);
    }
    return true;
}

bool SceneMaker::wearWith(const SuitAndSkin& piece) {
    if (piece.suit.empty()) {
        return false;
    }
    const TexturePointer texture = namedTexture(piece.skin, EntryMatch::WholeOrBeginning);
    return texture && wear(piece.suit, texture);
}

Scene SceneMaker::make(const Worn& worn, TexturePointer skin) {
    Scene scene;
    const TexturePointer texture = skin ? std::move(skin) : flatTexture(worn.body.skin);
    if (!texture || !isSound(*texture)) {
        scene.why = NoFigure::NoSkin;
        return scene;
    }
    if (!findSkeleton(worn.kind)) {
        scene.why = NoFigure::NoSkeleton;
        return scene;
    }
    if (!wear(worn.body.suit, texture)) {
        scene.why = NoFigure::NoBody;
        return scene;
    }
    scene.hasHead = wearWith(worn.head);
    scene.hasLeftHand = wearWith(worn.leftHand);
    scene.hasRightHand = wearWith(worn.rightHand);
    scene.figure = std::make_shared<const Figure>(makeFigure(std::move(parts_)));
    return scene;
}

}  // namespace

Scene makeScene(const std::optional<Worn>& worn, std::shared_ptr<const Texture> skin,
                const DecodeBitmap& decode, KeptFiles& kept) {
    return worn ? SceneMaker(decode, kept).make(*worn, std::move(skin)) : Scene();
}

}  // namespace marlowick
