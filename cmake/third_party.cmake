# Third-party code as INTERFACE targets: corvid_json (nlohmann), corvid_cli11, corvid_boost
# (Asio and Beast, header-only) and corvid_sqlite.
#
# Header-only Debian packages are linked folder by folder into the build tree rather than
# adding /usr/include itself: the mingw cross build must not see the host's C library headers.
set(CORVID_THIRD_PARTY_INCLUDE ${CMAKE_BINARY_DIR}/third_party)

# corvid_header_target(target folder...): an INTERFACE target that sees /usr/include/<folder>
# for each folder, through links in the build tree.
function(corvid_header_target target)
    foreach(folder IN LISTS ARGN)
        if(NOT EXISTS /usr/include/${folder})
            message(FATAL_ERROR "/usr/include/${folder} is missing: run scripts/install-deps.sh")
        endif()
        file(MAKE_DIRECTORY ${CORVID_THIRD_PARTY_INCLUDE})
        file(CREATE_LINK /usr/include/${folder} ${CORVID_THIRD_PARTY_INCLUDE}/${folder} SYMBOLIC)
    endforeach()
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE ${CORVID_THIRD_PARTY_INCLUDE})
endfunction()

corvid_header_target(corvid_json nlohmann)
corvid_header_target(corvid_cli11 CLI)
corvid_header_target(corvid_boost boost)
if(WIN32)
    target_link_libraries(corvid_boost INTERFACE ws2_32 mswsock)
else()
    find_package(Threads REQUIRED)
    target_link_libraries(corvid_boost INTERFACE Threads::Threads)
endif()

# SQLite: Debian's library on Linux; on Windows a static library built from the amalgamation
# that scripts/install-deps.sh puts in build/deps/sqlite3 (the build never downloads it).
add_library(corvid_sqlite INTERFACE)
if(WIN32)
    set(CORVID_SQLITE_SOURCE ${CMAKE_SOURCE_DIR}/build/deps/sqlite3
        CACHE PATH "Folder holding SQLite's amalgamation (sqlite3.c and sqlite3.h)")
    if(NOT EXISTS ${CORVID_SQLITE_SOURCE}/sqlite3.c OR NOT EXISTS ${CORVID_SQLITE_SOURCE}/sqlite3.h)
        message(FATAL_ERROR "SQLite's amalgamation is missing from ${CORVID_SQLITE_SOURCE}: "
                            "run scripts/install-deps.sh")
    endif()
    add_library(corvid_sqlite3 STATIC ${CORVID_SQLITE_SOURCE}/sqlite3.c)
    # Not our code: its warnings must not fail a -Werror build.
    target_compile_options(corvid_sqlite3 PRIVATE -w)
    target_compile_definitions(corvid_sqlite3 PRIVATE SQLITE_THREADSAFE=1 SQLITE_DQS=0
                               SQLITE_OMIT_LOAD_EXTENSION)
    target_include_directories(corvid_sqlite3 SYSTEM PUBLIC ${CORVID_SQLITE_SOURCE})
    target_link_libraries(corvid_sqlite INTERFACE corvid_sqlite3)
else()
    find_package(SQLite3 REQUIRED)
    target_link_libraries(corvid_sqlite INTERFACE SQLite::SQLite3)
endif()
