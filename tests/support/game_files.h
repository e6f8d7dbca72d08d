// Base of tests of what is found in the game's folder: writes its archives and files.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/test_folder.h"

namespace marlowick::test {

using Names = std::vector<std::string>;

// All paths below the game's folder, with forward slashes.
class GameFilesTest : public ::testing::Test {
  protected:
    void archive(const std::string& path, const std::vector<ArchiveEntry>& entries) const {
        folder.write("game/" + path, archiveFile(entries));
    }

    // An archive of which only the names count.
    void archiveOf(const std::string& path, const Names& names) const {
        std::vector<ArchiveEntry> entries;
        for (const std::string& name : names) {
            entries.push_back({name, "x"});
        }
        archive(path, entries);
    }

    // Files in a folder, of which only the names count.
    void files(const std::string& path, const Names& names) const {
        for (const std::string& name : names) {
            folder.write("game/" + path + "/" + name, "x");
        }
    }

    // The archive of an expansion pack, by its number or, for the first one, without.
    static std::string packName(const std::string& number) {
        return "ExpansionPack" + number + "/ExpansionPack" + number + ".far";
    }

    TestFolder folder;
    ErrorRecorder recorder;
};

}  // namespace marlowick::test
