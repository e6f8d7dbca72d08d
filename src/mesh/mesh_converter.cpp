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

// Gathers lines and sends those that are whole to the file, a block at a time.
class LineWriter {
  public:
    explicit LineWriter(File& file) : file_(file) {}

    // Where the text of the next line is put.
    std::string& text() { return lines_; }

    void endLine() {
        lines_ += "\r\n";
        whole_ = lines_.size();
        if (whole_ >= kBlock) {
            send();
        }
    }

    // What a write refused isn't tried a second time.
    void send() {
        lines_.resize(std::exchange(whole_, 0));
        const std::string lines = std::exchange(lines_, {});
        lines_.reserve(lines.capacity());
        file_.write(lines);
    }

  private:
    File& file_;
    std::string lines_;
    std::size_t whole_ = 0;  // how much of them is whole lines
};

void putInteger(ItemReader& mesh, std::string& text) {
    text += std::to_string(mesh.number());
}

void putFloat(ItemReader& mesh, std::string& text) {
    text += floatText(mesh.singleFloat());
}

void putText(ItemReader& mesh, std::string& text) {
    text += mesh.countedText();
}

// A count, and then that many rows.
struct Section {
    void (*put)(ItemReader& mesh, std::string& text);
    int itemsPerRow;
};

constexpr Section kSections[] = {
    {putText, 1},     // bones
    {putInteger, 3},  // faces
    {putInteger, 5},  // bone bindings
    {putFloat, 2},    // texture coordinates
    {putInteger, 2},  // blend records
    {putFloat, 6},    // vertices: position, then normal
};

void convertSection(ItemReader& mesh, LineWriter& output, const Section& section) {
    const std::int32_t count = mesh.number();
    output.text() += std::to_string(count);
    output.endLine();
    checkCounter(count);
    for (std::int32_t row = 1; row <= count; ++row) {
        section.put(mesh, output.text());
        for (int item = 2; item <= section.itemsPerRow; ++item) {
            output.text() += ' ';
            section.put(mesh, output.text());
        }
        output.endLine();
    }
    // The counter steps past the last row.
    checkCounter(count + 1LL);
}

void convert(File& source, File& target) {
    ItemReader mesh(source);
    LineWriter output(target);
    try {
        for (int i = 0; i < 2; ++i) {  // its name and its default texture
            putText(mesh, output.text());
            output.endLine();
        }
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
