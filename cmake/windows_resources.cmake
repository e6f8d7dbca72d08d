# What Windows reads out of an executable file: how to run it, and, of the program itself, its icon
# and version.
enable_language(RC)

set(MARLOWICK_WINDOWS_RESOURCES ${CMAKE_BINARY_DIR}/generated/windows)
set(MARLOWICK_COPYRIGHT "Copyright (c) 2026 Tolbert Quay and the Marlowick contributors")
foreach(file Marlowick.manifest manifest.rc Marlowick.rc)
    configure_file(${CMAKE_SOURCE_DIR}/src/resources/windows/${file}.in
        ${MARLOWICK_WINDOWS_RESOURCES}/${file} @ONLY)
endforeach()

# Tests and tools get the manifest too: it decides the code page and how long a path may be.
function(marlowick_manifest target)
    target_sources(${target} PRIVATE ${MARLOWICK_WINDOWS_RESOURCES}/manifest.rc)
endfunction()
