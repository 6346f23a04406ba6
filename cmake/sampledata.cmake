# The program that loads the sample orders into a database; it needs no windows, so it is built everywhere.

add_executable(sampledata
    ${PROJECT_SOURCE_DIR}/gallery/sampledata/main.cpp ${PROJECT_SOURCE_DIR}/gallery/sampleorders_rules.cpp)
zor_set_warnings(sampledata)
target_link_libraries(sampledata PRIVATE zor::framework)
