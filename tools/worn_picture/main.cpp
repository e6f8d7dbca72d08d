// worn_picture GAME USERFILE PICTURE [--row N] [--yaw D] [--pitch D] [--zoom Z] [--size W H]
//
// Draws the sim of a user file of the game in GAME as it is worn, in the outfit of row N (2 unless
// told otherwise), and writes that as PICTURE (.png). For looking at a change to the drawing.
#include <QImage>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "foundation/game.h"
#include "iff/iff_file.h"
#include "iff/string_segment.h"
#include "preview/raster.h"
#include "preview/scene.h"
#include "widgets/display_text.h"

namespace {

using namespace marlowick;

struct Options {
    int row = 2;
    View view;
    int width = 320;
    int height = 320;
};

[[noreturn]] void fail(const std::string& text) {
    std::fprintf(stderr, "worn_picture: %s\n", text.c_str());
    std::exit(EXIT_FAILURE);
}

Options readOptions(int argc, char** argv) {
    Options options;
    for (int i = 4; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        const auto number = static_cast<float>(std::atof(argv[i + 1]));
        if (name == "--row") {
            options.row = static_cast<int>(number);
        } else if (name == "--yaw") {
            options.view.yaw = number;
        } else if (name == "--pitch") {
            options.view.pitch = number;
        } else if (name == "--zoom") {
            options.view.zoom = number;
        } else if (name == "--size" && i + 2 < argc) {
            options.width = static_cast<int>(number);
            options.height = std::atoi(argv[i + 2]);
            ++i;
        } else {
            fail("no such option: " + name);
        }
    }
    return options;
}

std::optional<Texture> decode(const std::string& bytes) {
    const QImage image = QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()),
                                          static_cast<int>(bytes.size()))
                             .convertToFormat(QImage::Format_RGB32);
    if (image.isNull()) {
        return std::nullopt;
    }
    Texture texture{image.width(), image.height(), {}};
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
        texture.pixels.insert(texture.pixels.end(), line, line + image.width());
    }
    return texture;
}

std::optional<Worn> wornIn(const StrSegment& wardrobe, int row) {
    std::optional<Worn> worn = normalClothes(wardrobe);
    if (!worn || row > wardrobe.Entries.bound()) {
        return std::nullopt;
    }
    const std::string& text = wardrobe.Entries[row].Text;
    const std::optional<SuitAndSkin> body =
        clothes(splitRow(text.substr(0, text.find(';'))), worn->body);
    if (!body) {
        return std::nullopt;
    }
    worn->body = *body;
    return worn;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fputs(
            "usage: worn_picture GAME USERFILE PICTURE [--row N] [--yaw D] [--pitch D] [--zoom Z] "
            "[--size W H]\n",
            stderr);
        return 2;
    }
    SimsPath = toPath(QString::fromLocal8Bit(argv[1]));
    const Options options = readOptions(argc, argv);
    IffFile iff;
    gsResetIFF(iff);
    const std::string failure = gfstrQuickReadIFF(iff, toPath(QString::fromLocal8Bit(argv[2])));
    if (!failure.empty()) {
        fail(failure);
    }
    StrSegment wardrobe;
    readWardrobeTable(iff, wardrobe);
    const Scene scene = makeScene(wornIn(wardrobe, options.row), {}, decode);
    if (!scene.figure) {
        fail("there is no figure: " + std::to_string(static_cast<int>(scene.why)));
    }
    Raster raster;
    const auto& pixels =
        raster.draw(*scene.figure, options.view, options.width, options.height, 0xFFE8EEF6U);
    const QImage image(reinterpret_cast<const uchar*>(pixels.data()), options.width, options.height,
                       QImage::Format_ARGB32_Premultiplied);
    std::size_t faces = 0;
    for (const FigurePart& part : scene.figure->parts) {
        faces += part.faces.size();
    }
    std::printf("%zu parts, %zu faces, head %d, hands %d %d\n", scene.figure->parts.size(), faces,
                scene.hasHead, scene.hasLeftHand, scene.hasRightHand);
    return image.save(argv[3]) ? EXIT_SUCCESS : EXIT_FAILURE;
}
