// A small writer of user files for tests, independent of the program's own.
#pragma once

#include <string>
#include <vector>

namespace marlowick::test {

std::string big32(unsigned number);
std::string big16(unsigned number);
std::string little32(unsigned number);
std::string little16(unsigned number);
// The text with zero bytes behind it, width bytes in all.
std::string padded(std::string text, std::size_t width, char filler = '\0');

// A segment: type, size (76 and the data), id, flags, label padded with zero bytes, data.
std::string segment(const std::string& type, unsigned id, unsigned flags, const std::string& label,
                    const std::string& data);

// The head of a file: 60 bytes and the map's offset.
std::string fileHead(unsigned mapOffset);

// One row of the map: offset, id, flags, label with its end and pad as given.
std::string mapRow(unsigned offset, unsigned id, unsigned flags, const std::string& labelAndEnd);
// A type row: the type backwards, the count, the rows.
std::string mapType(const std::string& type, unsigned count, const std::string& rows);
// The whole map; sizeField is the number behind its head of 88 bytes.
std::string map(unsigned sizeField, unsigned typeCount, const std::string& types);

// The data of a string table with language 1 and empty comments.
std::string stringTable(const std::vector<std::string>& rows, const std::string& tail = {});

// Wardrobe rows of a sim; row n is element n - 1, "row n" where nothing else is told.
struct SimRows {
    int count = 35;
    std::string age = "adult";
    std::string gender = "female";
    std::string tone = "lgt";
    std::string bodyType = "fit";
};
std::vector<std::string> simRows(const SimRows& sim);

// A whole file of a sim: object, names, wardrobe, one picture, and a map of the four.
std::string simFile(const std::vector<std::string>& rows, const std::string& name = "Mara Quill",
                    const std::string& label = "user00001 - Mara Quill");

// The rows of the wardrobe table in a file, read by a small reader of its own.
std::vector<std::string> rowsOfFile(const std::string& file);

}  // namespace marlowick::test
