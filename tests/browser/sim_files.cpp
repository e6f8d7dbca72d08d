#include "browser/sim_files.h"

#include <cstdio>

namespace marlowick::test {

std::string simFileName(int number) {
    char name[20];
    std::snprintf(name, sizeof name, "user%05d.iff", number);
    return name;
}

std::string simPlace(int number, const std::string& neighbourhood) {
    return "game/" + neighbourhood + "/Characters/" + simFileName(number);
}

}  // namespace marlowick::test
