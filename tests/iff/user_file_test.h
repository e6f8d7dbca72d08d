// What tests of user files share: a record, and files that it is read from.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "iff/iff_file.h"
#include "support/error_recorder.h"
#include "support/test_folder.h"
#include "support/user_file_builder.h"

namespace marlowick::test {

// The four id bytes of the wardrobe table.
inline const std::string kWardrobeIdBytes("\x00\xC8\x00\x10", 4);

class UserFileTest : public ::testing::Test {
  protected:
    // Makes a file of a sim and empties the record for it.
    Path make(const std::string& content) {
        folder.write("game/user1.iff", content);
        gsResetIFF(iff);
        return folder.path("game\\user1.iff");
    }

    // One more segment in the record.
    void add(const std::string& type, const std::string& label, const std::string& data = {},
             const std::string& id = {}) {
        iff.Segments.append(
            {0, type, big32(76 + static_cast<unsigned>(data.size())), id, padded(label, 64), data});
    }

    TestFolder folder;
    ErrorRecorder recorder;
    IffFile iff;
};

}  // namespace marlowick::test
