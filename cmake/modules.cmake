# The libraries once more as modules: zorframework.dll, which a host links to, and the package zor.dll, which hosts load at
# run time or link to as well. Both are linked from the objects of the static libraries.

# A digest of the installed headers: a package whose code was built from others does not fit, whatever its version.
zor_public_headers(headers)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${headers})
set(digests)
foreach(header IN LISTS headers)
    file(SHA256 ${PROJECT_SOURCE_DIR}/${header} digest)
    string(APPEND digests ${digest})
endforeach()
string(SHA256 digest "${digests}")
set(headersDefinition FRAMEWORK_HEADERS="${digest}")
set_source_files_properties(${PROJECT_SOURCE_DIR}/framework/windows/packages.cpp
    PROPERTIES COMPILE_DEFINITIONS ${headersDefinition})

function(zor_add_module name output)
    add_library(${name} SHARED ${ARGN})
    zor_export_usage(${name})
    set_target_properties(${name} PROPERTIES
        OUTPUT_NAME ${output} ARCHIVE_OUTPUT_NAME ${output}_shared PREFIX "" IMPORT_PREFIX lib
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/modules)
    if(MINGW)
        target_link_options(${name} PRIVATE -Wl,--export-all-symbols)
    else()
        set_target_properties(${name} PROPERTIES WINDOWS_EXPORT_ALL_SYMBOLS ON)
    endif()
endfunction()

zor_add_module(framework_shared zorframework $<TARGET_OBJECTS:framework>)
target_link_libraries(framework_shared PUBLIC ${ZOR_SYSTEM_LIBRARIES})
target_compile_definitions(framework_shared INTERFACE ${headersDefinition})
zor_add_module(zor_shared zor $<TARGET_OBJECTS:zor> ${PROJECT_SOURCE_DIR}/package/Zorpackage_module.cpp)
target_link_libraries(zor_shared PUBLIC framework_shared)
zor_set_warnings(zor_shared)

foreach(module IN LISTS ZOR_RUNTIME_MODULES)
    file(COPY ${module} DESTINATION ${PROJECT_BINARY_DIR}/modules)
endforeach()

# What an install tree needs.
add_custom_target(libraries DEPENDS framework zor framework_shared zor_shared)
