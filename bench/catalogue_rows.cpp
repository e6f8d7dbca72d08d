// What the windows ask of a large game: models, skins and their pictures, out of many archives.
#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <filesystem>
#include <memory>

#include "bench/archive_file.h"
#include "bench/plain_disk.h"
#include "bench/ratio.h"
#include "catalogue/model_catalogue.h"
#include "catalogue/skin_image.h"
#include "catalogue/skin_lists.h"
#include "foundation/game.h"
#include "system/kept_files.h"
#include "system/one_command.h"
#include "widgets/picture_box.h"

namespace marlowick::bench {
namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;

// A game's folder with its archives.
class Game {
  public:
    Game() {
        folder_.makeFolder("game/GameData/Skins");
        folder_.makeFolder("game/GameData/Textures");
        folder_.makeFolder("game/GameData/Animation");
        folder_.makeFolder("program/temp");
        SimsPath = folder_.path("game");
        ProgramFolder = folder_.path("program");
    }

    // name: below the game's folder.
    void archive(const std::string& name, const Entries& entries) {
        const std::string file = folder_.of("game/" + name);
        folder_.makeFolder("game/" + name.substr(0, name.rfind('/')));
        plainWrite(file, archiveOf(entries));
        files_.push_back(file);
    }

    // All that were made, in this order.
    const std::vector<std::string>& archives() const { return files_; }
    std::string of(const std::string& name) const { return folder_.of(name); }

  private:
    BenchFolder folder_;
    std::vector<std::string> files_;
};

// Reads each directory once, one string an entry.
void readAll(const Game& game) {
    for (const std::string& file : game.archives()) {
        benchmark::DoNotOptimize(plainDirectory(file).size());
    }
}

std::string padded(int number) {
    std::string text = std::to_string(number);
    return std::string(6 - std::min<std::size_t>(6, text.size()), '0') + text;
}

// Nothing is kept of any file yet; what is read from now on is, as if the files were older than
// they are.
void forgetFiles() {
    keptFiles() = KeptFiles(kMostKept, [] { return stampClock() + 60'000'000'000; });
}

// A question that nobody has asked yet.
class FirstQuestion : public Case {
  public:
    void prepare() override {
        takeBack();
        forgetFiles();
    }

  protected:
    // What the question before left in the program.
    virtual void takeBack() {}
};

// The same question once more, when what the first one read is kept. The floor stays that of the
// first.
template <class First>
class Again : public First {
  public:
    explicit Again(int size) : First(size) {
        First::prepare();
        First::routine();
    }
    void prepare() override { First::takeBack(); }
};

class ModelCatalogue : public FirstQuestion {
  public:
    explicit ModelCatalogue(int entries) {
        for (int pack = 1; pack <= 11; ++pack) {
            Entries content;
            for (int i = 0; i < entries; ++i) {
                content.emplace_back("Animation\\b" + padded(i).substr(3) + "fafit_" + padded(i) +
                                         (i % 2 == 0 ? ".cmx.bcf" : ".bmf"),
                                     "");
            }
            game_.archive(nameOf(pack), content);
        }
    }
    void floor() override { readAll(game_); }
    void routine() override { gsBuildModelCatalogue(); }

  protected:
    void takeBack() override { resetModelCatalogue(); }

  private:
    static std::string nameOf(int pack) {
        if (pack == 10) {
            return "GameData/Animation/Animation.far";
        }
        const std::string name = pack == 11  ? "ExpansionShared"
                                 : pack == 1 ? "ExpansionPack"
                                             : "ExpansionPack" + std::to_string(pack);
        return name + "/" + name + ".far";
    }
    Game game_;
};

// A picture of 256 by 256 with a palette, as most skins are.
std::string skinBitmap() {
    QImage image(256, 256, QImage::Format_Indexed8);
    for (int i = 0; i < 256; ++i) {
        image.setColor(i, qRgb(i, 255 - i, i / 2));
    }
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            image.setPixel(x, y, static_cast<uint>((x * y) & 255));
        }
    }
    const BenchFolder folder;
    image.save(QString::fromStdString(folder.of("skin.bmp")), "BMP");
    return std::string(plainRead(folder.of("skin.bmp")).text());
}

// Extracts an entry, decodes and paints it.
void showEntry(const std::string& archive, std::size_t offset, std::size_t size,
               const std::string& scratch, PictureBox& box) {
    plainCopy(archive, offset, size, scratch, std::size_t{1} << 20U);
    box.load(Path(scratch));
    benchmark::DoNotOptimize(box.grab().toImage().constBits());
}

// Fifteen skins in the last of many archives.
class WardrobeImages : public FirstQuestion {
  public:
    explicit WardrobeImages(int archives) {
        for (int i = 1; i <= archives; ++i) {
            Entries content;
            for (int k = 0; k < 1000; ++k) {
                content.emplace_back("Textures\\b" + padded(i) + "_" + padded(k) + ".bmp", "");
            }
            if (i == archives) {
                for (int k = 1; k <= kImages; ++k) {
                    content.emplace_back("Textures\\worn" + padded(k) + ".bmp", bitmap_);
                }
            }
            game_.archive("GameData/Textures/T" + padded(i) + ".far", content);
        }
        box_.resize(152, 152);
    }
    void floor() override {
        readAll(game_);
        for (int k = 0; k < kImages; ++k) {
            showEntry(game_.archives().back(), 16 + static_cast<std::size_t>(k) * bitmap_.size(),
                      bitmap_.size(), game_.of("scratch.bmp"), box_);
        }
    }
    void routine() override {
        SkinImages images;
        for (int k = 1; k <= kImages; ++k) {
            images.fetch(box_, "worn" + padded(k));
            benchmark::DoNotOptimize(box_.grab().toImage().constBits());
        }
    }

  private:
    static constexpr int kImages = 15;
    const std::string bitmap_ = skinBitmap();
    Game game_;
    PictureBox box_;
};

class SkinPage : public FirstQuestion {
  public:
    explicit SkinPage(int entries) {
        Entries content;
        for (int k = 0; k < entries; ++k) {
            content.emplace_back("Textures\\b001fafitlgt_" + padded(k) + ".bmp",
                                 k < kCells ? bitmap_ : std::string());
        }
        game_.archive("GameData/Textures/Textures.far", content);
        archive_ = SimsPath + "\\GameData\\Textures\\Textures.far";
        box_.resize(64, 64);
    }
    void floor() override {
        readAll(game_);
        for (int k = 0; k < kCells; ++k) {
            showEntry(game_.archives().back(), 16 + static_cast<std::size_t>(k) * bitmap_.size(),
                      bitmap_.size(), game_.of("scratch.bmp"), box_);
        }
    }
    void routine() override {
        for (int number = 1; number <= kCells; ++number) {
            const ExtractedSkin skin = extractSkin(archive_, number);
            box_.load(skin.file, skin.length);
            benchmark::DoNotOptimize(box_.grab().toImage().constBits());
        }
    }

  private:
    static constexpr int kCells = 49;
    const std::string bitmap_ = skinBitmap();
    Game game_;
    Path archive_;
    PictureBox box_;
};

// The game's 31 archives hold so many entries in all; one in twenty is a skin of the model.
class SkinEntries : public FirstQuestion {
  public:
    explicit SkinEntries(int entries) {
        const int each = entries / kArchives;
        for (int i = 1; i <= kArchives; ++i) {
            Entries content;
            for (int k = 0; k < each; ++k) {
                content.emplace_back("Textures\\b" + std::string(k % 20 == 0 ? "001" : "002") +
                                         "fafitlgt_" + padded(i * 10'000 + k) + ".bmp",
                                     "");
            }
            game_.archive("GameData/Textures/T" + padded(i) + ".far", content);
        }
    }
    void floor() override { readAll(game_); }
    void routine() override {
        listSkinEntries({"B001FAFIT_01", "falgtfitB"}, skins_);
        benchmark::DoNotOptimize(skins_.bound());
    }

  private:
    static constexpr int kArchives = 31;
    Game game_;
    List<FarSkinEntry> skins_;
};

// So many loose files in one of the folders of skins, each a skin or a model that fits.
class LooseFiles : public FirstQuestion {
  public:
    LooseFiles(int count, const std::string& start, const std::string& ending) {
        for (int i = 1; i <= count; ++i) {
            plainWrite(game_.of("game/GameData/Skins/" + start + padded(i) + ending), "");
        }
    }
    void floor() override {
        for (const auto& entry :
             std::filesystem::directory_iterator(game_.of("game/GameData/Skins"))) {
            benchmark::DoNotOptimize(entry.path().native().size());
        }
    }

  private:
    Game game_;
};

class LooseSkins : public LooseFiles {
  public:
    explicit LooseSkins(int count) : LooseFiles(count, "b001fafitlgt_", ".bmp") {}
    void routine() override {
        const OneCommand command;
        benchmark::DoNotOptimize(skinCandidates({"B001FAFIT_01", "falgtfitB"}).size());
    }
};

class LooseModels : public LooseFiles {
  public:
    explicit LooseModels(int count) : LooseFiles(count, "b001fafit_", ".cmx") {}
    void routine() override {
        const OneCommand command;
        listPersonModels("falgtfitB", models_);
        benchmark::DoNotOptimize(models_.bound());
    }

  private:
    List<std::string> models_;
};

}  // namespace

std::vector<Row> catalogueRows() {
    const std::vector<int> growth = {320, 3200, 32'000, 320'000};
    const std::vector<int> looseGrowth = {32, 320, 3200, 32'000};
    return {{.name = "The model catalogue from 11 archives of # entries",
             .toReach = 2.0,
             .sizes = {5000},
             .smallSize = 50,
             .make = sized<ModelCatalogue>()},
            {.name = "The same again",
             .toReach = 2.0,
             .sizes = {5000},
             .smallSize = 50,
             .make = sized<Again<ModelCatalogue>>()},
            {.name = "The 15 images of a wardrobe, all in the last of # texture archives",
             .toReach = 1.5,
             .sizes = {20},
             .smallSize = 2,
             .make = sized<WardrobeImages>()},
            {.name = "The same 15 images again",
             .toReach = 1.5,
             .sizes = {20},
             .smallSize = 2,
             .make = sized<Again<WardrobeImages>>()},
            {.name = "49 skins shown out of one archive of # entries",
             .toReach = 1.3,
             .sizes = {5000},
             .smallSize = 50,
             .make = sized<SkinPage>()},
            {.name = "The same 49 skins again",
             .toReach = 1.3,
             .sizes = {5000},
             .smallSize = 50,
             .make = sized<Again<SkinPage>>()},
            {.name = "List the archive skins of a model, 31 archives, # entries",
             .toReach = 1.5,
             .sizes = {155'000},
             .smallSize = 310,
             .growth = growth,
             .make = sized<SkinEntries>()},
            {.name = "List the same archive skins again",
             .toReach = 1.5,
             .sizes = {155'000},
             .smallSize = 310,
             .make = sized<Again<SkinEntries>>()},
            {.name = "The loose skins of a model, so many in a folder",
             .smallSize = 5,
             .growth = looseGrowth,
             .make = sized<LooseSkins>()},
            {.name = "The loose models that fit, so many in a folder",
             .smallSize = 5,
             .growth = looseGrowth,
             .make = sized<LooseModels>()}};
}

}  // namespace marlowick::bench
