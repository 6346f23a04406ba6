# The sample orders, which the gallery shows and tests load, and programs about data that need no windows, so they are
# built everywhere: the loader of those orders, and an example.

add_library(sampleorders STATIC EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/sampledata/sampleorders.cpp)
zor_set_warnings(sampleorders)
target_link_libraries(sampleorders PUBLIC zor::framework)

if(NOT ZOR_BUILD_GALLERY OR NOT ZOR_HAS_ODBC)
    return()
endif()

add_executable(sampledata ${PROJECT_SOURCE_DIR}/sampledata/main.cpp)
zor_set_warnings(sampledata)
target_link_libraries(sampledata PRIVATE sampleorders)

add_executable(orders ${PROJECT_SOURCE_DIR}/examples/orders.cpp)
zor_set_warnings(orders)
target_link_libraries(orders PRIVATE zor::zor)

# The example runs on a file that the loader has filled.
if(ZOR_BUILD_TESTS AND NOT WIN32)
    set(semicolon "$<SEMICOLON>")
    set(database "DRIVER=SQLite3${semicolon}SyncPragma=OFF${semicolon}Database=${PROJECT_BINARY_DIR}/orders.db")
    add_test(NAME rules.sampledata COMMAND sampledata "${database}")
    add_test(NAME rules.orders_example COMMAND orders "${database}")
    set_tests_properties(rules.sampledata PROPERTIES LABELS rules TIMEOUT 120 FIXTURES_SETUP orders)
    set_tests_properties(rules.orders_example PROPERTIES LABELS rules TIMEOUT 120 FIXTURES_REQUIRED orders)
endif()
