# Programs about data that need no windows, so they are built everywhere: the loader of the sample orders, and an example.

add_executable(sampledata
    ${PROJECT_SOURCE_DIR}/gallery/sampledata/main.cpp ${PROJECT_SOURCE_DIR}/gallery/sampleorders_rules.cpp)
zor_set_warnings(sampledata)
target_link_libraries(sampledata PRIVATE zor::framework)

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
