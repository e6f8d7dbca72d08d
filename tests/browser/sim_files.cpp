#include "browser/sim_files.h"

#include <cstdio>

#include "support/user_file_builder.h"

namespace marlowick::test {

std::string simFileName(int number) {
    char name[20];
    std::snprintf(name, sizeof name, "user%05d.iff", number);
    return name;
}

std::string simPlace(int number, const std::string& neighbourhood) {
    return "game/" + neighbourhood + "/Characters/" + simFileName(number);
}

std::string unreadableFile() {
    return fileHead(0) + segment("STR#", 200, 16, "", "data").replace(4, 4, big32(75));
}

}  // namespace marlowick::test
