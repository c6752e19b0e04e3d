# What `cmake --install` puts in place, in two components:
#   runtime: the tool and the simulator (bin/), which the Debian package is made from;
#   dev:     libcorvid's public headers (include/corvid/<module>/) and static libraries, with
#            CorvidConfig.cmake, so that `find_package(Corvid)` gives Corvid::corvid.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(corvid_core_modules text automation host serial preview documents records session)
set(corvid_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Corvid)

# The headers use C++20 (<concepts>, <compare>): a consumer compiles with it too.
target_compile_features(corvid INTERFACE cxx_std_20)

set(corvid_core_targets corvid)
foreach(module IN LISTS corvid_core_modules)
    list(APPEND corvid_core_targets corvid_${module})
    # The other platform's headers name its system headers: they stay out.
    install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/${module}
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/corvid COMPONENT dev
            FILES_MATCHING PATTERN "*.h" PATTERN "*_${CORVID_OTHER_PLATFORM}.h" EXCLUDE)
endforeach()
install(TARGETS ${corvid_core_targets} EXPORT CorvidTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/corvid)
install(EXPORT CorvidTargets NAMESPACE Corvid:: DESTINATION ${corvid_cmake_dir} COMPONENT dev)

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/CorvidConfig.cmake.in
    ${CMAKE_BINARY_DIR}/packaging/CorvidConfig.cmake INSTALL_DESTINATION ${corvid_cmake_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/packaging/CorvidConfigVersion.cmake
    VERSION ${CORVID_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/packaging/CorvidConfig.cmake
              ${CMAKE_BINARY_DIR}/packaging/CorvidConfigVersion.cmake
        DESTINATION ${corvid_cmake_dir} COMPONENT dev)

if(TARGET corvid-sim)
    install(TARGETS corvid_cli corvid-sim RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
            COMPONENT runtime)
endif()
