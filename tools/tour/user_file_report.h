// What a save has changed in a user file, row by row.
#pragma once

#include <map>
#include <string>

namespace marlowick::tour {

// Wardrobe rows by number, from 1; game texts.
using Rows = std::map<int, std::string>;

struct UserFileContent {
    Rows rows;
    // The whole file with the wardrobe rows' own bytes and the offsets that move with them cut
    // out: a save must leave it as it is.
    std::string rest;
};

// Takes the content of a user file apart with a small reader of its own.
UserFileContent takeApart(const std::string& file);

// Prints each row that differs; gives the new texts of those rows.
Rows printChanges(const UserFileContent& before, const UserFileContent& after);

}  // namespace marlowick::tour
