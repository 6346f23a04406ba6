# Tests that drive real windows. Cross-compiled ones run in Wine, once per locale, each locale on a desktop of its own.

if(NOT CMAKE_CROSSCOMPILING)
    find_package(GTest QUIET)
endif()
if(NOT GTest_FOUND)
    # Two files of GoogleTest are all there is to build; its own project would ask for a C compiler as well.
    add_library(googletest STATIC ${ZOR_GOOGLETEST_SOURCE}/googletest/src/gtest-all.cc)
    target_include_directories(googletest SYSTEM PUBLIC ${ZOR_GOOGLETEST_SOURCE}/googletest/include)
    target_include_directories(googletest PRIVATE ${ZOR_GOOGLETEST_SOURCE}/googletest)
    target_compile_definitions(googletest PUBLIC GTEST_HAS_PTHREAD=0)
    add_library(googletest_main STATIC ${ZOR_GOOGLETEST_SOURCE}/googletest/src/gtest_main.cc)
    target_link_libraries(googletest_main PUBLIC googletest)
    add_library(GTest::gtest ALIAS googletest)
    add_library(GTest::gtest_main ALIAS googletest_main)
endif()

file(GLOB supportSources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tests/support/*.cpp")
# Tests and scripts press keys and move the mouse in the same way.
list(APPEND supportSources
    ${PROJECT_SOURCE_DIR}/gallery/playerinput.cpp ${PROJECT_SOURCE_DIR}/gallery/playerscript_rules.cpp)
add_library(test_support STATIC ${supportSources})
zor_set_warnings(test_support)
target_link_libraries(test_support PUBLIC zor::zor sampleorders GTest::gtest)

# What a test reads besides its program; one that has passed runs again only when something of it changes.
set(gallery_test_reads ${PROJECT_BINARY_DIR}/gallery)
set(designerpage_test_reads ${PROJECT_SOURCE_DIR}/gallery/forms)
set(packages_test_reads ${PROJECT_BINARY_DIR}/modules)
set(docs_test_reads ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/README.md)
set(runChanged ${PROJECT_SOURCE_DIR}/tools/run-changed ${PROJECT_BINARY_DIR}/passed)
set(runInWine ${PROJECT_SOURCE_DIR}/tools/run-in-wine)
# The driver manager of Windows is another one than the host's, so what goes through it is tried there as well.
file(GLOB windowTests CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/tests/window/*_test.cpp" "${PROJECT_SOURCE_DIR}/tests/rules/*odbc*_test.cpp")
if(NOT TARGET gallery_parts)
    list(FILTER windowTests EXCLUDE REGEX "/designerpage_test.cpp$")
endif()
foreach(source IN LISTS windowTests)
    if(source MATCHES "/packages_test.cpp$")
        # A host that knows the library from its package alone.
        zor_add_program(${source} zor::framework_shared zor::manifest GTest::gtest_main)
        set_target_properties(packages_test PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/modules)
        add_dependencies(packages_test zor_shared)
        target_sources(packages_test PRIVATE tests/support/handlecount.cpp)
        foreach(kind IN ITEMS older yesterday refusing derived embedding)
            zor_add_module(${kind}_package ${kind} ${PROJECT_SOURCE_DIR}/tests/support/packages/${kind}.cpp)
            add_dependencies(packages_test ${kind}_package)
        endforeach()
        target_link_libraries(older_package PRIVATE framework_shared)
        target_link_libraries(yesterday_package PRIVATE framework_shared)
        target_link_libraries(refusing_package PRIVATE framework_shared)
        target_link_libraries(derived_package PRIVATE zor_shared)
        target_link_libraries(embedding_package PRIVATE framework)
    else()
        zor_add_program(${source} test_support zor::manifest GTest::gtest_main)
        if(source MATCHES "/designerpage_test.cpp$")
            target_link_libraries(designerpage_test PRIVATE gallery_parts)
        endif()
    endif()
    set(limit 240) # seconds
    if(zor_program STREQUAL gallery_test)
        set(limit 600) # plays the scripts of all pages
    endif()
    math(EXPR timeout "${limit} + 60")
    if(CMAKE_CROSSCOMPILING)
        foreach(locale IN ITEMS en_US pl_PL)
            set(test window.${zor_program}.${locale})
            add_test(NAME ${test} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
                COMMAND ${runChanged} ${${zor_program}_reads} --
                    ${runInWine} --state ${PROJECT_BINARY_DIR}/wine-${locale} --locale ${locale} --timeout ${limit} -- $<TARGET_FILE:${zor_program}>)
            # Only one program at a time can be in the foreground of a desktop.
            set_tests_properties(${test} PROPERTIES LABELS "window;${locale}" TIMEOUT ${timeout}
                RESOURCE_LOCK desktop-${locale} FIXTURES_REQUIRED desktop-${locale})
        endforeach()
    else()
        add_test(NAME window.${zor_program} COMMAND ${zor_program} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
        set_tests_properties(window.${zor_program} PROPERTIES LABELS window TIMEOUT ${timeout} RESOURCE_LOCK desktop)
    endif()
endforeach()

# This one starts the gallery.
if(TARGET gallery_test AND TARGET gallery)
    add_dependencies(gallery_test gallery)
endif()

if(CMAKE_CROSSCOMPILING)
    foreach(locale IN ITEMS en_US pl_PL)
        foreach(action IN ITEMS start stop)
            add_test(NAME desktop.${action}.${locale}
                COMMAND ${PROJECT_SOURCE_DIR}/tools/wine-desktop ${action} ${PROJECT_BINARY_DIR}/wine-${locale} ${locale})
            set_tests_properties(desktop.${action}.${locale} PROPERTIES LABELS desktop TIMEOUT 120)
        endforeach()
        set_tests_properties(desktop.start.${locale} PROPERTIES FIXTURES_SETUP desktop-${locale})
        set_tests_properties(desktop.stop.${locale} PROPERTIES FIXTURES_CLEANUP desktop-${locale})
    endforeach()
endif()

include(cmake/docs.cmake)
