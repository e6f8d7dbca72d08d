#include "support/user_file_builder.h"

#include <algorithm>

#include "support/test_folder.h"

namespace marlowick::test {
namespace {

char byteOf(unsigned number, unsigned shift) {
    return static_cast<char>((number >> shift) & 0xFFU);
}

}  // namespace

std::string big32(unsigned n) {
    return {byteOf(n, 24), byteOf(n, 16), byteOf(n, 8), byteOf(n, 0)};
}

std::string big16(unsigned n) {
    return {byteOf(n, 8), byteOf(n, 0)};
}

std::string little32(unsigned n) {
    return {byteOf(n, 0), byteOf(n, 8), byteOf(n, 16), byteOf(n, 24)};
}

std::string little16(unsigned n) {
    return {byteOf(n, 0), byteOf(n, 8)};
}

std::string padded(std::string text, std::size_t width, char filler) {
    text.resize(width, filler);
    return text;
}

std::string segment(const std::string& type, unsigned id, unsigned flags, const std::string& label,
                    const std::string& data) {
    return type + big32(76 + static_cast<unsigned>(data.size())) + big16(id) + big16(flags) +
           padded(label, 64) + data;
}

std::string fileHead(unsigned mapOffset) {
    std::string head = "HEAD OF A FILE";
    for (char c = '\1'; head.size() < 60; ++c) {
        head += c;
    }
    return head + big32(mapOffset);
}

std::string mapRow(unsigned offset, unsigned id, unsigned flags, const std::string& labelAndEnd) {
    return little32(offset) + little16(id) + little16(flags) + labelAndEnd;
}

std::string mapType(const std::string& type, unsigned count, const std::string& rows) {
    return std::string(type.rbegin(), type.rend()) + little32(count) + rows;
}

std::string map(unsigned sizeField, unsigned typeCount, const std::string& types) {
    std::string head =
        "rsmp" + big32(4711) + big16(0) + big16(0) + padded("map label", 64) + "twelve bytes";
    return head + little32(sizeField) + little32(typeCount) + types;
}

std::string stringTable(const std::vector<std::string>& rows, const std::string& tail) {
    std::string data = "\xFD\xFF" + little16(static_cast<unsigned>(rows.size()));
    for (const std::string& row : rows) {
        data += '\1' + row + '\0' + '\0';
    }
    return data + tail;
}

std::vector<std::string> simRows(const SimRows& sim) {
    std::vector<std::string> rows;
    for (int row = 1; row <= sim.count; ++row) {
        rows.push_back("row " + std::to_string(row));
    }
    const std::string sex =
        std::string(sim.gender == "female" ? "f" : "m") + (sim.age == "adult" ? "a" : "c");
    const auto outfit = [&](const std::string& stem) {
        const std::string body = stem + sex + sim.bodyType;
        return body + "_own,BODY=" + body + sim.tone + "_own";
    };
    const auto put = [&](std::size_t row, const std::string& text) {
        if (row <= rows.size()) {
            rows[row - 1] = text;
        }
    };
    put(1, sim.age);
    put(2, outfit("b001"));
    put(13, sim.gender);
    put(15, sim.tone);
    put(16, outfit("n100"));
    put(17, outfit("u001"));
    const char* poses[] = {"LO", "RO", "LP", "RP", "LC", "RC"};
    for (std::size_t i = 0; i < 6; ++i) {
        put(18 + i, std::string("Hx") + poses[i] + ",HAND=hand" + poses[i]);
    }
    put(28, outfit("g001"));
    put(29, "HxLO,HAND=gloveL");
    put(30, "HxRO,HAND=gloveR");
    put(31, sim.age == "adult" ? outfit("f001") : "ADDED");
    put(32, outfit("s001"));
    put(33, outfit("l001"));
    put(34, outfit("w001"));
    put(35, sim.age == "adult" ? outfit("h001") : "ADDED");
    return rows;
}

std::string simFile(const std::vector<std::string>& rows, const std::string& name,
                    const std::string& label) {
    const std::string object = segment("OBJD", 128, 16, label, "object data");
    const std::string names = segment("CTSS", 2000, 16, "", stringTable({name, "a description"}));
    const std::string wardrobe = segment("STR#", 200, 16, "a2o skins", stringTable(rows));
    const std::string picture =
        segment("BMP_", 2001, 16, "web_image", bitmapFile(45, 45, 0x3366CC));
    const auto at = [](std::size_t offset) { return static_cast<unsigned>(offset); };
    const std::size_t first = 64;
    const std::size_t second = first + object.size();
    const std::size_t third = second + names.size();
    const std::size_t fourth = third + wardrobe.size();
    const std::size_t mapStart = fourth + picture.size();
    // Each row: 8 bytes, the label and its zero byte, one pad byte where that makes it odd.
    const std::string types =
        mapType("OBJD", 1, mapRow(at(first), 128, 16, std::string("abcde\0", 6))) +
        mapType("CTSS", 1, mapRow(at(second), 2000, 16, std::string("\0\xA3", 2))) +
        mapType("STR#", 1, mapRow(at(third), 200, 16, std::string("abcd\0\x07", 6))) +
        mapType("BMP_", 1, mapRow(at(fourth), 2001, 16, std::string("x\0", 2)));
    const auto length = static_cast<unsigned>(96 + types.size());
    return fileHead(at(mapStart)) + object + names + wardrobe + picture + map(length - 1, 4, types);
}

std::vector<std::string> rowsOfFile(const std::string& file) {
    const std::size_t start = file.find(std::string("\x00\xC8\x00\x10", 4)) + 4 + 64;
    const auto count = static_cast<std::size_t>(static_cast<unsigned char>(file[start + 2]));
    std::vector<std::string> rows;
    std::size_t position = start + 4;
    while (rows.size() < count) {
        const std::size_t end = file.find('\0', ++position);
        rows.push_back(file.substr(position, end - position));
        position = file.find('\0', end + 1) + 1;
    }
    return rows;
}

}  // namespace marlowick::test
