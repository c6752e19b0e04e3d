# Header-only libraries from Debian packages, as INTERFACE targets. Their folders are
# linked into the build tree rather than adding /usr/include itself: the mingw cross build
# must not see the host's C library headers.
set(CORVID_THIRD_PARTY_HEADERS ${CMAKE_BINARY_DIR}/third_party)

# corvid_header_target(target folder...): /usr/include/<folder> as a SYSTEM include of
# `target`.
function(corvid_header_target target)
    file(MAKE_DIRECTORY ${CORVID_THIRD_PARTY_HEADERS})
    foreach(header_dir IN LISTS ARGN)
        if(NOT EXISTS /usr/include/${header_dir})
            message(FATAL_ERROR "/usr/include/${header_dir} is missing: run scripts/install-deps.sh")
        endif()
        file(CREATE_LINK /usr/include/${header_dir} ${CORVID_THIRD_PARTY_HEADERS}/${header_dir}
             SYMBOLIC)
    endforeach()
    add_library(${target} INTERFACE)
    target_include_directories(${target} SYSTEM INTERFACE ${CORVID_THIRD_PARTY_HEADERS})
endfunction()

corvid_header_target(corvid_json nlohmann)
corvid_header_target(corvid_cli11 CLI)
corvid_header_target(corvid_boost boost)
if(WIN32)
    # Asio's sockets.
    target_link_libraries(corvid_boost INTERFACE ws2_32 mswsock)
endif()
