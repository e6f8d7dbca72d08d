#include "mesh/suit.h"

#include <algorithm>
#include <string_view>

#include "mesh/item_reader.h"
#include "system/runtime_error.h"
#include "system/streams.h"

namespace marlowick {
namespace {

constexpr Slot kNamedStream = Slot::free(1);

void readRows(ItemReader& reader, SuitRecord& suit) {
    if (suit.RowCount < 1) {
        throw RuntimeError(error::kSubscript);
    }
    // Row by row: a damaged count must not ask for memory that no file could fill.
    for (std::int32_t number = 1; number <= suit.RowCount; ++number) {
        SuitRow row;
        row.BoneName = reader.countedText();
        row.MeshName = reader.countedText();
        row.RowNumber1 = reader.number();
        row.RowNumber2 = reader.number();
        suit.Rows.append(std::move(row));
    }
}

// Takes a line off the front; CR LF, CR and LF each end one. 62 if nothing is left.
std::string_view takeLine(std::string_view& text) {
    if (text.empty()) {
        throw RuntimeError(error::kInputPastEnd);
    }
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    const std::size_t ending = text.substr(end, 2) == "\r\n" ? 2 : 1;
    text.remove_prefix(std::min(end + ending, text.size()));
    return line;
}

}  // namespace

void gsReadSuitBCF(const Path& bcf, SuitRecord& suit) {
    suit = {};
    const Slot slot = streams().freeSlot();
    streams().open(slot, bcf, OpenMode::Input);
    ItemReader reader(streams().at(kNamedStream));
    suit.Number1 = reader.number();
    suit.Number2 = reader.number();
    suit.SuitName = reader.countedText();
    suit.Number3 = reader.number();
    suit.Number4 = reader.number();
    suit.RowCount = reader.number();
    readRows(reader, suit);
    suit.Number5 = reader.number();
    streams().close(slot);
}

std::string headMeshOfCmx(const Path& cmx) {
    const Slot slot = streams().freeSlot();
    File& file = streams().open(slot, cmx, OpenMode::Input);
    std::string content(static_cast<std::size_t>(file.size()), '\0');
    content.resize(file.read(content.data(), content.size()));
    std::string_view rest = content;
    while (takeLine(rest) != kHeadBone) {
    }
    std::string mesh(takeLine(rest));
    streams().close(slot);
    return mesh;
}

}  // namespace marlowick
