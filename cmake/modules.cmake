# The libraries once more as modules: zorframework.dll, which a host links to, and the package zor.dll, which hosts load at
# run time or link to as well. Both are linked from the objects of the static libraries.

function(zor_add_module name output)
    add_library(${name} SHARED ${ARGN})
    add_library(zor::${name} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        OUTPUT_NAME ${output} ARCHIVE_OUTPUT_NAME ${output}_shared PREFIX "" IMPORT_PREFIX lib
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/modules)
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zor>)
    target_compile_features(${name} PUBLIC cxx_std_20)
    foreach(property IN ITEMS COMPILE_DEFINITIONS COMPILE_OPTIONS)
        get_target_property(values framework INTERFACE_${property})
        if(values)
            set_property(TARGET ${name} APPEND PROPERTY ${property} ${values})
            set_property(TARGET ${name} APPEND PROPERTY INTERFACE_${property} ${values})
        endif()
    endforeach()
    if(MINGW)
        target_link_options(${name} PRIVATE -Wl,--export-all-symbols)
    else()
        set_target_properties(${name} PROPERTIES WINDOWS_EXPORT_ALL_SYMBOLS ON)
    endif()
endfunction()

zor_add_module(framework_shared zorframework $<TARGET_OBJECTS:framework>)
target_link_libraries(framework_shared PUBLIC ${ZOR_SYSTEM_LIBRARIES})
zor_add_module(zor_shared zor $<TARGET_OBJECTS:zor> ${PROJECT_SOURCE_DIR}/foundation/Zorpackage_module.cpp)
target_link_libraries(zor_shared PUBLIC framework_shared)
zor_set_warnings(zor_shared)

foreach(module IN LISTS ZOR_RUNTIME_MODULES)
    file(COPY ${module} DESTINATION ${PROJECT_BINARY_DIR}/modules)
endforeach()

# What an install tree needs.
add_custom_target(libraries DEPENDS framework zor framework_shared zor_shared)
