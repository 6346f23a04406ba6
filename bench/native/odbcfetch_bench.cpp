// What it costs to open a million rows, on unixODBC.

#include "bench/odbcfetch.h"

int main() {
    return bench::MeasureFetches();
}
