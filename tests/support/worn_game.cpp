#include "support/worn_game.h"

#include <QWidget>

namespace marlowick::test {
namespace {

const std::string kSkins = "game/GameData/Skins/";

std::string line(const std::vector<float>& values) {
    std::string text;
    for (const float value : values) {
        text += (text.empty() ? "" : " ") + std::to_string(value);
    }
    return text + "\r\n";
}

std::string count(std::size_t number) {
    return std::to_string(number) + "\r\n";
}

void writePiece(const TestFolder& folder, const std::string& suit, const Board& board,
                const std::string& skin, unsigned rgb) {
    folder.write(kSkins + suit + ".cmx", oneMeshSuit(suit, "xskin-" + suit));
    folder.write(kSkins + "xskin-" + suit + ".skn", boardMesh({board}));
    folder.write(kSkins + skin + ".bmp", bitmapFile(8, 8, rgb));
}

template <class IsIt>
ColourSeen seen(QWidget& control, const IsIt& isIt) {
    const QImage image = control.grab().toImage();
    ColourSeen result;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (isIt(qRed(pixel), qGreen(pixel), qBlue(pixel))) {
                ++(x < image.width() / 2 ? result.left : result.right);
                result.top += y < image.height() / 3 ? 1 : 0;
            }
        }
    }
    return result;
}

bool outshines(int colour, int other, int third) {
    return colour > 40 && colour > 2 * other && colour > 2 * third;
}

}  // namespace

std::string boardMesh(const std::vector<Board>& boards) {
    std::string faces;
    std::string sheet;
    std::string vertices;
    std::size_t first = 0;
    for (const Board& b : boards) {
        for (const std::size_t step : {std::size_t{1}, std::size_t{2}}) {
            faces += std::to_string(first) + " " + std::to_string(first + step) + " " +
                     std::to_string(first + step + 1) + "\r\n";
        }
        first += 4;
        sheet += line({b.u0, 0}) + line({b.u1, 0}) + line({b.u1, 1}) + line({b.u0, 1});
        // The files' space is mirrored.
        vertices += line({-b.right, b.top, 0, 0, 0, 1}) + line({-b.left, b.top, 0, 0, 0, 1}) +
                    line({-b.left, b.bottom, 0, 0, 0, 1}) + line({-b.right, b.bottom, 0, 0, 0, 1});
    }
    return "mesh\r\nx\r\n1\r\nROOT\r\n" + count(2 * boards.size()) + faces + "1\r\n0 0 " +
           std::to_string(first) + " -1 0\r\n" + count(first) + sheet + "0\r\n" + count(first) +
           vertices;
}

std::string rootSkeleton() {
    return "version 300\r\n1\r\nskeleton\r\n1\r\nROOT\r\nNULL\r\n0\r\n| 0 0 0 |\r\n| 0 0 0 1 |\r\n"
           "1\r\n1\r\n1\r\n0\r\n0\r\n0\r\n0\r\n";
}

std::string oneMeshSuit(const std::string& suit, const std::string& mesh) {
    return "version 300\r\n0\r\n1\r\n" + suit + "\r\n0\r\n0\r\n1\r\nPELVIS\r\n" + mesh +
           "\r\n0\r\n0\r\n0\r\n";
}

std::string halvesBitmap(unsigned left, unsigned right) {
    constexpr std::size_t kWidth = 8;
    std::string file = bitmapFile(kWidth, 1, left);
    const std::string rightHalf = bitmapFile(kWidth, 1, right).substr(54 + 3 * kWidth / 2);
    return file.replace(54 + 3 * kWidth / 2, rightHalf.size(), rightHalf);
}

void writeBodies(const TestFolder& folder, const std::vector<std::string>& bodies) {
    for (const char* name : {"adult-skeleton", "child-skeleton", "dog_skeleton", "kat_skeleton"}) {
        folder.write(kSkins + name + ".cmx", rootSkeleton());
    }
    for (const std::string& body : bodies) {
        folder.write(kSkins + body + ".cmx", oneMeshSuit(body, "xskin-" + body));
        folder.write(kSkins + "xskin-" + body + ".skn",
                     boardMesh({{-1, 1, 0, 4, 0.1F, 0.4F}, {1.2F, 1.8F, 1, 4, 0.6F, 0.9F}}));
    }
}

void writeHead(const TestFolder& folder, const std::string& head, const std::string& skin,
               unsigned rgb) {
    writePiece(folder, head, {-0.7F, 0.7F, 4.2F, 6, 0, 1}, skin, rgb);
}

void writeHand(const TestFolder& folder, const std::string& hand, const std::string& skin,
               unsigned rgb, bool left) {
    writePiece(folder, hand, left ? Board{2, 2.6F, 0, 1, 0, 1} : Board{-2.6F, -2, 0, 1, 0, 1}, skin,
               rgb);
}

ColourSeen redSeen(QWidget& control) {
    return seen(control, [](int r, int g, int b) { return outshines(r, g, b); });
}
ColourSeen greenSeen(QWidget& control) {
    return seen(control, [](int r, int g, int b) { return outshines(g, r, b); });
}
ColourSeen blueSeen(QWidget& control) {
    return seen(control, [](int r, int g, int b) { return outshines(b, r, g); });
}

}  // namespace marlowick::test
