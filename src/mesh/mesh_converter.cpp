#include "mesh/mesh_converter.h"

#include <cstdint>
#include <string>
#include <utility>

#include "foundation/error_trap.h"
#include "foundation/list.h"
#include "mesh/float_text.h"
#include "mesh/item_reader.h"
#include "system/block_copy.h"
#include "system/streams.h"

namespace marlowick {
namespace {

// Gathers whole lines and sends them to the file a block at a time.
class LineWriter {
  public:
    explicit LineWriter(File& file) : file_(file) {}

    void line(const std::string& text) {
        lines_ += text;
        lines_ += "\r\n";
        if (lines_.size() >= kBlock) {
            send();
        }
    }

    // What a write refused isn't tried a second time.
    void send() { file_.write(std::exchange(lines_, {})); }

  private:
    File& file_;
    std::string lines_;
};

std::string integerItem(ItemReader& mesh) {
    return std::to_string(mesh.number());
}

std::string floatItem(ItemReader& mesh) {
    return floatText(mesh.singleFloat());
}

std::string textItem(ItemReader& mesh) {
    return mesh.countedText();
}

// A count, and then that many rows.
struct Section {
    std::string (*item)(ItemReader&);
    int itemsPerRow;
};

constexpr Section kSections[] = {
    {textItem, 1},     // bones
    {integerItem, 3},  // faces
    {integerItem, 5},  // bone bindings
    {floatItem, 2},    // texture coordinates
    {integerItem, 2},  // blend records
    {floatItem, 6},    // vertices: position, then normal
};

void convertSection(ItemReader& mesh, LineWriter& output, const Section& section) {
    const std::int32_t count = mesh.number();
    output.line(std::to_string(count));
    checkCounter(count);
    std::string line;
    for (std::int32_t row = 1; row <= count; ++row) {
        line = section.item(mesh);
        for (int item = 2; item <= section.itemsPerRow; ++item) {
            line += ' ';
            line += section.item(mesh);
        }
        output.line(line);
    }
    // The counter steps past the last row.
    checkCounter(count + 1LL);
}

void convert(File& source, File& target) {
    ItemReader mesh(source);
    LineWriter output(target);
    try {
        output.line(mesh.countedText());  // name
        output.line(mesh.countedText());  // default texture
        for (const Section& section : kSections) {
            convertSection(mesh, output, section);
        }
    } catch (...) {
        // A person who looks into the file while the report shows finds every line up to there.
        ignoringErrors([&] { output.send(); });
        throw;
    }
    output.send();
}

}  // namespace

bool gsConvertBMFtoSKN(const Path& bmf, const Path& skn) {
    return trapped("modBMFconvert", "gsConvertBMFtoSKN", [&] {
        File& source = streams().open(slot::kExtractSource, bmf, OpenMode::Input);
        File& target = streams().open(slot::kExtractOutput, skn, OpenMode::Output);
        convert(source, target);
        streams().close(slot::kExtractSource);
        streams().close(slot::kExtractOutput);
    });
}

}  // namespace marlowick
