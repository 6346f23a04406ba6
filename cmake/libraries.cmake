# The two static libraries. On Windows they hold everything; elsewhere the portable rooms alone.

set(ZOR_LIBRARY_ROOMS foundation controls numeric datetime lists data buttons package)

# Units of the library that are portable as a whole, beside the rules files.
set(portableUnits data/Zoradodataset.cpp)

# Sources of the given rooms; without Windows only those of portable rooms and the rules files of the others.
function(zor_collect_sources result)
    set(found)
    foreach(room IN LISTS ARGN)
        if(WIN32 OR room MATCHES "^framework/(system|db)$")
            set(pattern "*.cpp")
        else()
            set(pattern "*_rules.cpp")
        endif()
        file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${room}/${pattern}")
        list(APPEND found ${sources})
    endforeach()
    if(NOT WIN32)
        foreach(unit IN LISTS portableUnits)
            get_filename_component(room ${unit} DIRECTORY)
            if(room IN_LIST ARGN)
                list(APPEND found ${PROJECT_SOURCE_DIR}/${unit})
            endif()
        endforeach()
    endif()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# By these headers the units of one room share what is theirs alone.
set(privateHeaders
    data/Zorvirtualdbgrid_parts.h
    framework/dbgrid/griddatalink.h
    framework/system/formloader_core.h
    framework/system/loadsession.h
    framework/system/textform_nodes.h
    framework/system/textform_scanner.h
    framework/system/waitingreferences.h)

# The headers that hosts may include; without Windows only those of what is portable.
function(zor_public_headers result)
    list(TRANSFORM ZOR_LIBRARY_ROOMS APPEND "/*.h" OUTPUT_VARIABLE patterns)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}" framework/*.h ${patterns})
    list(REMOVE_ITEM headers ${privateHeaders})
    list(APPEND headers zor.h) # by its name: the glob would find installed ones below the build folders, too
    if(NOT WIN32)
        list(FILTER headers INCLUDE REGEX "^framework/(system|db)/|_rules\\.h$|^data/Zoradodataset")
    endif()
    set(${result} ${headers} PARENT_SCOPE)
endfunction()

# What a library passes on to those who link to it: its name, includes that start at the root of the tree, and the
# language.
function(zor_export_usage name)
    add_library(zor::${name} ALIAS ${name})
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zor>)
    target_compile_features(${name} PUBLIC cxx_std_20)
    if(WIN32)
        target_compile_definitions(${name} PUBLIC
            UNICODE _UNICODE NOMINMAX STRICT WIN32_LEAN_AND_MEAN WINVER=0x0A00 _WIN32_WINNT=0x0A00)
    endif()
    if(MSVC)
        target_compile_options(${name} PUBLIC /utf-8 /EHsc /bigobj)
    elseif(WIN32)
        target_compile_options(${name} PUBLIC -fms-extensions)
    endif()
endfunction()

# A static library of the given sources.
function(zor_add_library name)
    add_library(${name} STATIC ${ARGN})
    zor_set_warnings(${name})
    zor_export_usage(${name})
endfunction()

set(frameworkRooms
    framework/system framework/db framework/graphics framework/windows framework/dbgrid framework/vtree)
zor_collect_sources(frameworkSources ${frameworkRooms})
zor_collect_sources(librarySources ${ZOR_LIBRARY_ROOMS})
list(FILTER librarySources EXCLUDE REGEX "_module\\.cpp$") # belongs to the shared library alone

# ODBC is part of Windows. Elsewhere a host without the driver manager's headers still gets all the other rooms.
if(WIN32)
    set(ZOR_HAS_ODBC ON)
else()
    find_package(ODBC QUIET)
    set(ZOR_HAS_ODBC ${ODBC_FOUND})
    if(NOT ZOR_HAS_ODBC)
        message(STATUS "unixODBC not found: sources and tests with 'odbc' in their names are left out")
        list(FILTER frameworkSources EXCLUDE REGEX "/[^/]*odbc[^/]*\\.cpp$")
    endif()
endif()

zor_add_library(framework ${frameworkSources})
if(MINGW)
    # Programs of the static library need no other file beside them, the C++ runtime's included.
    target_link_options(framework INTERFACE -static)
endif()
if(ZOR_HAS_ODBC)
    target_compile_definitions(framework PRIVATE FRAMEWORK_HAS_ODBC)
endif()
if(WIN32)
    set(ZOR_SYSTEM_LIBRARIES user32 gdi32 msimg32 comctl32 uxtheme dwmapi imm32 shell32 shlwapi
        ole32 oleaut32 oleacc uuid version advapi32 odbc32)
    target_link_libraries(framework PUBLIC ${ZOR_SYSTEM_LIBRARIES})
elseif(ZOR_HAS_ODBC)
    target_link_libraries(framework PUBLIC ODBC::ODBC)
endif()

zor_add_library(zor ${librarySources})
target_link_libraries(zor PUBLIC framework)

# Linking zor::manifest gives a program common controls 6 and per-monitor DPI awareness. It is a resource, which a
# static library cannot carry, so it is compiled into each program.
if(WIN32)
    enable_language(RC)
    add_library(zor_manifest INTERFACE)
    add_library(zor::manifest ALIAS zor_manifest)
    set_target_properties(zor_manifest PROPERTIES EXPORT_NAME manifest)
    if(MSVC)
        set(manifestSource zor.manifest)
    else()
        set(manifestSource zor_manifest.rc)
    endif()
    target_sources(zor_manifest INTERFACE
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/cmake/${manifestSource}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_LIBDIR}/cmake/zor/${manifestSource}>)
endif()
