# Reading JSON: the headers of Debian's nlohmann-json3-dev, reached through a folder that holds them
# alone. A build for another system must not find the headers of this one beside them.
find_path(MARLOWICK_NLOHMANN_JSON nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH
    REQUIRED DOC "The folder that nlohmann/json.hpp lies below")
set(folder ${CMAKE_BINARY_DIR}/nlohmann_json)
file(MAKE_DIRECTORY ${folder})
if(NOT EXISTS ${folder}/nlohmann/json.hpp)
    file(REMOVE ${folder}/nlohmann)
    file(CREATE_LINK ${MARLOWICK_NLOHMANN_JSON}/nlohmann ${folder}/nlohmann COPY_ON_ERROR SYMBOLIC)
endif()
add_library(nlohmann_json INTERFACE)
target_include_directories(nlohmann_json SYSTEM INTERFACE ${folder})
