# The install tree: headers in the shape of the source tree, the libraries, and a package for find_package(zor).

include(CMakePackageConfigHelpers)

set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/zor)
set(exported framework zor)
if(WIN32)
    list(APPEND exported zor_manifest framework_shared zor_shared)
endif()

zor_public_headers(headers)
foreach(header IN LISTS headers)
    get_filename_component(room ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zor/${room})
endforeach()
install(TARGETS ${exported} EXPORT zorTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT zorTargets NAMESPACE zor:: DESTINATION ${packageFolder})
if(WIN32)
    install(FILES cmake/zor.manifest cmake/zor_manifest.rc cmake/windows-clang-mingw.cmake DESTINATION ${packageFolder})
    install(FILES ${ZOR_RUNTIME_MODULES} DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

configure_package_config_file(cmake/zorConfig.cmake.in ${PROJECT_BINARY_DIR}/zorConfig.cmake
    INSTALL_DESTINATION ${packageFolder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zorConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zorConfig.cmake ${PROJECT_BINARY_DIR}/zorConfigVersion.cmake
    DESTINATION ${packageFolder})
