// Loads the sample orders into a database: sampledata "DRIVER=SQLite3;Database=orders.db"
//
// Tables that are there already stay as they are.

#include "framework/system/strings.h"
#include "sampledata/sampledatabase.h"

#include <cstdio>

int main(int count, char** arguments) {
    if (count != 2) {
        std::printf("sampledata \"DRIVER=SQLite3;Database=orders.db\"\n");
        return 2;
    }
    try {
        framework::TOdbcConnection connection(framework::Utf8Decode(arguments[1]));
        if (sampleorders::AreLoaded(connection)) {
            std::printf("The sample orders are there already.\n");
            return 0;
        }
        sampleorders::Load(connection);
        std::printf("Loaded the sample orders.\n");
    } catch (const std::exception& error) {
        std::printf("%s\n", error.what());
        return 1;
    }
    return 0;
}
