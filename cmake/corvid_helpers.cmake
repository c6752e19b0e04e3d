# corvid_module(name deps...): a static library from src/<name>/*.cpp, keeping the
# files of this platform (*_posix.cpp or *_win32.cpp) and dropping the other's.
function(corvid_module name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${name}/*.cpp)
    list(FILTER sources EXCLUDE REGEX "_${CORVID_OTHER_PLATFORM}\\.cpp$")
    if(NOT sources)
        set(sources ${CMAKE_SOURCE_DIR}/cmake/empty.cpp)
    endif()
    add_library(corvid_${name} STATIC ${sources})
    target_include_directories(corvid_${name} PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/src>)
    foreach(dep IN LISTS ARGN)
        target_link_libraries(corvid_${name} PUBLIC corvid_${dep})
    endforeach()
    if(WIN32)
        target_link_libraries(corvid_${name} PUBLIC ole32 oleaut32 uuid shell32 user32)
    endif()
endfunction()

# corvid_test_suite(name libs...): one GoogleTest program from tests/<name>/*_test.cpp,
# keeping platform files as above. Registered with CTest as a single test so that the
# Windows build can run it under Wine without a discovery step.
function(corvid_test_suite name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${name}/*.cpp)
    list(FILTER sources EXCLUDE REGEX "_${CORVID_OTHER_PLATFORM}\\.cpp$")
    # Programs of their own (a demo, a driver) live beside the suites but are not part of them.
    list(FILTER sources EXCLUDE REGEX "_(demo|driver)_win32\\.cpp$")
    if(NOT sources)
        return()
    endif()
    add_executable(${name}_tests ${sources})
    target_include_directories(${name}_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name}_tests PRIVATE ${ARGN} corvid_test_support GTest::gtest_main GTest::gmock)
    add_test(NAME ${name} COMMAND ${name}_tests --gtest_brief=1)
endfunction()

# corvid_version_resource(target file_name description): the VERSIONINFO resource of a
# Windows binary, from the one version in the top CMakeLists.txt. Nothing elsewhere.
function(corvid_version_resource target file_name description)
    if(NOT WIN32)
        return()
    endif()
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        set(CORVID_RC_FILE_TYPE VFT_DLL)
    else()
        set(CORVID_RC_FILE_TYPE VFT_APP)
    endif()
    set(CORVID_RC_FILE_NAME ${file_name})
    set(CORVID_RC_DESCRIPTION ${description})
    set(rc ${CMAKE_CURRENT_BINARY_DIR}/generated/${target}_version.rc)
    configure_file(${CMAKE_SOURCE_DIR}/cmake/version_info.rc.in ${rc} @ONLY)
    target_sources(${target} PRIVATE ${rc})
endfunction()
